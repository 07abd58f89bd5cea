// The code that a patch brings into erased areas: what the rest of the patch calls or points to there, and
// what the flow reaches from it. The rest is data.
#pragma once

#include <vector>

#include "patch/patched_image.h"

namespace tarvelo {

class BroughtCode {
 public:
  BroughtCode(const PatchedImage& image, const CodeUnits& units);

  // The runs of instructions in an erased piece, by offset.
  [[nodiscard]] std::vector<Region> In(const PatchedPiece& piece) const;
  // Whether nothing leads into an erased piece, so that its code may as well be data.
  [[nodiscard]] bool IsAssumed(const PatchedPiece& piece) const;

 private:
  void FollowReferences(const Region& region);
  void Open(Offset place);
  void OpenUnreached(const PatchedPiece& piece);
  [[nodiscard]] bool LeadsOn(Offset place, const PatchedPiece& piece) const;
  void Walk();
  void WalkFrom(Offset place);
  [[nodiscard]] bool IsStart(Offset place) const;

  const PatchedImage& image_;
  const CodeUnits& units_;
  std::vector<Offset> open_;
  std::vector<Offset> assumed_;  // where such pieces begin
  std::vector<bool> isStart_;    // for each word
};

}  // namespace tarvelo
