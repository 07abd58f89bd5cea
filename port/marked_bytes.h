// Marks on the bytes of a region.
#pragma once

#include <algorithm>
#include <vector>

#include "core/region.h"

namespace tarvelo {

class MarkedBytes {
 public:
  explicit MarkedBytes(const Region& region)
      : region_(region), isMarked_(static_cast<std::size_t>(region.size)) {}

  // Marks what a region has in common with this one.
  void Mark(const Region& region) {
    const auto [first, end] = Common(region);
    std::fill(isMarked_.begin() + first, isMarked_.begin() + end, true);
  }
  // Whether a byte of a region has a mark.
  [[nodiscard]] bool Touch(const Region& region) const {
    const auto [first, end] = Common(region);
    return std::find(isMarked_.begin() + first, isMarked_.begin() + end, true) != isMarked_.begin() + end;
  }

 private:
  [[nodiscard]] std::pair<Offset, Offset> Common(const Region& region) const {
    const Offset first = std::clamp<Offset>(region.offset - region_.offset, 0, region_.size);
    return {first, std::clamp(region.End() - region_.offset, first, region_.size)};
  }

  Region region_;
  std::vector<bool> isMarked_;
};

}  // namespace tarvelo
