#include "shell/platform/list_keys.h"

namespace tarvelo::platform {

// The list has no search of its own here.
void LeaveSearchToMenus(wxDataViewCtrl&) {}

}  // namespace tarvelo::platform
