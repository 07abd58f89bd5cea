#include "shell/hits_panel.h"

#include <wx/panel.h>

#include "shell/main.h"

namespace tarvelo {

HitsPanel::HitsPanel(Main& main) : main_(main), window_(new wxPanel(&main)), commands_({}) {}

int HitsPanel::MenuEntry() const { return Hits; }

wxWindow& HitsPanel::Window() { return *window_; }

void HitsPanel::Build() {}
void HitsPanel::Save() {}
void HitsPanel::Clear() {}
void HitsPanel::Recaption(const Messages&) {}

void HitsPanel::Search_Click() {}

}  // namespace tarvelo
