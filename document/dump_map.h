// The map of a dump: what each byte of the image is, as far as the explorers know.
//
// Every structure that was found claims its bytes; where claims overlap, the surest wins, of equally sure
// ones the kind of the lowest rank, then the lower number, then the lower offset. So each byte has one
// label, "unknown" included, and the regions' sizes add up to the size of the image.
//
// Beside what explorers claim:
//
//   certain  the firmware header, the T9 area, empty 64 KiB blocks
//   likely   erased runs of at least 256 bytes, which may belong to something
//   guessed  texts; code; filling, up to 3 bytes 00 or FF in front of an even offset
//
// Text is at least 512 bytes of printable ASCII, tabs and line ends, with at most three zeros in a row; half
// of it letters and blanks. Code, in page-mode images alone, is what nothing else claims of a 4 KiB page
// that has at least 8 far returns of the C166 (DB 00 at even offsets); by chance 30 pages together have one.
#pragma once

#include <functional>
#include <span>
#include <vector>

#include "core/explorer.h"

namespace tarvelo {

// The regions in order, without gaps. Neighbours differ in more than their place.
struct DumpMap {
  std::vector<Claim> regions;

  // The regions that share a byte with `size` bytes from an offset on; a binary search.
  [[nodiscard]] std::span<const Claim> Within(Offset offset, Offset size) const;
};

// Gives what an explorer finds in the dump. May throw what its search throws.
using FindingsOf = std::function<const Findings&(const Explorer& explorer)>;

// The map of a dump from what all explorers find in it. Throws what `findingsOf` throws, nothing else on
// what the image holds. Takes n log n time.
[[nodiscard]] DumpMap MapDump(const Dump& dump, const FindingsOf& findingsOf);

}  // namespace tarvelo
