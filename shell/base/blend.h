// Mixes colours.
#pragma once

#include <wx/colour.h>

namespace tarvelo {

// A mix with `share` (0 .. 1) of the front colour.
[[nodiscard]] inline wxColour Blend(const wxColour& front, const wxColour& back, double share) {
  const auto mix = [share](unsigned char a, unsigned char b) { return wxColour::AlphaBlend(a, b, share); };
  return {mix(front.Red(), back.Red()), mix(front.Green(), back.Green()), mix(front.Blue(), back.Blue())};
}

}  // namespace tarvelo
