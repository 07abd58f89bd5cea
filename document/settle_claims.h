// Turns overlapping claims into regions that do not overlap.
#pragma once

#include <vector>

#include "core/claim.h"

namespace tarvelo {

class Claims {
 public:
  explicit Claims(Offset imageSize) : imageSize_(imageSize) {}

  // Adds a claim, clipped to the image. A claim outside the image is dropped.
  void Add(const Claim& claim);

  // The regions of the whole image, by the precedence in dump_map.h. Unclaimed bytes become `unclaimed`.
  [[nodiscard]] std::vector<Claim> Settle(const ClaimKind& unclaimed) &&;

 private:
  Offset imageSize_;
  std::vector<Claim> claims_;
};

// Appends a region, or extends the last one if they differ only in offset and size.
void Append(std::vector<Claim>& regions, const Claim& region);

}  // namespace tarvelo
