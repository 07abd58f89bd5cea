// The code that a patch brings into erased areas: what the rest of the patch calls or points to there, and
// what the flow reaches from it. A part with erased bytes around it that nothing leads into is assumed to be
// code if it can be. The rest is data.
#pragma once

#include <vector>

#include "patch/patched_image.h"

namespace tarvelo {

class BroughtCode {
 public:
  BroughtCode(const PatchedImage& image, const CodeUnits& units);

  // The runs of instructions in a region of an erased piece, by offset.
  [[nodiscard]] std::vector<Region> In(const Region& region) const;
  // The parts of an erased piece that nothing leads into, so that their code may as well be data.
  [[nodiscard]] std::vector<Region> AssumedIn(const PatchedPiece& piece) const;

 private:
  void FollowReferences(const Region& region);
  void Open(Offset place);
  void AddParts(const PatchedPiece& piece);
  [[nodiscard]] const Region* PartAt(Offset offset) const;
  void Assume(const Region& part);
  void OpenUnreached(const Region& part);
  [[nodiscard]] bool LeadsOn(Offset place, const Region& part) const;
  void Walk();
  void WalkFrom(Offset place);
  [[nodiscard]] bool IsStart(Offset place) const;

  const PatchedImage& image_;
  const CodeUnits& units_;
  std::vector<Region> parts_;  // of erased pieces: what is brought without a gap, by offset
  std::vector<Offset> open_;
  std::vector<Region> assumed_;
  std::vector<bool> isStart_;  // for each word
};

}  // namespace tarvelo
