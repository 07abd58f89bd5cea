#include "shell/patch_panel.h"

#include <wx/panel.h>

#include "shell/main.h"

namespace tarvelo {

PatchPanel::PatchPanel(Main& main) : main_(main), window_(new wxPanel(&main)), commands_({}) {}

int PatchPanel::MenuEntry() const { return PatchMenu; }

wxWindow& PatchPanel::Window() { return *window_; }

void PatchPanel::Build() {}
void PatchPanel::Save() {}
void PatchPanel::Clear() {}
void PatchPanel::Recaption(const Messages&) {}

void PatchPanel::AddPatch(const std::string&, const std::string&, bool) {}
void PatchPanel::SavePatch() {}

}  // namespace tarvelo
