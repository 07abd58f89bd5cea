// The old dump with a patch in it, cut into the pieces that are carried over as one.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "core/fullflash.h"
#include "patch/patch_apply.h"
#include "versions/code_units.h"

namespace tarvelo {

struct PatchedPiece {
  enum class Kind : std::uint8_t {
    Code,    // whole instructions of one unit, old and new ones
    Data,    // changes without a gap
    Erased,  // what the patch brings into an erased area
  };

  Kind kind = Kind::Data;
  Region region;
  std::vector<std::size_t> changes;  // their indices, by offset
};

class PatchedImage {
 public:
  // `changes` and `old` must outlive it.
  PatchedImage(std::span<const PatchChange> changes, const Fullflash& old, const CodeUnits& units);

  [[nodiscard]] Bytes Patched() const { return bytes_; }
  [[nodiscard]] const Fullflash& Old() const { return old_; }
  [[nodiscard]] std::span<const PatchChange> Changes() const { return changes_; }
  // By offset. Changes whose old bytes are not those of the dump belong to none.
  [[nodiscard]] std::span<const PatchedPiece> Pieces() const { return pieces_; }
  // The erased piece with the byte at `offset`; null: none.
  [[nodiscard]] const PatchedPiece* ErasedAt(Offset offset) const;
  // Whether the patch changes one of the bytes.
  [[nodiscard]] bool IsChanged(const Region& region) const;

 private:
  void Cut(std::span<const std::size_t> order, const CodeUnits& units);
  void Lengthen(PatchedPiece& piece, Offset end, const CodeUnits& units) const;

  std::span<const PatchChange> changes_;
  const Fullflash& old_;
  std::vector<std::uint8_t> bytes_;
  std::vector<PatchedPiece> pieces_;
};

// Whether a region of an image and what surrounds it, on one side at least, is erased.
[[nodiscard]] bool IsInErasedArea(const Fullflash& image, const Region& region);

// Whether all of a region is in an image.
[[nodiscard]] inline bool HasRegion(const Fullflash& image, const Region& region) {
  return region.offset >= 0 && region.End() <= std::ssize(image.ff());
}

}  // namespace tarvelo
