// Steps through the occurrences of a pattern from any place, forwards and backwards, overlapping ones
// too. Other than with Pattern::FindPat, each may end with the image's last byte, however it is sought.
//
// A pattern without bytes, or an invalid one, occurs nowhere.
#pragma once

#include "patch/pattern.h"

namespace tarvelo {

// The offset of the first occurrence that begins at or after `start`, or -1.
[[nodiscard]] Offset FirstFrom(const Fullflash& image, const Pattern& pattern, Offset start);

// The offset of the last occurrence that begins before `end`, or -1.
[[nodiscard]] Offset LastBefore(const Fullflash& image, const Pattern& pattern, Offset end);

}  // namespace tarvelo
