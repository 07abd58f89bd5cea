#include "eeprom/block_report.h"

#include <algorithm>

#include "core/notation.h"
#include "text/decoders.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

constexpr std::size_t bytesColumn = 6;  // in the dump, behind "0000  "
constexpr std::size_t byteWidth = 3;    // "00 "
constexpr std::size_t textColumn = bytesColumn + dumpRowLength * byteWidth + 1;

BlockData DataOf(const EepromBlockRecord& record, const Fullflash& image) {
  const auto length = static_cast<Offset>(image.ff().size());
  const Offset begin = record.DataOffset;
  const Offset end = std::min(begin + record.Size, length);
  const Offset first = std::max<Offset>(begin, 0);
  if (first >= end) return {{}, begin, 0, record.Size == 0};
  const Bytes bytes =
      image.ff().subspan(static_cast<std::size_t>(first), static_cast<std::size_t>(end - first));
  return {bytes, first, static_cast<std::size_t>(first - begin), bytes.size() == record.Size};
}

BlockDifference Compare(const BlockData& shown, const BlockData& other) {
  using enum BlockDifference::Kind;
  if (!other.whole) return {Outside, 0, 0};
  if (!shown.whole) return {Unknown, 0, 0};
  const std::size_t common = std::min(shown.bytes.size(), other.bytes.size());
  BlockDifference difference{Same, std::max(shown.bytes.size(), other.bytes.size()) - common, common};
  for (std::size_t i = common; i-- > 0;)
    if (shown.bytes[i] != other.bytes[i]) {
      ++difference.count;
      difference.first = i;
    }
  if (difference.count == 0) return {};
  difference.kind = Differing;
  return difference;
}

// The block that represents a number: the live one, or else the last one.
std::optional<std::size_t> BlockOf(const BlockStore& store, int number) {
  std::optional<std::size_t> last;
  for (std::size_t i = 0; i < store.records.size(); ++i)
    if (store.records[i].Number == number) last = i;
  const auto live = LiveBlock(store, number);
  return live ? live : last;
}

// Excludes invisible characters, which would hide bytes, and those that reverse the writing direction, which
// would scramble the text around them.
bool IsVisible(char32_t c) {
  const bool control = c < 0x20 || (c >= 0x7F && c < 0xA0) || c == 0xAD;
  const bool format = (c >= 0x200B && c <= 0x200F) || (c >= 0x2028 && c <= 0x202E) ||
                      (c >= 0x2060 && c <= 0x206F) || c == 0xFEFF;
  const bool noCharacter = (c >= 0xD800 && c <= 0xDFFF) || (c >= 0xFFF0 && c <= 0xFFFB) || c >= 0xFFFE;
  return !control && !format && !noCharacter;
}

std::string Visible(std::u16string_view text) {
  std::u16string visible;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t c = text[i];
    const bool pair =
        c >= 0xD800 && c < 0xDC00 && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000;
    if (pair) {
      visible.append(text.substr(i++, 2));
    } else if (IsVisible(c)) {
      visible += c;
    } else {
      for (const char digit : "<" + HexColumn(c, 4) + ">") visible += static_cast<char16_t>(digit);
    }
  }
  return ToUtf8(visible);
}

std::string Character(std::uint8_t byte) {
  const char16_t c = FromWindows1251(byte);
  return IsVisible(c) && c != 0xA0 ? ToUtf8({&c, 1}) : ".";
}

using Decoder = std::u16string (*)(Bytes bytes, Offset start);

struct NamedDecoder {
  std::string_view encoding;
  Decoder decode;
};

// Wraps a decoder that advances its offset as one that takes it by value.
template <auto decode>
std::u16string From(Bytes bytes, Offset start) {
  return decode(bytes, start);
}

