// The colours of the phones' displays.
#pragma once

#include <array>

#include "pictures/bitmap.h"

namespace tarvelo {

// One entry for each pixel value. The values 0xC0 of 8 bits and 0xE000 of 16 bits are transparent: they give
// the background.
struct ColourTables {
  std::array<Colour, 256> bits8;     // RRRGGGBB, in the display's uneven levels
  std::array<Colour, 4096> bits12;   // 0xRGB
  std::array<Colour, 65536> bits16;  // red 15..11, green 10..6, blue 4..0; bit 5 is ignored
};

// The tables, created by the first call.
[[nodiscard]] const ColourTables& GetColors();

}  // namespace tarvelo
