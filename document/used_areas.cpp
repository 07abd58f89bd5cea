#include "document/used_areas.h"

#include <stdexcept>

#include "document/dump_map.h"
#include "document/explorers.h"

namespace tarvelo {

std::vector<Region> UsedAreas(const Dump& dump, Progress& progress) try {
  constexpr Offset blockSize = 0x10000;
  std::vector<Region> used;
  const auto take = [&](const Claim& claim) {
    const bool takesBlock = claim.kind->name == Text::Eeprom;
    const Offset from = takesBlock ? claim.offset / blockSize * blockSize : claim.offset;
    const Offset end = takesBlock ? (claim.End() + blockSize - 1) / blockSize * blockSize : claim.End();
    used.push_back({from, end - from});
  };
  ClaimIdentified(dump, take);
  for (const Explorer* explorer : Explorers())
    if (explorer->claim) explorer->claim(dump, explorer->search(dump, progress), take);
  return used;
} catch (const std::length_error&) {
  return {{0, std::ssize(dump.image.ff())}};
}

}  // namespace tarvelo
