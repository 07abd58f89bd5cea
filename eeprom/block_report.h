// Everything that is known about an EEPROM block without interpreting it: its location, the other generations
// of its number, its bytes, and how each text decoder reads them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/fullflash.h"
#include "eeprom/block_store.h"

namespace tarvelo {

// The part of a block's data that is in the image.
struct BlockData {
  Bytes bytes;
  Offset offset = 0;         // of the first byte, in the image; without bytes, the block's own offset
  std::size_t position = 0;  // of the first byte, in the block; above 0 if the block begins before the image
  bool whole = true;         // `bytes` is the whole block
};

// How the data of one block differs from another's.
struct BlockDifference {
  enum class Kind : std::uint8_t {
    Same,
    Differing,
    Outside,  // the block's data is not entirely in the image
    Unknown,  // the data of the block it is compared with is not
  };

  Kind kind = Kind::Same;
  // The number of positions at which the bytes differ, and the first of them. Bytes that only the longer
  // block has count as different.
  std::size_t count = 0;
  std::size_t first = 0;

  [[nodiscard]] bool operator==(const BlockDifference&) const = default;
};

struct BlockGeneration {
  std::size_t record = 0;      // index in BlockStore::records
  BlockDifference difference;  // from the block that the report is about
};

// The bytes belong to the image, which must outlive the report.
struct BlockReport {
  EepromBlockRecord record;
  std::uint32_t address = 0;  // phone address of the data
  BlockData data;
  std::vector<BlockGeneration> others;  // all other blocks of this number, in header order
};

// The report of a record, by its index. Accepts any record, however malformed.
[[nodiscard]] BlockReport ReportOf(const BlockStore& store, std::size_t record, const Fullflash& image);

// --- finding blocks; the results are record indices ---

// The live block of a number; if there are several, the last one.
[[nodiscard]] std::optional<std::size_t> LiveBlock(const BlockStore& store, int number);
// The live block with the lowest number that the menu entry shows.
[[nodiscard]] std::optional<std::size_t> LiveBlock(const BlockStore& store, ViewerEntry entry);
// The block of the next higher or next lower number: the live one, or else the last one.
[[nodiscard]] std::optional<std::size_t> NextBlock(const BlockStore& store, int number);
[[nodiscard]] std::optional<std::size_t> PreviousBlock(const BlockStore& store, int number);

// --- the bytes ---

inline constexpr std::size_t dumpRowLength = 16;

// The bytes as lines of 16, joined by line feeds: the position in the block as four digits, the bytes, and
// their Windows-1251 characters, with a dot for each invisible one.
[[nodiscard]] std::string HexDump(const BlockData& data);

// The index in BlockData::bytes of the byte at a line and column of the dump, both counted from 0; if there
// is none, the nearest one. `data` must not be empty.
[[nodiscard]] std::size_t DumpByte(const BlockData& data, std::size_t line, std::size_t column);
// The column where the hexadecimal digits of a byte begin.
[[nodiscard]] std::size_t DumpColumn(std::size_t index);

struct BlockReading {
  std::string_view encoding;  // the encoding assumed; a technical term, the same in all languages
  std::string text;           // UTF-8; invisible characters appear as codes, "<000D>"
};

// What each text decoder reads from a byte (an index into `bytes`) on. Decoders see nothing behind the last
// byte, so a text that needs more is empty.
[[nodiscard]] std::vector<BlockReading> ReadAsText(Bytes bytes, std::size_t start);

}  // namespace tarvelo
