// Finds the volumes of the flash file system.
#pragma once

#include "core/fullflash.h"
#include "core/progress.h"
#include "core/sieve_marks.h"
#include "files/volume.h"

namespace tarvelo {

// Finds the units by the firmware's maps, and by their headers those of volumes that no map names.
//
// A map consists of three tables with little-endian fields:
//   map pointer, at an even offset   0  number of groups, a double word, 1 .. 255
//                                    4  a word, 1 .. 4
//                                    6  page pointer to the group table
//   group table, 6 bytes a group     0  number of units, a word
//                                    2  page pointer to the group's first item of the unit list
//   unit list, 6 bytes an item       0  linear address of the unit, at a multiple of 0x1000 in the image
//                                    4  size code: 0x80 for 128 KiB, less for 64 KiB
// All groups must lead to a unit whose name is printable; some, but not all, may never have been formatted
// (0xFF). Groups whose name has no "FFS" are other stores. Of overlapping units, the first one found counts;
// the map pointers are taken from the highest to the lowest. A damaged unit count does not reach past the
// next unit.
//
// Unit headers stand at 0x80 behind multiples of 0x1000; both marks must be there. The units of a volume are
// 64, 128 or 256 KiB long: as long as the units' distances allow and most record directories confirm. No unit
// reaches past the next header, whichever store that belongs to.
//
// Never throws because of the image's content. Passes over the image once.
[[nodiscard]] VolumeList FindVolumes(const Fullflash& image, Progress& progress,
                                     const SieveMarks& marks = {});

}  // namespace tarvelo
