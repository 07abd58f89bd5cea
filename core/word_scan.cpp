#include "core/word_scan.h"

#include <bit>
#include <cstring>

namespace tarvelo {
namespace {

constexpr Offset wordsAtOnce = 128;

// Whether any of the next 128 words is the value: no early way out, so that the compiler can use vectors.
bool AnyEquals(const std::uint8_t* bytes, std::uint16_t value) {
  std::uint16_t found = 0;
  for (Offset i = 0; i < wordsAtOnce; ++i) {
    std::uint16_t word = 0;
    std::memcpy(&word, bytes + 2 * i, sizeof word);
    found |= word == value ? std::uint16_t{0xFFFF} : std::uint16_t{0};
  }
  return found != 0;
}

}  // namespace

Offset FindWord(Bytes bytes, Offset from, Offset last, std::uint16_t value) {
  static_assert(std::endian::native == std::endian::little);
  Offset p = from;
  for (; p + 2 * wordsAtOnce - 2 <= last; p += 2 * wordsAtOnce) {
    if (!AnyEquals(bytes.data() + p, value)) continue;
    while (WordAt(bytes, p) != value) p += 2;
    return p;
  }
  for (; p <= last; p += 2)
    if (WordAt(bytes, p) == value) return p;
  return -1;
}

}  // namespace tarvelo
