#include "port/patched_image.h"

#include <algorithm>

#include "code/instruction.h"
#include "core/scan/vector_scan.h"

namespace tarvelo {
namespace {

constexpr Offset erasedAround = 16;  // bytes that must be erased, too, around a change of erased ones
constexpr Offset erasedGap = 256;    // bytes between changes of one erased piece
constexpr Offset longestData = 4096;

Region OldRegion(const Change& change) { return {change.offset, std::ssize(change.oldBytes)}; }

bool IsErasedRun(const Fullflash& image, Offset from, Offset end) {
  return IsErased(image.Region(from, end - from));
}

Offset StartOf(const CodeUnits& units, Offset offset) {
  return units.instructions[static_cast<std::size_t>(units.InstructionAt(offset))].offset;
}

}  // namespace

bool IsInErasedArea(const Fullflash& image, const Region& region) {
  const Offset from = std::max<Offset>(0, region.offset - erasedAround);
  const Offset end = std::min<Offset>(std::ssize(image.ff()), region.End() + erasedAround);
  return IsErasedRun(image, region.offset, region.End()) &&
         (IsErasedRun(image, from, region.offset) || IsErasedRun(image, region.End(), end));
}

PatchedImage::PatchedImage(std::span<const PatchChange> changes, const Fullflash& old, const CodeUnits& units)
    : changes_(changes), old_(old), bytes_(old.ff().begin(), old.ff().end()) {
  std::vector<std::size_t> order;
  for (std::size_t i = 0; i < changes.size(); ++i) {
    const Change& change = changes[i].change;
    const Region region = OldRegion(change);
    if (!HasRegion(old, region) ||
        !std::ranges::equal(old.Region(region.offset, region.size), change.oldBytes))
      continue;
    std::ranges::copy(change.newBytes, bytes_.begin() + change.offset);
    order.push_back(i);
  }
  std::ranges::stable_sort(order, {}, [&](std::size_t i) { return changes[i].change.offset; });
  Cut(order, units);
}

void PatchedImage::Cut(std::span<const std::size_t> order, const CodeUnits& units) {
  using enum PatchedPiece::Kind;
  for (const std::size_t i : order) {
    const Region region = OldRegion(changes_[i].change);
    PatchedPiece* const last = pieces_.empty() ? nullptr : &pieces_.back();
    const Offset gap = last ? region.offset - last->region.End() : 0;
    const bool isErased = IsInErasedArea(old_, region);
    const bool isCode = !isErased && units.UnitAt(region.offset) >= 0;
    const auto kind = isErased ? Erased : isCode ? Code : Data;
    bool joins = false;
    if (last && last->kind == kind) {
      if (isErased)
        joins = gap <= erasedGap && (gap <= 0 || IsErasedRun(old_, last->region.End(), region.offset));
      if (isCode) joins = gap < 0;
      if (kind == Data) joins = gap <= 0 && last->region.size + region.size <= longestData;
    }
    if (!joins) pieces_.push_back({kind, {isCode ? StartOf(units, region.offset) : region.offset, 0}, {}});
    Region& piece = pieces_.back().region;
    if (isCode)
      Lengthen(pieces_.back(), region.End(), units);
    else
      piece.size = std::max(piece.End(), region.End()) - piece.offset;
    pieces_.back().changes.push_back(i);
  }
}

// Lengthens a piece of code to where it has all before `end` and old and new instructions are in step.
void PatchedImage::Lengthen(PatchedPiece& piece, Offset end, const CodeUnits& units) const {
  const Region unit = units.units[static_cast<std::size_t>(units.UnitAt(piece.region.offset))].code;
  Offset at = piece.region.End();
  const auto isInStep = [&] { return at >= unit.End() || StartOf(units, at) == at; };
  while (at < end || !isInStep()) at += Instruction::Decode(bytes_, at).Size();
  piece.region.size = at - piece.region.offset;
}

const PatchedPiece* PatchedImage::ErasedAt(Offset offset) const {
  auto after =
      std::ranges::upper_bound(pieces_, offset, {}, [](const PatchedPiece& p) { return p.region.offset; });
  if (after == pieces_.begin()) return nullptr;
  --after;
  return after->kind == PatchedPiece::Kind::Erased && after->region.Holds(offset) ? &*after : nullptr;
}

bool PatchedImage::IsChanged(const Region& region) const {
  const auto from = static_cast<std::size_t>(region.offset);
  const auto size = static_cast<std::size_t>(region.size);
  return !std::ranges::equal(Patched().subspan(from, size), old_.ff().subspan(from, size));
}

}  // namespace tarvelo
