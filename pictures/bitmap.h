// A decoded picture: plain pixels, without a window.
#pragma once

#include <cstdint>
#include <vector>

namespace tarvelo {

// A colour as 0xRRGGBB.
using Colour = std::uint32_t;

// The value of undrawn pixels: transparent ones, and those missing from a damaged picture. No colour table
// contains it.
inline constexpr Colour backgroundColour = 0xFB00FB;

struct Bitmap {
  Bitmap(int w, int h);

  [[nodiscard]] Colour At(int x, int y) const {
    return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                  static_cast<std::size_t>(x)];
  }

  int width;
  int height;
  std::vector<Colour> pixels;  // row by row from the top, initially background
};

}  // namespace tarvelo
