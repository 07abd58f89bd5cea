// The phone's emulated EEPROM: numbered blocks in the flash, found by their headers.
//
// A header is a record slot (core/record_slot.h) with these limits:
//   0   live or deleted, 11 the same
//   1   V, 0 .. 0x21
//   2   size of the data, below 0x1500
//   4   phone address of the data; byte 6 is 0xBF, 0x7C .. 0x7F or 0xF6 .. 0xFF, byte 7 is 0
//   8   block number, below 0x1900
// The phone never changes a block in place: it writes a new copy and marks the old header as deleted. So an
// image holds many generations of a number, and sometimes several live ones.
#pragma once

#include <bitset>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "core/fullflash.h"
#include "core/progress.h"
#include "core/record_slot.h"
#include "core/sieve_marks.h"

namespace tarvelo {

// The directory's limit. An image with more blocks is faulty.
inline constexpr std::size_t mostBlocks = 2000;
// The lookup tables cover the numbers 0 .. 6000.
inline constexpr std::size_t blockNumbers = 6001;

inline constexpr std::uint8_t liveBlockState = RecordSlot::live;
inline constexpr std::uint8_t deletedBlockState = RecordSlot::deleted;
inline constexpr int blockHeaderLength = RecordSlot::length;

// The entries of the menu KnownBlocks, named after the blocks that they show.
enum class ViewerEntry : std::uint8_t {
  x5079,
  x5076,
  x5124,
  x509x,
  x517x,
  x5166,
  x0280,
  x5206,
  x0071,
  x5209,
  x5168,
  x5262,
  x5136,
  x5274,
  x0067,
  x5275,
  x5276,
  x5277,
  x5278
};
inline constexpr std::size_t viewerEntries = static_cast<std::size_t>(ViewerEntry::x5278) + 1;
using ViewerSet = std::bitset<viewerEntries>;  // by the entries' values

struct EepromBlockRecord {
  std::uint16_t Number = 0;  // 1 .. 999 or 5001 .. 5999
  std::uint8_t V = 0;
  std::int32_t DataOffset = 0;  // may be outside the image, even before it
  std::uint16_t Size = 0;       // bytes of data
  bool HasViewer = false;       // never for a deleted block
  std::uint8_t State = liveBlockState;
  std::int32_t HeaderPos = 0;  // offset of the header

  [[nodiscard]] bool IsDeleted() const { return State == deletedBlockState; }
  [[nodiscard]] bool operator==(const EepromBlockRecord&) const = default;
};

// The result of one scan.
struct BlockStore {
  std::vector<EepromBlockRecord> records;  // in header order
  int DeletedCount = 0;

  // The live block of each number; if there are several, the last one. A size of 0 means that there is no
  // live block (or an empty one).
  std::vector<std::int32_t> BlockOffset = std::vector<std::int32_t>(blockNumbers);
  std::vector<std::uint16_t> BlockSize = std::vector<std::uint16_t>(blockNumbers);
  std::vector<std::uint8_t> BlockV = std::vector<std::uint8_t>(blockNumbers);

  ViewerSet viewers;  // the menu entries that have a live block

  [[nodiscard]] int BlockCount() const { return static_cast<int>(records.size()); }
  [[nodiscard]] int LiveCount() const { return BlockCount() - DeletedCount; }
};

// Whether a number can be a block's: 1 .. 999 and 5001 .. 5999.
[[nodiscard]] bool IsBlockNumber(int number);

// The menu entry for a block number, or nothing.
[[nodiscard]] std::optional<ViewerEntry> ViewerOf(int number);

// The entries enabled after a scan that found `found`, if `before` were enabled: all found ones, and those of
// x5275 .. x5278 that were enabled before, since no later image disables them.
[[nodiscard]] ViewerSet EnabledViewers(const ViewerSet& before, const ViewerSet& found);

// Finds the headers, at multiples of 4 from the start of the scan. The scan starts at the image's beginning;
// in images of more than 0x800001 bytes, unless the model is "C60", it starts 0xA0000 bytes before the end.
// After a header with a valid block number, the scan goes on at the header's end; after anything else,
// including a header with another number, 4 bytes further.
//
// Throws std::length_error at the header that would be record 2001; no other image content makes it throw.
// Runs close to memory speed.
[[nodiscard]] BlockStore GetEE(const Fullflash& image, std::string_view model, Progress& progress,
                               const SieveMarks& marks = {});

// The sieve of that scan if it passes over the whole image.
[[nodiscard]] const SieveForm* HeaderSieve(const Fullflash& image, std::string_view model);

}  // namespace tarvelo
