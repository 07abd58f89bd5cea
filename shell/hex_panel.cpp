#include "shell/hex_panel.h"

#include <wx/panel.h>

#include "shell/main.h"

namespace tarvelo {

HexPanel::HexPanel(Main& main) : main_(main), window_(new wxPanel(&main)), commands_({}) {}

int HexPanel::MenuEntry() const { return HexView; }

wxWindow& HexPanel::Window() { return *window_; }

void HexPanel::Build() {}
void HexPanel::Save() {}
void HexPanel::Clear() {}
void HexPanel::Recaption(const Messages&) {}

void HexPanel::Go(Offset, Offset) {}

}  // namespace tarvelo
