// The demonstration's pictures before they are encoded: the files of artwork/ and a few charts.
//
// A file is a strip of pictures side by side, in the colours of the depth in which they are stored
// (picture_encoder.h).
#pragma once

#include <string_view>
#include <vector>

#include "pictures/bitmap.h"

namespace tarvelo {

// Cuts a PNG strip into pictures, each `width` pixels wide; the last one may be narrower. Transparent pixels
// become background. Throws std::invalid_argument if `png` cannot be decoded.
[[nodiscard]] std::vector<Bitmap> CutStrip(std::string_view png, int width);

[[nodiscard]] Bitmap ByteColourChart();    // all colours of 8 bits
[[nodiscard]] Bitmap TwelveColourChart();  // all 4096 colours of 12 bits
[[nodiscard]] Bitmap DottedLine(int width, int height);
[[nodiscard]] Bitmap TableMark();  // 4 x 4, the first picture of a table

}  // namespace tarvelo
