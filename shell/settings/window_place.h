// The place of the main window when the program was closed, kept in the settings' section "Window".
#pragma once

class wxFrame;

namespace tarvelo {

class Settings;

// Restores the window's place, or chooses a sensible one at the first start and if the place is on a monitor
// that is gone.
void RestorePlace(wxFrame& window, const Settings& settings);
void StorePlace(wxFrame& window, Settings& settings);

}  // namespace tarvelo
