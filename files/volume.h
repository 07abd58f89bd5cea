// The flash file system of phones with a file browser: its volumes and their units.
//
// A volume ("FFS", "FFS_B") consists of units. A unit, or a group of adjacent units that act as one:
//   0x00  128 bytes, unknown
//   0x80  FE FE
//   0x82  name of the volume, 6 bytes of ASCII, padded with zeros
//   0x88  3 words, unknown
//   0x8E  FE FE
//   0x90  the records' bytes, growing upwards
//   end   the record directory, slots (core/record_slot.h) growing downwards; slot 0 is the last
// Record numbers are common to all units of a volume.
#pragma once

#include <string>
#include <vector>

#include "core/region.h"

namespace tarvelo {

inline constexpr Offset unitHeaderAt = 0x80;
inline constexpr Offset unitHeaderSize = 0x10;
inline constexpr Offset unitDataAt = 0x90;

struct FileUnit {
  Offset begin = 0;
  Offset end = 0;  // may be behind the image's end
};

struct FileVolume {
  std::string name;
  std::vector<FileUnit> units;  // in the order in which their records count
};

// All volumes of an image, by name, and the firmware's tables that name their units.
struct VolumeList {
  std::vector<FileVolume> volumes;
  std::vector<Region> maps;
};

}  // namespace tarvelo
