// What can be told of bytes that no structure claims.
#pragma once

#include <span>
#include <vector>

#include "core/claim.h"
#include "core/region.h"

namespace tarvelo {

// The runs of at least 256 erased bytes, each as long as it goes.
[[nodiscard]] std::vector<Region> ErasedRuns(Bytes image);

// The regions, with the unknown ones split into texts, code (where there may be any) and what stays unknown.
[[nodiscard]] std::vector<Claim> Guess(Bytes image, std::span<const Claim> regions, bool mayHoldCode);

}  // namespace tarvelo
