// Capital letters, digits and a few signs for the demonstration artwork, drawn with a pen.
#pragma once

#include <string_view>

#include "demo/path.h"

namespace tarvelo::art {

// The pen's way through a text, open strokes, to be stroked in any width. The middle of the first
// letter's top left corner lies at (x, y); a letter is 4 `unit` wide and 6 high, and its right
// neighbour begins 6 further on. Characters without a shape leave a gap.
[[nodiscard]] Path Letters(std::string_view text, double x, double y, double unit = 1);
// From the left edge of the first letter to the right edge of the last one.
[[nodiscard]] double LettersWidth(std::string_view text, double unit = 1);
// The text with its middle at x = cx.
[[nodiscard]] Path CentredLetters(std::string_view text, double cx, double y, double unit = 1);

}  // namespace tarvelo::art
