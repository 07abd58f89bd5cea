// Guesses what bytes are that no structure claims.
#pragma once

#include <span>
#include <vector>

#include "core/claim.h"
#include "text/bytes.h"

namespace tarvelo {

// The regions, with the unknown ones split into filling, texts, code (if there may be any) and unknown rest.
[[nodiscard]] std::vector<Claim> Guess(Bytes image, std::span<const Claim> regions, bool mayHoldCode);

}  // namespace tarvelo
