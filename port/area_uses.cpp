#include "port/area_uses.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tarvelo {

AreaUses::AreaUses(const PatchedImage& image, std::vector<BroughtBlock> blocks)
    : image_(image), blocks_(std::move(blocks)) {}

Region AreaUses::RegionOf(std::size_t change) const {
  const Change& found = image_.Changes()[change].change;
  return {found.offset, std::ssize(found.oldBytes)};
}

// The first block that ends behind an offset.
std::size_t AreaUses::BlockBehind(Offset offset) const {
  const auto block = std::ranges::upper_bound(blocks_, offset, {},
                                              [](const BroughtBlock& each) { return each.region.End(); });
  return static_cast<std::size_t>(block - blocks_.begin());
}

std::span<const BroughtBlock> AreaUses::BlocksOf(const PatchedPiece& piece) const {
  const std::size_t first = BlockBehind(piece.region.offset);
  std::size_t end = first;
  while (end < blocks_.size() && piece.region.Holds(blocks_[end].region.offset)) ++end;
  return std::span(blocks_).subspan(first, end - first);
}

void AreaUses::Begin(const PatchedPiece& piece) {
  user_ = {.piece = &piece, .count = piece.changes.size()};
  block_ = {};
}

void AreaUses::BeginChange(const PatchedPiece& piece, std::size_t change) {
  user_ = {.piece = &piece, .first = change, .count = 1};
  block_ = {};
}

void AreaUses::BeginBlock(const PatchedPiece& piece, const Region& block) {
  const std::vector<std::size_t>& changes = piece.changes;
  const auto isInFront = [&](std::size_t i) { return RegionOf(i).offset < block.End(); };
  const auto end = std::ranges::partition_point(changes, isInFront);
  auto first = end;
  while (first != changes.begin() && RegionOf(*std::prev(first)).End() > block.offset) --first;
  user_ = {.piece = &piece,
           .first = static_cast<std::size_t>(first - changes.begin()),
           .count = static_cast<std::size_t>(end - first)};
  block_ = block;
}

void AreaUses::Add(Offset offset) {
  if (block_.Holds(offset)) return;
  user_.block = BlockBehind(offset);
  uses_.insert(user_);
}

std::vector<std::size_t> AreaUses::UsersOf(std::vector<std::size_t> refused) {
  std::vector<bool> isRefused(image_.Changes().size());
  for (const std::size_t i : refused) isRefused[i] = true;
  std::vector<std::size_t> users;
  const auto refuseUsers = [&](std::size_t block) {
    for (auto use = uses_.lower_bound({.block = block}); use != uses_.end() && use->block == block;
         use = uses_.erase(use))
      for (const std::size_t i : std::span(use->piece->changes).subspan(use->first, use->count)) {
        if (isRefused[i]) continue;
        isRefused[i] = true;
        refused.push_back(i);
        users.push_back(i);
      }
  };
  while (!refused.empty()) {
    const Region change = RegionOf(refused.back());
    refused.pop_back();
    for (std::size_t block = BlockBehind(change.offset);
         block < blocks_.size() && blocks_[block].region.offset < change.End(); ++block)
      refuseUsers(block);
  }
  return users;
}

}  // namespace tarvelo
