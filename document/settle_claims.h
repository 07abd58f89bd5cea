// From claims that overlap to regions that do not.
#pragma once

#include <vector>

#include "core/claim.h"

namespace tarvelo {

class Claims {
 public:
  explicit Claims(Offset imageSize) : imageSize_(imageSize) {}

  // Clips the claim to the image; nothing may remain of it.
  void Add(const Claim& claim);

  // The regions of the whole image, with the precedence that dump_map.h states. What nobody claims is
  // `unclaimed`.
  [[nodiscard]] std::vector<Claim> Settle(const ClaimKind& unclaimed) &&;

 private:
  Offset imageSize_;
  std::vector<Claim> claims_;
};

// Adds a region behind the last one, or to it where they differ in nothing but their place.
void Append(std::vector<Claim>& regions, const Claim& region);

}  // namespace tarvelo
