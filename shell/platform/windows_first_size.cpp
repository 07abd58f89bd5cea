#include "shell/platform/first_size.h"

namespace tarvelo::platform {

// Windows creates every window in its own size.
void StartInOwnSize(wxTopLevelWindow&) {}

}  // namespace tarvelo::platform
