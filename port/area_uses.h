// Which changes of a patch call or point to what the patch brings into erased areas.
#pragma once

#include <compare>
#include <set>
#include <span>
#include <vector>

#include "port/brought_code.h"
#include "port/patched_image.h"

namespace tarvelo {

class AreaUses {
 public:
  // `image` must outlive it. `blocks`: what its erased pieces bring, by offset.
  AreaUses(const PatchedImage& image, std::vector<BroughtBlock> blocks);

  // The blocks of an erased piece.
  [[nodiscard]] std::span<const BroughtBlock> BlocksOf(const PatchedPiece& piece) const;

  // Says what is being carried from now on: a piece, one of its changes, or a block of it. `change` is an
  // index in the piece's changes.
  void Begin(const PatchedPiece& piece);
  void BeginChange(const PatchedPiece& piece, std::size_t change);
  void BeginBlock(const PatchedPiece& piece, const Region& block);
  // What follows is carried for nothing.
  void End() { user_.count = 0; }
  [[nodiscard]] const PatchedPiece* Piece() const { return user_.piece; }

  // Notes that what is being carried refers to an offset of the old dump.
  void Add(Offset offset);

  // The changes that need one of the refused ones, or need one that does, and so on. Forgets all uses of
  // these.
  [[nodiscard]] std::vector<std::size_t> UsersOf(std::vector<std::size_t> refused);

 private:
  struct Use {
    std::size_t block = 0;  // index in `blocks_`
    const PatchedPiece* piece = nullptr;
    std::size_t first = 0, count = 0;  // of the piece's changes

    [[nodiscard]] auto operator<=>(const Use&) const = default;
  };

  [[nodiscard]] Region RegionOf(std::size_t change) const;
  [[nodiscard]] std::size_t BlockBehind(Offset offset) const;

  const PatchedImage& image_;
  std::vector<BroughtBlock> blocks_;
  Use user_;      // what is being carried,
  Region block_;  // and the block that it is
  std::set<Use> uses_;
};

}  // namespace tarvelo
