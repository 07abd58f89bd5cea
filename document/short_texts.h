// Texts that are too short for the dump map to guess, but that nobody wants to read as instructions.
#pragma once

#include <vector>

#include "core/region.h"
#include "text/bytes.h"

namespace tarvelo {

// The runs of at least 10 letters, digits, blanks and signs of plain English in a region, mostly letters,
// each with the zero byte that ends it, in order. C166 code has such a run about once in 16 MiB.
[[nodiscard]] std::vector<Region> ShortTexts(Bytes image, const Region& within);

}  // namespace tarvelo
