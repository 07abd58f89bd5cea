// The search for byte patterns: known instructions and tables whose address is not.
//
// A pattern is written as pairs of hexadecimal digits, one a byte, in upper or lower case; blanks and
// commas count nowhere. A pair that holds a "?" matches every byte:
//   E6,FC,41,00,E6    E6??4100E6    e6??41,00 e6
#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "core/fullflash.h"
#include "core/progress.h"
#include "core/scan/vector_scan.h"
#include "resources/messages.h"

namespace tarvelo {

class Pattern {
 public:
  // Reads a pattern (UTF-8). A single digit at its end is ignored. One with a pair that is neither two
  // digits nor holds a "?" is invalid: it matches nowhere.
  explicit Pattern(std::string_view text);

  // The number of its bytes.
  [[nodiscard]] std::int32_t PatCount() const { return static_cast<std::int32_t>(bytes_.size()); }

  // The offset of the first occurrence at or after `start` (not negative), or -1.
  //
  // Where it may end depends on the way in which it is sought, and both ends are kept: a pattern
  // without wildcards sought from 0 may end with the image's last byte; every other search tries
  // starts up to ffEnd - PatCount only, and so never finds an occurrence that ends there.
  [[nodiscard]] Offset FindPat(const Fullflash& image, Offset start) const;

  [[nodiscard]] bool HasWildcard() const { return hasWildcard_; }

  // Adds each of the starts from .. last of these bytes at which it matches, plus `at`, the offset of
  // the first byte. They must not be negative, and all that may match must lie within the bytes.
  void AddMatches(Bytes bytes, Offset from, Offset last, Offset at, std::vector<Offset>& matches) const;

 private:
  template <typename Take>
  void EachMatch(Bytes bytes, Offset from, Offset last, Take take) const;
  [[nodiscard]] bool MatchesAt(const std::uint8_t* at) const;

  std::vector<std::uint8_t> bytes_;  // a wildcard's is 0
  std::vector<std::uint8_t> mask_;   // 0xFF where the byte must match, 0 for a wildcard
  bool valid_ = true;
  bool hasWildcard_ = false;
  std::vector<Probe> rarest_;  // up to four bytes that are looked for first
  bool areAll_ = true;         // whether no other byte has to match
};

// All occurrences, overlapping ones too, in their order, but not more than the first `most`. One at offset
// 0 ends the search before it has begun, as if there were none. Stops early where `progress` asks for it.
[[nodiscard]] std::vector<Offset> FindAll(const Fullflash& image, const Pattern& pattern, Progress& progress,
                                          std::size_t most = std::numeric_limits<std::size_t>::max());

// The bytes found at a hit, in upper-case hexadecimal.
[[nodiscard]] std::string BytesOfHit(const Fullflash& image, const Pattern& pattern, Offset hit);

// Bytes in upper-case hexadecimal.
[[nodiscard]] std::string HexOfBytes(Bytes bytes);

// A hit as the search lists it, the first one being number 1: "  1. 01A2B4: E6124100E6". The number
// keeps its last three digits, the offset its last six.
[[nodiscard]] std::string LineOfHit(const Fullflash& image, const Pattern& pattern, std::size_t number,
                                    Offset hit);
// The same, given the bytes found.
[[nodiscard]] std::string LineOfHit(std::size_t number, Offset hit, Bytes found);

// What is said where nothing was found: message 35 with the pattern in upper case.
[[nodiscard]] std::string NotFound(std::string_view pattern, const Messages& messages);

}  // namespace tarvelo
