// Keys that the system's list control would take from the menus.
#pragma once

class wxDataViewCtrl;

namespace tarvelo::platform {

// Switches off the list control's own search, which takes Ctrl+F and letters.
void LeaveSearchToMenus(wxDataViewCtrl& list);

}  // namespace tarvelo::platform
