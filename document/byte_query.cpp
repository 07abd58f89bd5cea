#include "document/byte_query.h"

#include <algorithm>
#include <stdexcept>

#include "core/byte_text.h"
#include "core/text_encoding.h"
#include "document/value_bytes.h"
#include "resources/messages.h"
#include "resources/texts.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

constexpr std::string_view wildcard = "??";

// The digits of a pattern without what stands between them; a pair with one "?" becomes "??".
std::string PairsOf(std::string_view text) {
  std::string pairs;
  for (const char c : text)
    if (c != ' ' && c != ',') pairs += c;
  for (std::size_t i = 0; i + 1 < pairs.size(); i += 2)
    if (pairs[i] == '?' || pairs[i + 1] == '?') pairs.replace(i, 2, wildcard);
  return pairs;
}

std::string BytesPattern(std::string_view text) {
  const std::string pairs = PairsOf(text);
  std::string digits = pairs;
  std::ranges::replace(digits, '?', '0');
  if (!ReadHex(digits)) throw std::invalid_argument(std::string(text));
  std::string pattern;
  for (std::size_t i = 0; i < pairs.size(); i += 2) pattern.append(pairs, i, 2).append(" ");
  pattern.pop_back();
  return pattern;
}

TextEncoding EncodingOf(QueryKind kind) {
  return static_cast<TextEncoding>(static_cast<int>(kind) - static_cast<int>(QueryKind::Windows1251));
}

std::vector<std::uint8_t> TextBytes(QueryKind kind, std::string_view text) {
  auto bytes = EncodeText(ToUtf16(text), EncodingOf(kind));
  if (!bytes) throw std::invalid_argument(std::string(text));
  return *std::move(bytes);
}

}  // namespace

std::string QueryName(QueryKind kind, const Messages& messages) {
  switch (kind) {
    case QueryKind::Digits: return std::string(messages.Msg(Text::ColumnBytes));
    case QueryKind::Number8: return "int8";
    case QueryKind::Number16Little: return "int16 LE";
    case QueryKind::Number16Big: return "int16 BE";
    case QueryKind::Number32Little: return "int32 LE";
    case QueryKind::Number32Big: return "int32 BE";
    case QueryKind::PagePointer: return std::string(messages.Msg(Text::ValuePagePointer));
    case QueryKind::SegmentPointer: return std::string(messages.Msg(Text::ValueSegmentPointer));
    default: return std::string(encodingNames[static_cast<std::size_t>(EncodingOf(kind))]);
  }
}

std::string PatternOf(QueryKind kind, std::string_view text, const Dump& dump) {
  using enum ByteOrder;
  switch (kind) {
    case QueryKind::Digits: return BytesPattern(text);
    case QueryKind::Number8: return AsHex(NumberBytes(text, 8, Little));
    case QueryKind::Number16Little: return AsHex(NumberBytes(text, 16, Little));
    case QueryKind::Number16Big: return AsHex(NumberBytes(text, 16, Big));
    case QueryKind::Number32Little: return AsHex(NumberBytes(text, 32, Little));
    case QueryKind::Number32Big: return AsHex(NumberBytes(text, 32, Big));
    case QueryKind::PagePointer: return AsHex(PointerBytes(text, ColonForm::Page, dump));
    case QueryKind::SegmentPointer: return AsHex(PointerBytes(text, ColonForm::Segment, dump));
    default: return AsHex(TextBytes(kind, text));
  }
}

Offset PatternSize(std::string_view pattern) { return (std::ssize(pattern) + 1) / 3; }

std::vector<std::uint8_t> Filled(std::string_view pattern, Bytes old) {
  std::vector<std::uint8_t> bytes(old.begin(), old.end());
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const std::string_view pair = pattern.substr(3 * i, 2);
    if (pair != wildcard) bytes[i] = ReadHex(pair)->front();
  }
  return bytes;
}

}  // namespace tarvelo
