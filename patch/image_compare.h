// Where two dumps differ, at the speed of memory.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "core/image_edits.h"

namespace tarvelo {

// Bytes of both dumps that differ: the first one and the last one do, some between them may not.
struct Difference {
  Offset offset = 0;
  Offset size = 0;

  [[nodiscard]] Offset End() const { return offset + size; }
  [[nodiscard]] bool operator==(const Difference&) const = default;
};

struct Comparison {
  std::vector<Difference> differences;  // in order
  Offset common = 0;                    // bytes that both have and that were compared
  Offset restOfOld = 0;                 // bytes behind them that the first dump alone has
  Offset restOfNew = 0;                 // those that the second alone has

  [[nodiscard]] bool SameLength() const { return restOfOld == 0 && restOfNew == 0; }
  [[nodiscard]] bool Same() const { return SameLength() && differences.empty(); }
};

// At most this many equal bytes between two that differ make them one difference.
constexpr Offset usualGap = 8;

// Compares two dumps from their first bytes on, as far as the shorter one goes.
[[nodiscard]] Comparison Compare(Bytes oldBytes, Bytes newBytes, Offset gap = usualGap);

// The bytes of a dump that a difference takes. Throws std::out_of_range where it does not have them all.
[[nodiscard]] Bytes RegionOf(Bytes dump, const Difference& difference);

// How many bytes differ: within a difference some may be the same.
[[nodiscard]] Offset DifferingBytes(Bytes oldBytes, Bytes newBytes, std::span<const Difference> differences);

// Joins neighbours across more and more equal bytes until there are at most so many. False where there
// were no more anyway.
bool JoinDifferences(std::vector<Difference>& differences, std::size_t most);

// The index of the difference that lies at an offset or is next to it. There must be one.
[[nodiscard]] std::size_t NearestDifference(std::span<const Difference> differences, Offset offset);

// A difference as the change that makes the second dump's bytes out of the first one's. Throws
// std::out_of_range where one of them does not have them all.
[[nodiscard]] Change ChangeOf(Bytes oldBytes, Bytes newBytes, const Difference& difference);

// The patch lines of differences, parted by line feeds, without a copy of the bytes. Throws likewise.
[[nodiscard]] std::string PatchLines(Bytes oldBytes, Bytes newBytes, std::span<const Difference> differences);

}  // namespace tarvelo
