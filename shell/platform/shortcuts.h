// Shortcuts of menus that are inserted while the program runs.
#pragma once

class wxFrame;

namespace tarvelo::platform {

// Makes the shortcuts of a window's menus usable at once.
void ShortcutsChanged(wxFrame& frame);

}  // namespace tarvelo::platform
