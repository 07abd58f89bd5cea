// Aligns the instructions of a unit with those of another: which is which.
#pragma once

#include <functional>
#include <span>
#include <vector>

#include "versions/code_units.h"

namespace tarvelo {

// Whether two instructions with the same token can be the same one.
using CanPair = std::function<bool(const UnitInstruction& old, const UnitInstruction& now)>;

// For each old instruction the index of the new one, or -1. Instructions pair in order, only with equal
// tokens; long runs are preferred. Units that are too long for a full comparison align at both ends only.
[[nodiscard]] std::vector<int> Align(std::span<const UnitInstruction> old,
                                     std::span<const UnitInstruction> now, const CanPair& canPair);

}  // namespace tarvelo
