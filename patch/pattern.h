// The search for byte patterns: known instructions and tables whose address is not.
//
// A pattern is written as pairs of hexadecimal digits, one a byte, in upper or lower case; blanks and
// commas count nowhere. A pair that holds a "?" matches every byte:
//   E6,FC,41,00,E6    E6??4100E6    e6??41,00 e6
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/fullflash.h"
#include "core/progress.h"
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

 private:
  [[nodiscard]] bool MatchesAt(const std::uint8_t* at) const;
  [[nodiscard]] Offset FindWithin(Bytes image, Offset start, Offset lastStart) const;

  std::vector<std::uint8_t> bytes_;  // a wildcard's is 0
  std::vector<std::uint8_t> mask_;   // 0xFF where the byte must match, 0 for a wildcard
  bool valid_ = true;
  bool hasWildcard_ = false;
  std::size_t anchor_ = 0;  // the byte that is looked for first
  bool hasAnchor_ = false;
};

// All occurrences, overlapping ones too, in their order. One at offset 0 ends the search before it has
// begun, as if there were none.
[[nodiscard]] std::vector<Offset> FindAll(const Fullflash& image, const Pattern& pattern, Progress& progress);

// The bytes found at a hit, in upper-case hexadecimal.
[[nodiscard]] std::string BytesOfHit(const Fullflash& image, const Pattern& pattern, Offset hit);

// A hit as the search lists it, the first one being number 1: "  1. 01A2B4: E6124100E6". The number
// keeps its last three digits, the offset its last six.
[[nodiscard]] std::string LineOfHit(const Fullflash& image, const Pattern& pattern, std::size_t number,
                                    Offset hit);

// What is said where nothing was found: message 35 with the pattern in upper case.
[[nodiscard]] std::string NotFound(std::string_view pattern, const Messages& messages);

}  // namespace tarvelo
