#include "shell/eeprom_panel.h"

#include <wx/panel.h>

#include "shell/main.h"

namespace tarvelo {

EepromPanel::EepromPanel(Main& main) : main_(main), window_(new wxPanel(&main)), commands_({}) {}

int EepromPanel::MenuEntry() const { return EEPROM; }

wxWindow& EepromPanel::Window() { return *window_; }

void EepromPanel::Build() {}
void EepromPanel::Save() {}
void EepromPanel::Clear() {}
void EepromPanel::Recaption(const Messages&) {}

}  // namespace tarvelo
