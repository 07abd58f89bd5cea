// The default entry of a menu, the one that a double click runs, in bold.
#pragma once

class wxMenu;

namespace tarvelo::platform {

void ShowAsDefault(wxMenu& menu, int id);

}  // namespace tarvelo::platform
