// A decoded picture: plain pixels, no window.
#pragma once

#include <cstdint>
#include <vector>

namespace tarvelo {

// A colour as 0xRRGGBB.
using Colour = std::uint32_t;

// What is not drawn: transparent pixels, and all that a damaged picture leaves out. No colour table
// can produce it.
inline constexpr Colour backgroundColour = 0xFB00FB;

struct Bitmap {
  Bitmap(int w, int h);

  [[nodiscard]] Colour At(int x, int y) const {
    return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                  static_cast<std::size_t>(x)];
  }

  int width;
  int height;
  std::vector<Colour> pixels;  // row by row from the top, all background at first
};

}  // namespace tarvelo
