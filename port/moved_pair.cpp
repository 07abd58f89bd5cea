#include "port/moved_pair.h"

#include <algorithm>

#include "core/byte_text.h"
#include "port/patched_image.h"

namespace tarvelo {
namespace {

constexpr Offset textLength = 4;  // printable bytes that make a text

}  // namespace

bool IsUsedPage(std::uint32_t page, const CodePairing& pairing) {
  const auto last = pairing.Votes().Before({Movable::Kind::Address, page << 14 | 0x3FFF});
  return last && last->first >> 14 == page;
}

bool IsTextAt(std::uint32_t address, const Fullflash& image) {
  const Offset at = Offset{address} - image.CorrBase();
  if (at < 1 || at + textLength > std::ssize(image.ff())) return false;
  return !IsPrintable(image.ff()[static_cast<std::size_t>(at - 1)]) &&
         std::ranges::all_of(image.Region(at, textLength), IsPrintable);
}

bool IsKnownData(std::uint32_t address, const Fullflash& old, const CodePairing& pairing) {
  return pairing.Votes().Best({Movable::Kind::Address, address}, -1).tally.agreeing > 0 ||
         IsTextAt(address, old);
}

MovedPair MovePair(std::uint32_t low, std::uint32_t high, bool isInOrder, const Fullflash& old,
                   const CodePairing& pairing, const CarryMaps& maps) {
  const auto isInside = [&](std::uint32_t address) {
    return HasRegion(old, {Offset{address} - old.CorrBase(), 1});
  };
  const auto isBrought = [&](std::uint32_t address) {
    return maps.areas.NewOf(Offset{address} - old.CorrBase()).has_value();
  };
  const std::uint32_t far = high << 16 | low;
  const std::uint32_t paged = high << 14 | low;
  const bool mayBePage = low < 0x4000 && high < 0x400;
  const bool isPage = mayBePage && isInside(paged);
  const bool isFar = high < 0x100 && isInside(far);
  const bool farMoves = high < 0x100 && maps.areas.MovedAt(far) != nullptr;
  const bool pageMoves = mayBePage && maps.areas.MovedAt(paged) != nullptr;
  const bool isEntry = isFar && (pairing.OldUnitFrom(far) >= 0 ||
                                 pairing.Votes().Best({Movable::Kind::Code, far}, -1).tally.agreeing > 0);
  const bool isKnown = isPage && IsKnownData(paged, old, pairing);
  const bool isUsed = isPage && IsUsedPage(high, pairing);
  MovedPair pair;
  if ((pageMoves && (farMoves || isEntry)) || (isEntry && (isKnown || isUsed))) return pair;
  if (farMoves || isEntry) {
    if (const auto now = maps.code(far)) pair.words.emplace(*now & 0xFFFF, *now >> 16);
  } else if (pageMoves || isKnown || (mayBePage && isBrought(paged))) {
    if (const auto now = maps.data(paged)) pair.words.emplace(*now & 0x3FFF, *now >> 14);
  } else if (high < 0x100 && isBrought(far)) {
    pair.words.emplace(low, high);
  } else {
    pair.isPlain = (!isPage && !isFar) || (!isInOrder && !isUsed);
  }
  return pair;
}

}  // namespace tarvelo
