// The map of a dump: what each byte of the image is, as far as the explorers know.
//
// Every structure that was found claims its bytes; where claims overlap, the surest wins, of equally sure
// ones the kind that stands first in MapKind, then the lower number, then the lower offset. So each byte
// has one label, "unknown" included, and the regions' sizes add up to the size of the image.
//
//   certain  a structure states it: the firmware header, the T9 area, empty 64 KiB blocks, headers and live
//            data of EEPROM blocks, the ringtone table, sound files, sound picture tables and their pictures
//   likely   the data of deleted EEPROM blocks, which may have been written over; erased runs, which may
//            belong to something; the pointers to sound files; melodies, which have no header
//   guessed  picture tables that are not sound, headers outside the tables, and what they point to; texts;
//            code; filling
//
// A picture table is sound with 8 entries, nine tenths of which point into the image.
//
// Text is at least 512 bytes of printable ASCII, tabs and line ends, with at most three zeros in a row; half
// of it letters and blanks. Code, in page-mode images alone, is what is not otherwise known of a 4 KiB page
// that has at least 8 far returns of the C166 (DB 00 at even offsets); by chance 30
// pages together have one.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "core/fullflash.h"
#include "core/identification.h"
#include "core/progress.h"
#include "eeprom/block_store.h"
#include "media/picture.h"
#include "media/ringtone.h"

namespace tarvelo {

// Of equally sure claims the kind that stands first wins.
enum class MapKind : std::uint8_t {
  FirmwareHeader,
  T9,
  T9Free,      // the erased end of the T9 area
  EmptyBlock,  // whole 64 KiB blocks
  EepromHeader,
  EepromDeletedHeader,
  EepromData,
  RingtoneTable,
  RingtoneFile,
  PictureTable,
  PictureHeader,  // one outside the tables
  Picture,
  EepromDeletedData,
  Erased,  // runs of at least 256 bytes
  RingtonePointer,
  Melody,  // with the record that ends it
  Text,
  Code,
  Filling,  // up to 3 bytes 00 or FF in front of an even offset
  Unknown,
};
inline constexpr std::size_t mapKinds = static_cast<std::size_t>(MapKind::Unknown) + 1;

enum class Sureness : std::uint8_t { Certain, Likely, Guessed, Unknown };

struct MapRegion {
  Offset offset = 0;
  Offset size = 0;
  MapKind kind = MapKind::Unknown;
  Sureness sure = Sureness::Unknown;
  int number = -1;     // of the block, the picture, the picture table (from 1 up), the ringtone
  Offset source = -1;  // of a block, a picture or a ringtone: the offset of the header or table entry

  [[nodiscard]] Offset End() const { return offset + size; }
  [[nodiscard]] bool operator==(const MapRegion&) const = default;
};

// The regions in order, without gaps. Neighbours differ in more than their place.
struct DumpMap {
  std::vector<MapRegion> regions;

  // The regions that share a byte with `size` bytes from an offset on; a binary search.
  [[nodiscard]] std::span<const MapRegion> Within(Offset offset, Offset size) const;
};

// The map of an image from what was found in it. Never throws on what the image holds; of a senseless
// image that has more than 65536 pictures, the others are passed over. Takes n log n time.
[[nodiscard]] DumpMap MapDump(const Fullflash& image, const Identification& info, const BlockStore& blocks,
                              const PictureList& pictures, const RingtoneList& ringtones);

// Runs the explorers too. Throws std::length_error where GetEE does.
[[nodiscard]] DumpMap MapDump(const Fullflash& image, const Identification& info, Progress& progress);

}  // namespace tarvelo
