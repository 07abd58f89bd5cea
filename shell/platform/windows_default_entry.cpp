#include <windows.h>
#include <wx/menu.h>

#include "shell/platform/default_entry.h"

namespace tarvelo::platform {

void ShowAsDefault(wxMenu& menu, int id) {
  ::SetMenuDefaultItem(static_cast<HMENU>(menu.GetHMenu()), static_cast<UINT>(id), FALSE);
}

}  // namespace tarvelo::platform
