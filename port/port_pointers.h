// Carries the pointers in new data over to another firmware version.
#pragma once

#include <vector>

#include "port/port_operands.h"

namespace tarvelo {

struct PointerPlace {
  Region region;     // of the old dump
  Offset there = 0;  // where it is in the new one
};

// Replaces the pointers that a patch puts into a region of data, in `bytes`, which are those of the region.
// A pointer is offset and segment of a function's entry, offset and page of what code or other pointers name
// where one was before, or either into code that the patch brings along. Returns those that cannot be
// carried, in the old dump.
[[nodiscard]] std::vector<Region> CarryPointers(std::vector<std::uint8_t>& bytes, const PointerPlace& place,
                                                Bytes patched, const Fullflash& old, const Fullflash& now,
                                                const CodePairing& pairing, const CarryMaps& maps);

}  // namespace tarvelo
