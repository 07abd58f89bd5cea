// The lines of a patch that do not fit an image.
#pragma once

#include <limits>
#include <vector>

#include "patch/patch_apply.h"

namespace tarvelo {

struct Misfit {
  std::size_t line = 0;    // its number in the text, from 1
  bool isInvalid = false;  // it is no line of a patch
  std::size_t index = 0;   // of ReadPatch::invalid, or of its changes and their checks
};

// How many there are.
[[nodiscard]] std::size_t CountMisfits(const ReadPatch& patch, const PatchCheck& check);

// The misfits in the order of their lines, but not more than the first `most`.
[[nodiscard]] std::vector<Misfit> MisfitsOf(const ReadPatch& patch, const PatchCheck& check,
                                            std::size_t most = std::numeric_limits<std::size_t>::max());

}  // namespace tarvelo
