// Where the main window stood when the program was left, kept in the settings' section "Window".
#pragma once

class wxFrame;

namespace tarvelo {

class Settings;

// Gives the window its place, or a sensible one: at first start, and when the place lies on a
// monitor that is gone.
void RestorePlace(wxFrame& window, const Settings& settings);
void StorePlace(wxFrame& window, Settings& settings);

}  // namespace tarvelo
