// The colour of what is wrong.
#pragma once

#include <wx/settings.h>

namespace tarvelo {

// A red that is legible on the background of the current theme.
[[nodiscard]] inline wxColour LegibleRed() {
  const bool isDark = wxSystemSettings::GetAppearance().IsUsingDarkBackground();
  return isDark ? wxColour(0xFF, 0x70, 0x70) : wxColour(0xC0, 0, 0);
}

}  // namespace tarvelo
