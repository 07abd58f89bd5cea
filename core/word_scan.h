// The search for a word over a whole image, near the speed of memory.
#pragma once

#include <cstdint>

#include "text/bytes.h"

namespace tarvelo {

// The first of the offsets from, from + 2, from + 4, ... up to `last` where the little-endian word is
// `value`, or -1. Needs from >= 0 and last + 1 within the bytes (or last < from).
[[nodiscard]] Offset FindWord(Bytes bytes, Offset from, Offset last, std::uint16_t value);

}  // namespace tarvelo
