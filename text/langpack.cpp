#include "text/langpack.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace tarvelo {
namespace {

constexpr unsigned firstPage = 0x95;
constexpr unsigned firstIdeographPage = 0xAA;
constexpr unsigned lastIdeographPage = 0xEF;
constexpr std::size_t longestText = 300;

// Bases of the pages 0x95 .. 0xA0. No page begins at 0x0200 or 0x0280.
constexpr std::array<unsigned, 12> bases{0x0000, 0x0080, 0x0100, 0x0180, 0x0300, 0x0380,
                                         0x0400, 0x0480, 0x0500, 0x0580, 0x0600, 0x0680};

unsigned BaseOf(unsigned byte) {
  if (byte >= firstPage && byte < firstPage + bases.size()) return bases[byte - firstPage];
  if (byte >= firstIdeographPage && byte <= lastIdeographPage)
    return 0x4E00 + (byte - firstIdeographPage) * 0x80;
  return 0;
}

// Calls take(unit) for each unit of a text.
template <typename Take>
void EachUnit(Bytes bytes, Take take) {
  constexpr char16_t digits[] = u"0123456789ABCDEF";
  unsigned base = 0;
  for (const std::uint8_t byte : bytes) {
    if (byte < 0x80 && (byte >= 0x20 || base > 0)) {
      take(static_cast<char16_t>(base + byte));
      continue;
    }
    for (const char16_t unit : {u'<', digits[byte >> 4], digits[byte & 0xF], u'>'}) take(unit);
    base = BaseOf(byte);
  }
}

}  // namespace

std::u16string DecodeLangpack(Bytes bytes) {
  std::size_t length = 0;
  EachUnit(bytes, [&](char16_t) { ++length; });
  std::u16string text;
  text.reserve(length);
  EachUnit(bytes, [&](char16_t unit) { text += unit; });
  return text;
}

std::vector<std::uint8_t> EncodeLangpack(std::u16string_view text) {
  std::vector<std::uint8_t> out;
  const auto append = [&](unsigned byte) {
    if (out.size() == longestText) throw std::overflow_error("the text is longer than 300 bytes");
    out.push_back(static_cast<std::uint8_t>(byte));
  };
  unsigned current = 0;
  for (const char16_t u : text) {
    const auto index =
        static_cast<unsigned>(std::ranges::upper_bound(bases, unsigned{u}) - bases.begin()) - 1;
    const unsigned value = u - bases[index];
    if (value > 0xFF) throw std::overflow_error("a character has no place in the language pack");
    if (firstPage + index != current) append(current = firstPage + index);
    append(value);
  }
  return out;
}

}  // namespace tarvelo
