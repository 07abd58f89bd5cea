// Guesses what bytes are that no structure claims.
#pragma once

#include <span>
#include <vector>

#include "core/claim.h"
#include "core/region.h"

namespace tarvelo {

// The runs of at least 256 erased bytes, each as long as possible.
[[nodiscard]] std::vector<Region> ErasedRuns(Bytes image);

// The regions, with the unknown ones split into filling, texts, code (if there may be any) and unknown rest.
[[nodiscard]] std::vector<Claim> Guess(Bytes image, std::span<const Claim> regions, bool mayHoldCode);

}  // namespace tarvelo
