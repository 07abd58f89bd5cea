// Makes and mixes colours.
#pragma once

#include <wx/colour.h>

#include <cstdint>

namespace tarvelo {

// The colour 0xRRGGBB.
[[nodiscard]] inline wxColour FromRgb(std::uint32_t rgb) {
  const auto part = [rgb](int bits) { return static_cast<unsigned char>(rgb >> bits); };
  return {part(16), part(8), part(0)};
}

// A mix with `share` (0 .. 1) of the front colour.
[[nodiscard]] inline wxColour Blend(const wxColour& front, const wxColour& back, double share) {
  const auto mix = [share](unsigned char a, unsigned char b) { return wxColour::AlphaBlend(a, b, share); };
  return {mix(front.Red(), back.Red()), mix(front.Green(), back.Green()), mix(front.Blue(), back.Blue())};
}

}  // namespace tarvelo
