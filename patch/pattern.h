// Searches for byte patterns: known instructions and tables at unknown addresses.
//
// A pattern is written as pairs of hexadecimal digits, one per byte, in upper or lower case. Blanks and
// commas are ignored. A pair that contains a "?" matches every byte:
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
  // Parses a pattern (UTF-8). A single digit at the end is ignored. If a pair is neither two digits nor
  // contains a "?", the pattern is invalid and matches nowhere.
  explicit Pattern(std::string_view text);

  // The number of bytes in the pattern.
  [[nodiscard]] std::int32_t PatCount() const { return static_cast<std::int32_t>(bytes_.size()); }

  // The offset of the first occurrence at or after `start` (not negative), or -1.
  //
  // Two rules limit where an occurrence may end, and both are kept: a pattern without wildcards searched from
  // 0 may end with the image's last byte; every other search tries only starts up to ffEnd - PatCount and
  // never finds an occurrence that ends there.
  [[nodiscard]] Offset FindPat(const Fullflash& image, Offset start) const;

  [[nodiscard]] bool HasWildcard() const { return hasWildcard_; }

  // Adds `at`, the offset of the first byte, to each start from .. last at which the pattern matches these
  // bytes, and appends the sums to `matches`. The starts must not be negative, and a match at each must be
  // within the bytes.
  void AddMatches(Bytes bytes, Offset from, Offset last, Offset at, std::vector<Offset>& matches) const;

 private:
  template <typename Take>
  void EachMatch(Bytes bytes, Offset from, Offset last, Take take) const;
  [[nodiscard]] bool MatchesAt(const std::uint8_t* at) const;

  std::vector<std::uint8_t> bytes_;  // 0 for a wildcard
  std::vector<std::uint8_t> mask_;   // 0xFF for a byte that must match, 0 for a wildcard
  bool valid_ = true;
  bool hasWildcard_ = false;
  std::vector<Probe> rarest_;  // up to four bytes, searched first
  bool areAll_ = true;         // whether no other byte must match
};

// The first `most` occurrences, in order, including overlapping ones. An occurrence at offset 0 ends the
// search at once, without a result. Stops early if `progress` asks for it.
[[nodiscard]] std::vector<Offset> FindAll(const Fullflash& image, const Pattern& pattern, Progress& progress,
                                          std::size_t most = std::numeric_limits<std::size_t>::max());

// The bytes at a hit, in upper-case hexadecimal.
[[nodiscard]] std::string BytesOfHit(const Fullflash& image, const Pattern& pattern, Offset hit);

// Bytes in upper-case hexadecimal.
[[nodiscard]] std::string HexOfBytes(Bytes bytes);

// A hit as the search lists it, numbered from 1: "  1. 01A2B4: E6124100E6". The number keeps its last three
// digits, the offset its last six.
[[nodiscard]] std::string LineOfHit(const Fullflash& image, const Pattern& pattern, std::size_t number,
                                    Offset hit);
// The same, for bytes already at hand.
[[nodiscard]] std::string LineOfHit(std::size_t number, Offset hit, Bytes found);

// The text shown if nothing was found: message 35 with the pattern in upper case.
[[nodiscard]] std::string NotFound(std::string_view pattern, const Messages& messages);

}  // namespace tarvelo
