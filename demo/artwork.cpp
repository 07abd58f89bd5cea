#include "demo/artwork.h"

#include <algorithm>
#include <memory>
#include <stdexcept>

#include "pictures/colours.h"

#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_ONLY_PNG
#define STBI_NO_STDIO
#include <stb/stb_image.h>

namespace tarvelo {
namespace {

constexpr Colour black = 0x000000;
constexpr Colour white = 0xFFFFFF;

// A picture with the pixels colourAt(x, y).
template <typename ColourAt>
Bitmap Drawn(int width, int height, ColourAt colourAt) {
  Bitmap bitmap(width, height);
  auto pixel = bitmap.pixels.begin();
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x) *pixel++ = colourAt(x, y);
  return bitmap;
}

Colour ColourOf(const stbi_uc* rgba) {
  if (rgba[3] == 0) return backgroundColour;
  return static_cast<Colour>(rgba[0] << 16 | rgba[1] << 8 | rgba[2]);
}

}  // namespace

std::vector<Bitmap> CutStrip(std::string_view png, int width) {
  int fullWidth = 0;
  int height = 0;
  const auto* bytes = reinterpret_cast<const stbi_uc*>(png.data());
  const std::unique_ptr<stbi_uc, decltype(&stbi_image_free)> rgba(
      stbi_load_from_memory(bytes, static_cast<int>(png.size()), &fullWidth, &height, nullptr, 4),
      stbi_image_free);
  if (rgba == nullptr) throw std::invalid_argument("a picture file cannot be decoded");
  std::vector<Bitmap> pictures;
  for (int left = 0; left < fullWidth; left += width)
    pictures.push_back(Drawn(std::min(width, fullWidth - left), height, [&](int x, int y) {
      return ColourOf(rgba.get() + 4 * (y * fullWidth + left + x));
    }));
  return pictures;
}

Bitmap ByteColourChart() {
  constexpr int cell = 5;
  constexpr int tile = 8;  // 2 x 2 tiles, one for each blue; green grows across, red down
  return Drawn(2 * tile * cell, 2 * tile * cell, [](int x, int y) {
    const int column = x / cell;
    const int row = y / cell;
    const int blue = row / tile * 2 + column / tile;
    return GetColors().bits8[static_cast<std::size_t>(row % tile << 5 | column % tile << 2 | blue)];
  });
}

Bitmap TwelveColourChart() {
  constexpr int tile = 16;  // 4 x 4 tiles, one for each blue; red grows across, green down
  return Drawn(4 * tile, 4 * tile, [](int x, int y) {
    const int blue = y / tile * 4 + x / tile;
    return GetColors().bits12[static_cast<std::size_t>(x % tile << 8 | y % tile << 4 | blue)];
  });
}

Bitmap DottedLine(int width, int height) {
  return Drawn(width, height, [](int x, int y) { return (x + y) % 4 < 2 ? black : white; });
}

Bitmap TableMark() {
  return Drawn(4, 4, [](int x, int y) { return x == y || x + y == 3 ? black : white; });
}

}  // namespace tarvelo
