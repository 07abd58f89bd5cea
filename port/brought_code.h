// The code that a patch brings into erased areas: what the rest of the patch calls or points to there, and
// what the flow reaches from it. A part with erased bytes around it that nothing leads into is assumed to be
// code if it can be. The rest is data.
#pragma once

#include <span>
#include <vector>

#include "port/patched_image.h"

namespace tarvelo {

// What is carried as one: code up to an instruction that nothing follows, or the data up to the next code.
struct BroughtBlock {
  Region region;
  bool isCode = false;

  [[nodiscard]] bool operator==(const BroughtBlock&) const = default;
};

class BroughtCode {
 public:
  BroughtCode(const PatchedImage& image, const CodeUnits& units);

  // What the erased pieces bring, by offset.
  [[nodiscard]] std::vector<BroughtBlock> Blocks() const;
  // The parts of an erased piece that nothing leads into, so that their code may as well be data.
  [[nodiscard]] std::span<const Region> AssumedIn(const PatchedPiece& piece) const;

 private:
  // The runs of instructions in a part, by offset; none reaches over an instruction that nothing follows.
  [[nodiscard]] std::vector<Region> RunsIn(const Region& part) const;
  void FollowReferences(const Region& region);
  void Open(Offset place);
  void AddParts(const PatchedPiece& piece);
  [[nodiscard]] const Region* PartAt(Offset offset) const;
  void Assume(const Region& part);
  void OpenUnreached(const Region& part);
  // Where the instructions that follow each other from `place` on end.
  [[nodiscard]] Offset EndOfRun(Offset place) const;
  [[nodiscard]] bool LeadsOn(Offset place, const Region& part) const;
  void Walk();
  void WalkFrom(Offset place);
  [[nodiscard]] bool IsStart(Offset place) const;

  const PatchedImage& image_;
  const CodeUnits& units_;
  std::vector<Region> parts_;  // of erased pieces: what is brought without a gap, by offset
  std::vector<Offset> open_;
  std::vector<Region> assumed_;   // by offset
  std::vector<bool> isStart_;     // for each word: of an instruction of the code
  std::vector<bool> endsInData_;  // for each word: what begins there is no code
};

}  // namespace tarvelo
