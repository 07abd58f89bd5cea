// What can be told of bytes that no structure claims.
#pragma once

#include <vector>

#include "map/dump_map.h"

namespace tarvelo {

struct Stretch {
  Offset begin = 0;
  Offset end = 0;
};

// The runs of at least 256 erased bytes, each as long as it goes.
[[nodiscard]] std::vector<Stretch> ErasedRuns(Bytes image);

// Regions with those unknown parted into texts, code (where there may be any) and what stays unknown.
[[nodiscard]] std::vector<MapRegion> Guess(Bytes image, std::span<const MapRegion> regions, bool mayHoldCode);

}  // namespace tarvelo
