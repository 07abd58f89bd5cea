// Shortcuts of menus that were put into the bar while the program runs.
#pragma once

class wxFrame;

namespace tarvelo::platform {

// Makes the shortcuts of a window's menus usable at once.
void ShortcutsChanged(wxFrame& frame);

}  // namespace tarvelo::platform
