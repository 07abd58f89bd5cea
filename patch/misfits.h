// The lines of a patch that do not fit an image.
#pragma once

#include <limits>
#include <vector>

#include "patch/patch_apply.h"

namespace tarvelo {

struct Misfit {
  std::size_t line = 0;    // line number in the text, from 1
  bool isInvalid = false;  // it is not a valid patch line
  std::size_t index = 0;   // in ReadPatch::invalid, or in its changes and their checks
};

[[nodiscard]] std::size_t CountMisfits(const ReadPatch& patch, const PatchCheck& check);

// The first `most` misfits, in the order of their lines.
[[nodiscard]] std::vector<Misfit> MisfitsOf(const ReadPatch& patch, const PatchCheck& check,
                                            std::size_t most = std::numeric_limits<std::size_t>::max());

}  // namespace tarvelo
