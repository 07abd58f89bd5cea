// Keys that the system's own list would take away from the menus.
#pragma once

class wxDataViewCtrl;

namespace tarvelo::platform {

// Switches off the list's search, which answers to Ctrl+F and to letters.
void LeaveSearchToMenus(wxDataViewCtrl& list);

}  // namespace tarvelo::platform
