#include "text/unicode.h"

#include <algorithm>
#include <array>

namespace tarvelo {
namespace {

// 0x80 .. 0xFF of Windows-1251.
constexpr std::array<char16_t, 128> upperHalf{
    0x0402, 0x0403, 0x201A, 0x0453, 0x201E, 0x2026, 0x2020, 0x2021, 0x20AC, 0x2030, 0x0409, 0x2039, 0x040A,
    0x040C, 0x040B, 0x040F, 0x0452, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, 0x0098, 0x2122,
    0x0459, 0x203A, 0x045A, 0x045C, 0x045B, 0x045F, 0x00A0, 0x040E, 0x045E, 0x0408, 0x00A4, 0x0490, 0x00A6,
    0x00A7, 0x0401, 0x00A9, 0x0404, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x0407, 0x00B0, 0x00B1, 0x0406, 0x0456,
    0x0491, 0x00B5, 0x00B6, 0x00B7, 0x0451, 0x2116, 0x0454, 0x00BB, 0x0458, 0x0405, 0x0455, 0x0457, 0x0410,
    0x0411, 0x0412, 0x0413, 0x0414, 0x0415, 0x0416, 0x0417, 0x0418, 0x0419, 0x041A, 0x041B, 0x041C, 0x041D,
    0x041E, 0x041F, 0x0420, 0x0421, 0x0422, 0x0423, 0x0424, 0x0425, 0x0426, 0x0427, 0x0428, 0x0429, 0x042A,
    0x042B, 0x042C, 0x042D, 0x042E, 0x042F, 0x0430, 0x0431, 0x0432, 0x0433, 0x0434, 0x0435, 0x0436, 0x0437,
    0x0438, 0x0439, 0x043A, 0x043B, 0x043C, 0x043D, 0x043E, 0x043F, 0x0440, 0x0441, 0x0442, 0x0443, 0x0444,
    0x0445, 0x0446, 0x0447, 0x0448, 0x0449, 0x044A, 0x044B, 0x044C, 0x044D, 0x044E, 0x044F};

constexpr char32_t replacement = 0xFFFD;

bool IsHighSurrogate(char32_t c) { return c >= 0xD800 && c < 0xDC00; }
bool IsLowSurrogate(char32_t c) { return c >= 0xDC00 && c < 0xE000; }

void AppendUtf8(std::string& out, char32_t c) {
  const auto tail = [&](int shift) { out += static_cast<char>(0x80 | (c >> shift & 0x3F)); };
  if (c < 0x80) {
    out += static_cast<char>(c);
  } else if (c < 0x800) {
    out += static_cast<char>(0xC0 | c >> 6);
    tail(0);
  } else if (c < 0x10000) {
    out += static_cast<char>(0xE0 | c >> 12);
    tail(6);
    tail(0);
  } else {
    out += static_cast<char>(0xF0 | c >> 18);
    tail(12);
    tail(6);
    tail(0);
  }
}

// Removes one code point from the front of the text. A byte that begins none is removed alone and gives
// U+FFFD.
char32_t TakeCodePoint(std::string_view& text) {
  const auto first = static_cast<unsigned char>(text.front());
  const std::size_t length = first < 0x80   ? 1
                             : first < 0xC2 ? 0
                             : first < 0xE0 ? 2
                             : first < 0xF0 ? 3
                             : first < 0xF5 ? 4
                                            : 0;
  char32_t c = length < 2 ? first : first & (0x7Fu >> length);
  bool valid = length != 0 && length <= text.size();
  for (std::size_t i = 1; valid && i < length; ++i) {
    const auto next = static_cast<unsigned char>(text[i]);
    valid = (next & 0xC0) == 0x80;
    c = c << 6 | (next & 0x3F);
  }
  constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
  valid = valid && c >= smallest[length] && c < 0x110000 && !(c >= 0xD800 && c < 0xE000);
  text.remove_prefix(valid ? length : 1);
  return valid ? c : replacement;
}

// Bytes that are not UTF-8 stay as they are.
std::string WithoutControls(std::string_view utf8, char instead) {
  std::string line;
  line.reserve(utf8.size());
  while (!utf8.empty()) {
    const std::string_view before = utf8;
    const char32_t c = TakeCodePoint(utf8);
    if (c < 0x20 || (c >= 0x7F && c < 0xA0))
      line += instead;
    else
      line += before.substr(0, before.size() - utf8.size());
  }
  return line;
}

}  // namespace

char16_t FromWindows1251(std::uint8_t byte) { return byte < 0x80 ? byte : upperHalf[byte - 0x80u]; }

char32_t ToUpper(char32_t c) {
  const auto in = [c](char32_t first, char32_t last) { return c >= first && c <= last; };
  if (in('a', 'z') || (in(0xE0, 0xFE) && c != 0xF7)) return c - 0x20;
  if (c == 0xFF) return 0x178;
  // Latin with diacritics: pairs of capital and small letter. In some ranges the capital has the even code,
  // in others the odd one.
  if (in(0x100, 0x137) || in(0x14A, 0x177)) return c & ~char32_t{1};
  if (in(0x139, 0x148) || in(0x179, 0x17E)) return c - (c + 1) % 2;
  // Greek; the final sigma has no capital of its own.
  if (c == 0x3C2) return 0x3A3;
  if (in(0x3B1, 0x3CB)) return c - 0x20;
  if (c == 0x3AC) return 0x386;
  if (in(0x3AD, 0x3AF)) return c - 0x25;
  if (c == 0x3CC) return 0x38C;
  if (in(0x3CD, 0x3CE)) return c - 0x3F;
  // Cyrillic
  if (in(0x430, 0x44F)) return c - 0x20;
  if (in(0x450, 0x45F)) return c - 0x50;
  if (in(0x460, 0x481) || in(0x48A, 0x4BF) || in(0x4D0, 0x52F)) return c & ~char32_t{1};
  return c;
}

std::string ToUpper(std::string_view utf8) {
  std::string upper;
  upper.reserve(utf8.size());
  while (!utf8.empty()) AppendUtf8(upper, ToUpper(TakeCodePoint(utf8)));
  return upper;
}

std::string ToUtf8(std::u16string_view text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t c = text[i];
    if (IsHighSurrogate(c) && i + 1 < text.size() && IsLowSurrogate(text[i + 1]))
      c = 0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00u);
    else if (IsHighSurrogate(c) || IsLowSurrogate(c))
      c = replacement;
    AppendUtf8(out, c);
  }
  return out;
}

std::u16string ToUtf16(std::string_view text) {
  std::u16string out;
  out.reserve(text.size());
  while (!text.empty()) {
    const char32_t c = TakeCodePoint(text);
    if (c < 0x10000) {
      out += static_cast<char16_t>(c);
    } else {
      out += static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
      out += static_cast<char16_t>(0xDC00 + (c & 0x3FF));
    }
  }
  return out;
}

std::string InOneLine(std::string_view utf8) { return WithoutControls(utf8, ' '); }

std::string WithDots(std::string_view utf8) { return WithoutControls(utf8, '.'); }

}  // namespace tarvelo
