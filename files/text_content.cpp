#include "files/text_content.h"

#include <algorithm>

#include "text/unicode.h"

namespace tarvelo {
namespace {

constexpr char16_t replacement = 0xFFFD;

bool IsControl(char16_t c) {
  constexpr std::u16string_view usual = u"\t\n\f\r\x1A";  // 0x1A ends texts of DOS
  return (c < 0x20 && usual.find(c) == usual.npos) || (c >= 0x7F && c < 0xA0);
}

// Whether a unit is likely in UTF-16 without a byte order mark.
bool IsUsualUnit(char16_t c) {
  return !IsControl(c) && (c < 0x0530 || (c >= 0x2010 && c <= 0x2122 && c != replacement));
}

std::u16string Units(Bytes bytes, bool isLittle) {
  std::u16string units;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
    units += static_cast<char16_t>(isLittle ? bytes[i] | bytes[i + 1] << 8 : bytes[i] << 8 | bytes[i + 1]);
  return units;
}

// Without the bytes of a character that is cut off at the end.
Bytes WholeCharacters(Bytes utf8) {
  std::size_t last = utf8.size();  // the last byte that begins a character
  while (last > 0 && utf8.size() - last < 4 && (last == utf8.size() || (utf8[last] & 0xC0) == 0x80)) --last;
  const std::uint8_t lead = last < utf8.size() ? utf8[last] : 0;
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 1;
  return length > utf8.size() - last ? utf8.first(last) : utf8;
}

std::u16string FromUtf8(Bytes bytes) {
  return ToUtf16({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

bool StartsWith(Bytes bytes, std::initializer_list<std::uint8_t> mark) {
  return bytes.size() >= mark.size() && std::ranges::equal(bytes.first(mark.size()), mark);
}

// What a byte order mark says.
std::optional<TextContent> Marked(Bytes bytes) {
  if (StartsWith(bytes, {0xEF, 0xBB, 0xBF})) return TextContent{ToUtf8(FromUtf8(bytes.subspan(3))), "UTF-8"};
  const bool isLittle = StartsWith(bytes, {0xFF, 0xFE});
  if (!isLittle && !StartsWith(bytes, {0xFE, 0xFF})) return {};
  return TextContent{ToUtf8(Units(bytes.subspan(2), isLittle)), isLittle ? "UTF-16LE" : "UTF-16BE"};
}

}  // namespace

std::optional<TextContent> ReadText(Bytes bytes, bool isCut) {
  if (bytes.empty()) return {};
  if (auto marked = Marked(bytes)) return marked;
  if (const std::u16string text = FromUtf8(isCut ? WholeCharacters(bytes) : bytes);
      std::ranges::none_of(text, IsControl) && text.find(replacement) == text.npos) {
    const bool isAscii = std::ranges::all_of(bytes, [](std::uint8_t byte) { return byte < 0x80; });
    return TextContent{ToUtf8(text), isAscii ? "ASCII" : "UTF-8"};
  }
  for (const bool isLittle : {true, false})
    if (const std::u16string text = Units(bytes, isLittle);
        bytes.size() % 2 == 0 && std::ranges::all_of(text, IsUsualUnit))
      return TextContent{ToUtf8(text), isLittle ? "UTF-16LE" : "UTF-16BE"};
  std::u16string text;
  for (const std::uint8_t byte : bytes) text += FromWindows1251(byte);
  if (std::ranges::any_of(text, IsControl)) return {};
  return TextContent{ToUtf8(text), "Windows-1251"};
}

}  // namespace tarvelo
