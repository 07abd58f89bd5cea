// Shows in bold the default entry of a menu, which a double click runs.
#pragma once

class wxMenu;

namespace tarvelo::platform {

void ShowAsDefault(wxMenu& menu, int id);

}  // namespace tarvelo::platform
