#include "port/brought_areas.h"

#include <algorithm>

#include "code/opcodes.h"
#include "patch/patch_lines.h"

namespace tarvelo {
namespace {

bool HasErased(const Fullflash& image, const Region& region) {
  return HasRegion(image, region) && IsInErasedArea(image, region);
}

}  // namespace

std::string TextOf(const Region& area) {
  return PatchAddress(area.offset) + "-" + PatchAddress(area.End() - 1);
}

BroughtAreas::BroughtAreas(const PatchedImage& image, const Fullflash& now, std::span<const AreaMove> moves)
    : oldBase_(image.Old().CorrBase()), newBase_(now.CorrBase()) {
  for (const PatchedPiece& piece : image.Pieces()) {
    if (piece.kind != PatchedPiece::Kind::Erased) continue;
    AreaMove area{piece.region, piece.region.offset + oldBase_ - newBase_};
    if (!HasErased(now, {area.to, area.from.size})) {
      const auto move = std::ranges::find(moves, area.from, &AreaMove::from);
      if (move == moves.end() || !HasErased(now, {move->to, area.from.size})) continue;
      area = *move;
    }
    areas_.push_back(area);
  }
  FindNearPages(image);
}

// MOV DPPn, #page and SCXT DPPn, #page anywhere, whether or not it is known to be code.
void BroughtAreas::FindNearPages(const PatchedImage& image) {
  const Bytes patched = image.Patched();
  std::vector<bool> isMoved(0x10000);  // by page
  bool any = false;
  for (const AreaMove& area : areas_) {
    const Offset end = (area.from.End() + oldBase_) / page;
    for (Offset number = (area.from.offset + oldBase_) / page; Moves(area) && number <= end; ++number)
      isMoved[static_cast<std::size_t>(number)] = any = true;
  }
  for (Offset at = image.Old().FirstWord(); any && at + 4 <= std::ssize(patched); at += 2) {
    const std::uint32_t words = DWordAt(patched, at);
    const NearPage found{words >> 8 & 0xFF, words >> 16};
    if (((words & 0xFF) != op::moveConstant && (words & 0xFF) != op::switchContext) || found.dpp > 3)
      continue;
    if (isMoved[found.page] && std::ranges::find(nearPages_, found) == nearPages_.end())
      nearPages_.push_back(found);
  }
}

bool BroughtAreas::MayBeNear(std::uint32_t word) const {
  return std::ranges::any_of(nearPages_, [&](const NearPage& each) {
    return word >> 14 == each.dpp && MovedAt(each.page << 14 | (word & 0x3FFF)) != nullptr;
  });
}

Offset BroughtAreas::Shift(const AreaMove& area) const {
  return area.to + newBase_ - area.from.offset - oldBase_;
}

std::optional<Offset> BroughtAreas::NewOf(Offset old) const {
  for (const AreaMove& area : areas_)
    if (area.from.Holds(old) || (Moves(area) && old == area.from.End()))
      return old - area.from.offset + area.to;
  return {};
}

const AreaMove* BroughtAreas::MovedAt(std::uint32_t address) const {
  const Offset offset = Offset{address} - oldBase_;
  for (const AreaMove& area : areas_)
    if (Moves(area) && (area.from.Holds(offset) || offset == area.from.End())) return &area;
  return nullptr;
}

bool BroughtAreas::MayBeNumber(std::uint32_t word) const {
  return std::ranges::any_of(areas_, [&](const AreaMove& area) {
    const Offset first = area.from.offset + oldBase_;
    const Offset end = area.from.End() + oldBase_;
    const auto isOf = [&](Offset unit) {
      return first / unit != (first + Shift(area)) / unit && word >= first / unit && word <= end / unit;
    };
    return isOf(page) || isOf(segment);
  });
}

bool BroughtAreas::MayBeOffset(std::uint32_t word) const {
  return MayBeNear(word) || std::ranges::any_of(areas_, [&](const AreaMove& area) {
           const Offset first = area.from.offset + oldBase_;
           const auto isIn = [&](Offset unit) {
             return Shift(area) % unit != 0 && (word - first % unit + unit) % unit <= area.from.size;
           };
           return isIn(page) || isIn(segment);
         });
}

}  // namespace tarvelo
