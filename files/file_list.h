// The files of an image: volumes, records, and the entries made of them.
//
// Records are numbered within their volume. Entry n has its header in record n + 6000 and its bytes in record
// n + 6001; the root folder is entry 6. The header, with little-endian fields:
//   0   entry number
//   2   entry number of the folder it is in
//   4   time, in the form of DOS
//   8   data number d: the bytes begin with record d + 6000
//   10  attributes of DOS
//   12  unknown
//   14  entry number of the next piece; 0xFFFF: none
//   16  the name up to a zero; in longer headers, after 4 bytes of 0xFF
// Each further piece of a file is a header without a name, and the record behind it. The bytes of a folder
// are items of 4 bytes, whose first word is the entry number of a member; 0 and 0xFFFF are empty items.
//
// A changed record is written anew, and the state of the old one becomes "deleted". Its bytes stay until the
// unit is erased.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/region.h"
#include "files/volume.h"

namespace tarvelo {

inline constexpr int firstFileRecord = 6000;
inline constexpr int rootEntry = 6;
inline constexpr std::uint16_t noPiece = 0xFFFF;
inline constexpr std::uint32_t noIndex = 0xFFFFFFFF;

enum class RecordState : std::uint8_t {
  Live,
  Copy,    // live and equal to the live one of this number
  Second,  // live, but another one of this number came first
  Deleted,
};

struct FileRecord {
  std::uint32_t offset = 0;  // of the bytes; may be outside the image
  std::uint32_t slot = 0;    // offset of the slot
  std::uint16_t size = 0;    // bytes
  std::uint16_t number = 0;
  std::uint16_t unit = 0;  // index in the volume; more units count as the last
  RecordState state = RecordState::Live;
  bool hasSecond = false;  // a second live record has the same number

  [[nodiscard]] Region Bytes() const { return {offset, size}; }
};

// What is wrong with an entry, as bits.
enum FileDamage : std::uint8_t {
  DamageSecond = 1,      // another live header or record has the same number
  DamageCutOff = 2,      // a piece is missing; the pieces before it are there
  DamageUnreadable = 4,  // bytes of a piece are outside the image
  DamageRing = 8,        // pieces or folders lead back to themselves; or two folders list an entry
  DamageMissing = 16,    // a folder lists an entry that does not exist
  DamageOrphan = 32,     // no folder lists it
};

struct FileEntry {
  std::uint32_t header = 0;        // index in records
  std::uint32_t parent = noIndex;  // index in entries of its folder; none for a root
  std::uint32_t firstPiece = 0;    // index in pieces
  std::uint32_t pieceCount = 0;
  std::uint16_t number = 0;
  std::uint16_t volume = 0;  // index in volumes
  std::uint8_t damage = 0;   // of FileDamage
  bool isFolder = false;
  bool isDeleted = false;  // a deleted entry, or an older generation
  bool isRoot = false;     // its name is the volume's
};

// The directory of a unit and the record bytes in front of it.
struct UnitDirectory {
  Region unit;   // the part in the image
  Region slots;  // the written ones
  bool operator==(const UnitDirectory&) const = default;
};

struct FileVolumeRecords {
  std::string name;
  std::size_t firstRecord = 0;  // index in records
  std::size_t recordCount = 0;
  Offset size = 0;  // bytes of all its units, within the image
  bool hasRoot = false;
};

struct FileList {
  std::vector<FileVolumeRecords> volumes;
  std::vector<UnitDirectory> units;   // of all volumes
  std::vector<Region> maps;           // tables of the firmware that name the units
  std::vector<FileRecord> records;    // volume by volume, unit by unit, in the order of writing
  std::vector<std::uint32_t> pieces;  // indices in records
  // Live entries volume by volume: each folder is followed by what it holds. Then the deleted ones.
  std::vector<FileEntry> entries;
  std::size_t liveCount = 0;  // of entries
};

}  // namespace tarvelo
