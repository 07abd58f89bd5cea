// The size in which the system first lays out a window.
#pragma once

class wxTopLevelWindow;

namespace tarvelo::platform {

// Lays out a window that is not shown yet in its own size from the start.
void StartInOwnSize(wxTopLevelWindow& window);

}  // namespace tarvelo::platform
