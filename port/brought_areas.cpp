#include "port/brought_areas.h"

#include <algorithm>
#include <iterator>
#include <map>

#include "code/opcodes.h"
#include "patch/patch_lines.h"

namespace tarvelo {
namespace {

constexpr Offset words = 0x10000;

bool HasErased(const Fullflash& image, const Region& region) {
  return HasRegion(image, region) && IsInErasedArea(image, region);
}

// For each page, the DPPs that it is put into, a bit each: by MOV DPPn, #page or SCXT DPPn, #page anywhere,
// whether or not it is known to be code.
std::vector<std::uint8_t> DppsOfPages(const PatchedImage& image) {
  std::vector<std::uint8_t> dpps(words);
  const Bytes patched = image.Patched();
  for (Offset at = image.Old().FirstWord(); at + 4 <= std::ssize(patched); at += 2) {
    const std::uint32_t found = DWordAt(patched, at);
    const std::uint32_t dpp = found >> 8 & 0xFF;
    if (((found & 0xFF) == op::moveConstant || (found & 0xFF) == op::switchContext) && dpp <= 3)
      dpps[found >> 16] |= static_cast<std::uint8_t>(1 << dpp);
  }
  return dpps;
}

}  // namespace

std::string TextOf(const Region& area) {
  return PatchAddress(area.offset) + "-" + PatchAddress(area.End() - 1);
}

BroughtAreas::BroughtAreas(const PatchedImage& image, const Fullflash& now, std::span<const AreaMove> moves)
    : oldBase_(image.Old().CorrBase()), newBase_(now.CorrBase()) {
  std::map<Offset, AreaMove> moveOf;
  for (const AreaMove& move : moves) moveOf.emplace(move.from.offset, move);
  for (const PatchedPiece& piece : image.Pieces()) {
    if (piece.kind != PatchedPiece::Kind::Erased) continue;
    AreaMove area{piece.region, piece.region.offset + oldBase_ - newBase_};
    if (!HasErased(now, {area.to, area.from.size})) {
      const auto move = moveOf.find(area.from.offset);
      if (move == moveOf.end() || move->second.from != area.from) continue;
      if (!HasErased(now, {move->second.to, area.from.size})) continue;
      area = move->second;
    }
    areas_.push_back(area);
  }
  if (std::ranges::any_of(areas_, [this](const AreaMove& area) { return Moves(area); })) FindWords(image);
}

void BroughtAreas::FindWords(const PatchedImage& image) {
  isNumber_.resize(words);
  isOffset_.resize(words);
  const std::vector<std::uint8_t> dpps = DppsOfPages(image);
  for (const AreaMove& area : areas_)
    if (Moves(area)) {
      AddNumbers(area);
      AddOffsets(area, dpps);
    }
}

void BroughtAreas::AddNumbers(const AreaMove& area) {
  const Offset first = area.from.offset + oldBase_;
  const Offset end = area.from.End() + oldBase_;
  for (const Offset unit : {page, segment})
    for (Offset number = first / unit; number <= std::min(end / unit, words - 1); ++number)
      if (first / unit != (first + Shift(area)) / unit) isNumber_[static_cast<std::size_t>(number)] = true;
}

void BroughtAreas::AddOffsets(const AreaMove& area, const std::vector<std::uint8_t>& dpps) {
  const bool isOtherInPage = Shift(area) % page != 0;
  const bool isOtherInSegment = Shift(area) % segment != 0;
  const Offset end = area.from.End() + oldBase_;
  for (Offset address = area.from.offset + oldBase_; address <= end; ++address) {
    const auto number = static_cast<std::size_t>(address / page);
    const unsigned isNear = number < dpps.size() ? dpps[number] : 0;
    for (unsigned dpp = 0; dpp < 4; ++dpp)
      if (isOtherInPage || (isNear >> dpp & 1) != 0)
        isOffset_[static_cast<std::size_t>(dpp * page + address % page)] = true;
    if (isOtherInSegment) isOffset_[static_cast<std::size_t>(address % segment)] = true;
  }
}

Offset BroughtAreas::Shift(const AreaMove& area) const {
  return area.to + newBase_ - area.from.offset - oldBase_;
}

// The area with a byte, or the moved one that ends there; null: none.
const AreaMove* BroughtAreas::At(Offset old) const {
  const auto after =
      std::ranges::upper_bound(areas_, old, {}, [](const AreaMove& area) { return area.from.offset; });
  if (after == areas_.begin()) return nullptr;
  const AreaMove& area = *std::prev(after);
  return area.from.Holds(old) || (Moves(area) && old == area.from.End()) ? &area : nullptr;
}

std::optional<Offset> BroughtAreas::NewOf(Offset old) const {
  const AreaMove* const area = At(old);
  return area ? std::optional(old - area->from.offset + area->to) : std::nullopt;
}

const AreaMove* BroughtAreas::MovedAt(std::uint32_t address) const {
  const AreaMove* const area = At(Offset{address} - oldBase_);
  return area && Moves(*area) ? area : nullptr;
}

}  // namespace tarvelo
