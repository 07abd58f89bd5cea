#include "patch/moved_pair.h"

#include "patch/patched_image.h"

namespace tarvelo {

MovedPair MovePair(std::uint32_t low, std::uint32_t high, const Fullflash& old, const CodePairing& pairing,
                   const CarryMaps& maps) {
  const auto isInside = [&](std::uint32_t address) {
    return HasRegion(old, {Offset{address} - old.CorrBase(), 1});
  };
  const std::uint32_t far = high << 16 | low;
  const std::uint32_t paged = high << 14 | low;
  const bool isPage = low < 0x4000 && high < 0x400 && isInside(paged);
  const bool isFar = high < 0x100 && isInside(far);
  const bool farMoves = high < 0x100 && maps.areas.MovedAt(far) != nullptr;
  const bool pageMoves = low < 0x4000 && high < 0x400 && maps.areas.MovedAt(paged) != nullptr;
  const bool isEntry = isFar && pairing.OldUnitFrom(far) >= 0;
  MovedPair pair;
  if (pageMoves && (farMoves || isEntry)) return pair;
  if (farMoves || isEntry || (isFar && !isPage)) {
    if (const auto now = maps.code(far)) pair.words.emplace(*now & 0xFFFF, *now >> 16);
  } else if (isPage || pageMoves) {
    if (const auto now = maps.data(paged)) pair.words.emplace(*now & 0x3FFF, *now >> 14);
  } else {
    pair.isPlain = true;
  }
  return pair;
}

}  // namespace tarvelo
