// What of a dump is in use although it may be erased.
#pragma once

#include <vector>

#include "core/dump.h"
#include "core/progress.h"
#include "core/region.h"

namespace tarvelo {

// What the explorers and the identification claim, free space of the file system included, and whole 64 KiB
// blocks for the EEPROM. All of the image if an explorer finds more than it can hold. Searches the dump.
[[nodiscard]] std::vector<Region> UsedAreas(const Dump& dump, Progress& progress);

}  // namespace tarvelo
