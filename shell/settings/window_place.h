// The main window's place on the screen, kept in section "Window" of the settings.
#pragma once

#include <wx/gdicmn.h>
#include <wx/timer.h>

class wxFrame;

namespace tarvelo {

class Settings;

class WindowPlace {
 public:
  // Gives the window, which is not shown yet, the stored place if the user could reach it there, otherwise a
  // usual size in the middle of the screen. No window is larger than its screen.
  WindowPlace(wxFrame& window, const Settings& settings);

  // Stores the place of the window. Of a maximised or minimised one, stores the place it had before.
  void Store(Settings& settings) const { Store(settings, 0); }
  // Stores a place a little lower and to the right for the next window that starts, so that the title bars of
  // both are in sight. Each call gives another place.
  void StoreForNext(Settings& settings);

 private:
  void Arrive();
  void Store(Settings& settings, int shift) const;

  wxFrame& window_;
  wxRect normal_;     // while the window is neither maximised nor minimised
  bool isMaximized_;  // when it was stored
  bool isShown_ = false;
  bool hasArrived_ = false;  // the window system has placed the window
  wxTimer arrival_;
  int next_ = 0;  // places stored for other windows
};

}  // namespace tarvelo
