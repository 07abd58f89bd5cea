// Guesses what bytes are that no structure claims.
#pragma once

#include <span>
#include <vector>

#include "core/claim.h"
#include "core/fullflash.h"

namespace tarvelo {

// The regions, with the unknown ones split into filling, texts, code (not in large images) and unknown rest.
[[nodiscard]] std::vector<Claim> Guess(const Fullflash& image, std::span<const Claim> regions);

}  // namespace tarvelo
