// The map of a dump: what each byte of the image is, as far as the explorers know.
//
// Every structure found claims its bytes. If claims overlap, the surest one wins; among equally sure ones,
// the kind with the lowest rank, then the lowest number, then the lowest offset. So each byte has exactly one
// label, "unknown" included, and the regions' sizes add up to the size of the image.
//
// In addition to the explorers' claims, the map has:
//
//   certain  the firmware header, the T9 area, empty 64 KiB blocks
//   likely   erased runs of at least 256 bytes, which may belong to something
//   guessed  texts; code; filling, up to 3 bytes 00 or FF in front of an even phone address
//
// Text is at least 512 bytes of printable ASCII, tabs and line ends, with at most three zeros in a row; at
// least half of it is letters and blanks. Code exists in page-mode images only: it is the unclaimed part of a
// 4 KiB page that has at least 8 far returns of the C166 (DB 00 at even addresses). By chance, about one in
// 30 pages has a single one.
#pragma once

#include <functional>
#include <span>
#include <vector>

#include "core/explorer.h"

namespace tarvelo {

// The regions in order, without gaps. Neighbours differ in more than their offset and size.
struct DumpMap {
  std::vector<Claim> regions;

  // The regions that overlap `size` bytes from an offset on; a binary search.
  [[nodiscard]] std::span<const Claim> Within(Offset offset, Offset size) const;
};

// Returns an explorer's findings in the dump. May throw what its search throws.
using FindingsOf = std::function<const Findings&(const Explorer& explorer)>;

// The claims of the identification: the firmware header and the T9 area.
void ClaimIdentified(const Dump& dump, const TakeClaim& take);

// Makes the map of a dump from all explorers' findings. Throws what `findingsOf` throws; the image's content
// never makes it throw. Takes n log n time.
[[nodiscard]] DumpMap MapDump(const Dump& dump, const FindingsOf& findingsOf);

}  // namespace tarvelo