constexpr NamedDecoder decoders[] = {
    {"Windows-1251 ... 00", GetStr},     {"n, Windows-1251", GetStrN},
    {"Windows-1251, D0", From<GetSiem>}, {"n, UTF-16LE", From<GetUni>},
    {"n, UTF-16BE", From<GetUni2>},      {"UTF-16LE ... FF", From<GetUniFF>},
    {"n, 7 bit", From<GetPDU>},          {"Langpack ... 00", From<MessageHard>},
};

std::string Read(const NamedDecoder& decoder, Bytes bytes, std::size_t start) try {
  return Visible(decoder.decode(bytes, static_cast<Offset>(start)));
} catch (const std::out_of_range&) {
  return {};
}

}  // namespace

BlockReport ReportOf(const BlockStore& store, std::size_t record, const Fullflash& image) {
  BlockReport report;
  report.record = store.records.at(record);
  report.address = static_cast<std::uint32_t>(Offset{report.record.DataOffset} + image.LoadBase());
  report.data = DataOf(report.record, image);
  for (std::size_t i = 0; i < store.records.size(); ++i)
    if (i != record && store.records[i].Number == report.record.Number)
      report.others.push_back({i, Compare(report.data, DataOf(store.records[i], image))});
  return report;
}

std::optional<std::size_t> LiveBlock(const BlockStore& store, int number) {
  for (std::size_t i = store.records.size(); i-- > 0;)
    if (store.records[i].Number == number && !store.records[i].IsDeleted()) return i;
  return std::nullopt;
}

std::optional<std::size_t> LiveBlock(const BlockStore& store, ViewerEntry entry) {
  std::optional<int> lowest;
  for (const EepromBlockRecord& record : store.records)
    if (!record.IsDeleted() && ViewerOf(record.Number) == entry)
      lowest = std::min<int>(lowest.value_or(record.Number), record.Number);
  return lowest ? LiveBlock(store, *lowest) : std::nullopt;
}

std::optional<std::size_t> NextBlock(const BlockStore& store, int number) {
  std::optional<int> next;
  for (const EepromBlockRecord& record : store.records)
    if (record.Number > number) next = std::min<int>(next.value_or(record.Number), record.Number);
  return next ? BlockOf(store, *next) : std::nullopt;
}

std::optional<std::size_t> PreviousBlock(const BlockStore& store, int number) {
  std::optional<int> previous;
  for (const EepromBlockRecord& record : store.records)
    if (record.Number < number) previous = std::max<int>(previous.value_or(record.Number), record.Number);
  return previous ? BlockOf(store, *previous) : std::nullopt;
}

std::string HexDump(const BlockData& data) {
  std::string dump;
  for (std::size_t row = 0; row < data.bytes.size(); row += dumpRowLength) {
    std::string digits;
    std::string text;
    for (const std::uint8_t byte :
         data.bytes.subspan(row, std::min(dumpRowLength, data.bytes.size() - row))) {
      digits.append(HexOfByte(byte)).append(1, ' ');
      text += Character(byte);
    }
    digits.resize(dumpRowLength * byteWidth + 1, ' ');
    if (row > 0) dump += "\n";
    dump.append(HexColumn(data.position + row, 4)).append("  ").append(digits).append(text);
  }
  return dump;
}

std::size_t DumpByte(const BlockData& data, std::size_t line, std::size_t column) {
  std::size_t inRow = 0;
  if (column >= textColumn)
    inRow = column - textColumn;
  else if (column >= bytesColumn)
    inRow = (column - bytesColumn) / byteWidth;
  return std::min(line * dumpRowLength + std::min(inRow, dumpRowLength - 1), data.bytes.size() - 1);
}

std::size_t DumpColumn(std::size_t index) { return bytesColumn + index % dumpRowLength * byteWidth; }

std::vector<BlockReading> ReadAsText(Bytes bytes, std::size_t start) {
  std::vector<BlockReading> readings;
  for (const NamedDecoder& decoder : decoders)
    readings.push_back({decoder.encoding, Read(decoder, bytes, start)});
  return readings;
}

}  // namespace tarvelo
