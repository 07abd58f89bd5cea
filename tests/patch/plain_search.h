// The byte pattern search as it is defined, byte by byte: slow, but easily seen to be right.
#pragma once

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

#include "text/bytes.h"
#include "text/unicode.h"

namespace tarvelo {

// A byte's value, or -1 for a wildcard.
using PlainBytes = std::vector<int>;

// The bytes of a pattern's text, or nothing if it is invalid.
inline std::optional<PlainBytes> PlainPattern(std::string_view text) {
  constexpr std::u16string_view digits = u"0123456789ABCDEF0123456789abcdef";
  std::u16string rest;
  for (const char16_t c : ToUtf16(text))
    if (c != u' ' && c != u',') rest += c;
  PlainBytes bytes;
  for (std::size_t i = 0; i + 2 <= rest.size(); i += 2) {
    const std::u16string pair = rest.substr(i, 2);
    if (pair.find(u'?') != pair.npos) {
      bytes.push_back(-1);
      continue;
    }
    if (pair.find_first_not_of(digits) != pair.npos) return {};
    bytes.push_back(static_cast<int>(digits.find(pair[0]) % 16 * 16 + digits.find(pair[1]) % 16));
  }
  return bytes;
}

// The first occurrence at or after `start`, or -1. An occurrence at the very end of the image counts only if
// the pattern has no wildcard and `start` is 0.
inline Offset PlainFindPat(Bytes image, const std::optional<PlainBytes>& pattern, Offset start) {
  if (!pattern) return -1;
  const bool hasWildcard = std::ranges::find(*pattern, -1) != pattern->end();
  const auto count = static_cast<Offset>(pattern->size());
  const Offset beyond = static_cast<Offset>(image.size()) - count + (start == 0 && !hasWildcard ? 1 : 0);
  for (Offset p = start; p < beyond; ++p) {
    const auto same = [](int wanted, std::uint8_t byte) { return wanted < 0 || wanted == byte; };
    const Bytes found = image.subspan(static_cast<std::size_t>(p), pattern->size());
    if (std::ranges::equal(*pattern, found, same)) return p;
  }
  return -1;
}

// All occurrences, hit by hit; none after one at offset 0.
inline std::vector<Offset> PlainFindAll(Bytes image, const std::optional<PlainBytes>& pattern) {
  std::vector<Offset> hits;
  for (Offset hit = PlainFindPat(image, pattern, 0); hit >= 1; hit = PlainFindPat(image, pattern, hit + 1))
    hits.push_back(hit);
  return hits;
}

}  // namespace tarvelo
