#include "shell/platform/shortcuts.h"

namespace tarvelo::platform {

void ShortcutsChanged(wxFrame&) {}  // they are

}  // namespace tarvelo::platform
