#include "demo/demo_encoders.h"

#include <stdexcept>

namespace tarvelo {
namespace {

constexpr char16_t lastLetter = u'я';  // byte 0xFF, which is erased flash and ends a string

[[noreturn]] void Refuse() { throw std::invalid_argument("the encoding cannot hold this text"); }

std::uint8_t Low(unsigned value) { return static_cast<std::uint8_t>(value); }

// The demonstration needs only ASCII and the Russian letters of Windows-1251.
std::uint8_t Windows1251(char16_t c) {
  if (c >= 0x20 && c < 0x7F) return Low(c);
  if (c == u'Ё') return 0xA8;
  if (c == u'ё') return 0xB8;
  if (c < u'А' || c > u'я') Refuse();
  return Low(0xC0 + (c - u'А'));
}

TextBytes Counted(std::size_t count) {
  if (count >= 0xFF) Refuse();
  return {Low(static_cast<unsigned>(count))};
}

struct Page {
  std::uint8_t byte;
  unsigned base;
};

Page PageOf(char16_t c) {
  constexpr Page pages[] = {{0xA0, 0x680}, {0x9F, 0x600}, {0x9E, 0x580}, {0x9D, 0x500},
                            {0x9C, 0x480}, {0x9B, 0x400}, {0x9A, 0x380}, {0x99, 0x300},
                            {0x98, 0x180}, {0x97, 0x100}, {0x96, 0x080}, {0x95, 0x000}};
  if (c >= 0x4E00 && c < 0x7100) {
    const unsigned index = (c - 0x4E00u) / 0x80;
    return {Low(0xAA + index), 0x4E00 + index * 0x80};
  }
  for (const Page& page : pages)
    if (c >= page.base && c < page.base + 0x80) return page;
  Refuse();
}

}  // namespace

TextBytes PlainText(std::u16string_view text, std::uint8_t end) {
  TextBytes bytes;
  for (const char16_t c : text) {
    if (c == lastLetter) Refuse();
    bytes.push_back(Windows1251(c));
  }
  bytes.push_back(end);
  return bytes;
}

TextBytes CountedText(std::u16string_view text) {
  TextBytes bytes = Counted(text.size());
  for (const char16_t c : text) bytes.push_back(Windows1251(c));
  return bytes;
}

TextBytes CyrillicText(std::u16string_view text) {
  TextBytes bytes;
  for (const char16_t c : text) {
    if (c == lastLetter) Refuse();
    const std::uint8_t byte = Windows1251(c);
    if (byte >= 0xC0 && byte < 0xF0)
      AppendBytes(bytes, {0xD0, Low(byte - 0x30u)});
    else
      bytes.push_back(byte);
  }
  bytes.push_back(0);
  return bytes;
}

TextBytes UnicodeText(std::u16string_view text) {
  TextBytes bytes = Counted(text.size());
  bytes.push_back(0);
  for (const char16_t c : text) AppendWord(bytes, c);
  return bytes;
}

TextBytes BigEndianText(std::u16string_view text) {
  TextBytes bytes = Counted(2 * text.size());
  for (const char16_t c : text) {
    if (c >= 0x8000) Refuse();
    AppendBigWord(bytes, c);
  }
  return bytes;
}

TextBytes OpenUnicodeText(std::u16string_view text) {
  TextBytes bytes;
  for (const char16_t c : text) {
    if (c >= 0xFF00) Refuse();
    AppendWord(bytes, c);
  }
  AppendWord(bytes, 0xFFFF);
  return bytes;
}

TextBytes PackedText(std::u16string_view text) {
  TextBytes bytes = Counted(text.size());
  unsigned waiting = 0;  // bits not yet written; the first is the lowest
  int bits = 0;
  for (const char16_t c : text) {
    if (c >= 0x80) Refuse();
    waiting |= static_cast<unsigned>(c) << bits;
    bits += 7;
    if (bits < 8) continue;
    bytes.push_back(Low(waiting));
    waiting >>= 8;
    bits -= 8;
  }
  if (bits > 0) bytes.push_back(Low(waiting));
  return bytes;
}

TextBytes LanguageText(std::u16string_view text) {
  TextBytes bytes;
  std::uint8_t current = 0;
  for (const char16_t c : text) {
    const Page page = PageOf(c);
    if (page.byte != current) bytes.push_back(current = page.byte);
    if (c == page.base) Refuse();
    bytes.push_back(Low(c - page.base));
  }
  bytes.push_back(0);
  return bytes;
}

}  // namespace tarvelo
