#include "shell/ringtones_panel.h"

#include <wx/panel.h>

#include "shell/main.h"

namespace tarvelo {

RingtonesPanel::RingtonesPanel(Main& main) : main_(main), window_(new wxPanel(&main)), commands_({}) {}

int RingtonesPanel::MenuEntry() const { return tarvelo::Ringtones; }

wxWindow& RingtonesPanel::Window() { return *window_; }

void RingtonesPanel::Build() {}
void RingtonesPanel::Save() {}
void RingtonesPanel::Clear() {}
void RingtonesPanel::Recaption(const Messages&) {}

}  // namespace tarvelo
