// Pictures as files.
#pragma once

#include <cstdint>
#include <vector>

#include "pictures/bitmap.h"

namespace tarvelo {

// A Windows bitmap of 24 bits per pixel. Background becomes pure green (0, 255, 0), the key colour that other
// programs treat as transparent.
[[nodiscard]] std::vector<std::uint8_t> BmpFile(const Bitmap& bitmap);

// A PNG with a transparent background. Empty for a picture without pixels, which the format cannot hold.
[[nodiscard]] std::vector<std::uint8_t> PngFile(const Bitmap& bitmap);

}  // namespace tarvelo
