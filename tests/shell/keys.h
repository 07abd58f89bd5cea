// Real key presses.
#pragma once

#include <wx/uiaction.h>
#include <wx/window.h>

#include "shell/test_app.h"

namespace tarvelo {

inline void PointAt(const wxWindow& window) {
  const wxRect place = window.GetScreenRect();
  wxUIActionSimulator().MouseMove(place.GetTopLeft() + place.GetSize() / 2);
}

// Presses a key, with the pointer over a window, until `done` holds, because the window may not have the
// focus yet. Gives up after 20 tries.
template <typename Done>
bool PressUntil(const wxWindow& window, int key, int modifiers, Done done) {
  for (int i = 0; i < 20 && !done(); ++i) {
    PointAt(window);
    wxUIActionSimulator().Char(key, modifiers);
    wxMilliSleep(100);
    Settle();
  }
  return done();
}

}  // namespace tarvelo
