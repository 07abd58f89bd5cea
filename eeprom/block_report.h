// Everything that can be said of one EEPROM block without knowing what it means: where it lies, the
// other generations of its number, its bytes, and what each text decoder reads in them.
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

// The part of a block's data that lies in the image.
struct BlockData {
  Bytes bytes;
  Offset offset = 0;         // in the image, of the first of them; the block's own where there are none
  std::size_t position = 0;  // in the block, of the first of them: above 0 if it begins before the image
  bool whole = true;         // that is all of the block
};

// How the data of one block differs from another's.
struct BlockDifference {
  enum class Kind : std::uint8_t {
    Same,
    Differing,
    Outside,  // the block's data does not lie wholly in the image
    Unknown,  // that of the block it is compared with does not
  };

  Kind kind = Kind::Same;
  // Positions at which the bytes differ, and the first of them. What only the longer block has differs.
  std::size_t count = 0;
  std::size_t first = 0;

  [[nodiscard]] bool operator==(const BlockDifference&) const = default;
};

struct BlockGeneration {
  std::size_t record = 0;      // index in BlockStore::records
  BlockDifference difference;  // from the block of the report
};

// The bytes are the image's, which must outlive the report.
struct BlockReport {
  EepromBlockRecord record;
  std::uint32_t address = 0;  // phone address of the data
  BlockData data;
  std::vector<BlockGeneration> others;  // all other blocks of the number, in the order of their headers
};

// The report of a record, by its index. Works whatever the record says.
[[nodiscard]] BlockReport ReportOf(const BlockStore& store, std::size_t record, const Fullflash& image);

// --- finding blocks; the results are indices of records ---

// The live block of a number, the last one where there are several.
[[nodiscard]] std::optional<std::size_t> LiveBlock(const BlockStore& store, int number);
// The live block of the lowest number that the menu entry stands for.
[[nodiscard]] std::optional<std::size_t> LiveBlock(const BlockStore& store, ViewerEntry entry);
// The block of the next higher, resp. next lower number: the live one, else the last one.
[[nodiscard]] std::optional<std::size_t> NextBlock(const BlockStore& store, int number);
[[nodiscard]] std::optional<std::size_t> PreviousBlock(const BlockStore& store, int number);

// --- the bytes ---

inline constexpr std::size_t dumpRowLength = 16;

// The bytes as lines of 16: the position in the block in four digits, the bytes, their Windows-1251
// characters, with a point for what cannot be seen. Lines are joined by line feeds.
[[nodiscard]] std::string HexDump(const BlockData& data);

// The index of the byte (in BlockData::bytes) that stands in a line and column of the dump, both from 0
// on; the nearest one where there is none. There must be one byte at least.
[[nodiscard]] std::size_t DumpByte(const BlockData& data, std::size_t line, std::size_t column);
// The column in which the hexadecimal digits of a byte begin.
[[nodiscard]] std::size_t DumpColumn(std::size_t index);

struct BlockReading {
  std::string_view encoding;  // how the decoder takes the bytes; a technical term, the same in all languages
  std::string text;           // UTF-8; what cannot be seen stands as its code, "<000D>"
};

// What each text decoder reads from a byte (an index of `bytes`) on. It sees nothing behind the last
// byte: a text that would need more is empty.
[[nodiscard]] std::vector<BlockReading> ReadAsText(Bytes bytes, std::size_t start);

}  // namespace tarvelo
