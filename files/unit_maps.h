// The maps in which the firmware names the units of its flash stores (volume_search.h).
#pragma once

#include <string>
#include <vector>

#include "core/fullflash.h"
#include "core/progress.h"
#include "core/sieve_marks.h"
#include "files/volume.h"

namespace tarvelo {

struct MappedUnit {
  FileUnit unit;
  std::string name;  // of its volume
};

struct UnitMaps {
  std::vector<std::vector<MappedUnit>> maps;  // units with files only, in the order of the groups
  std::vector<Region> tables;                 // the bytes of these maps
};

// All maps, from the highest map pointer to the lowest; several pointers to one group table count once. The
// search looks at a limited number of groups, so that a hostile image takes no longer than an ordinary one.
[[nodiscard]] UnitMaps FindUnitMaps(const Fullflash& image, Progress& progress, const SieveMarks& marks = {});

// The sieve for the map pointers.
extern const SieveForm unitMapPointers;

}  // namespace tarvelo
