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

// Does something, again and again, until `done` holds. Gives up after 20 tries.
template <typename Action, typename Done>
bool Until(Action action, Done done) {
  for (int i = 0; i < 20 && !done(); ++i) {
    action();
    wxMilliSleep(100);
    Settle();
  }
  return done();
}

// Presses a key, with the pointer over a window, until `done` holds: the window may not have the focus yet.
template <typename Done>
bool PressUntil(const wxWindow& window, int key, int modifiers, Done done) {
  return Until(
      [&] {
        PointAt(window);
        wxUIActionSimulator().Char(key, modifiers);
      },
      done);
}

}  // namespace tarvelo
