// Adds changes to a patch document so that no two of its lines contradict each other.
#pragma once

#include <map>
#include <span>
#include <string>
#include <vector>

#include "core/image_edits.h"

namespace tarvelo {

struct MergedPatch {
  std::map<std::size_t, std::string> replaced;  // the new texts of lines that changed these bytes differently
  std::vector<Change> added;                    // the changes that no line covers, in order
  std::size_t taken = 0;                        // changes that replace or add something
};

// Merges changes into a document with these lines (without line ends). The changes are in order and do not
// overlap; all their bytes count, unchanged ones too. A line that covers bytes of a change keeps its comment
// and gets the change's old and new bytes.
[[nodiscard]] MergedPatch MergeIntoPatch(std::span<const std::string> lines, std::span<const Change> changes);

}  // namespace tarvelo
