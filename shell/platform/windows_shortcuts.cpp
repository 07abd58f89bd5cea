#include "shell/platform/shortcuts.h"

namespace tarvelo::platform {

void ShortcutsChanged(wxFrame&) {}  // they work at once here

}  // namespace tarvelo::platform
