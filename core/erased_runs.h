// The erased parts of an image.
#pragma once

#include <vector>

#include "core/region.h"
#include "text/bytes.h"

namespace tarvelo {

// The runs of at least 256 erased bytes, each as long as possible.
[[nodiscard]] std::vector<Region> ErasedRuns(Bytes image);

}  // namespace tarvelo
