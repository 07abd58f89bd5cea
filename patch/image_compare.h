// Compares two dumps at memory speed.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "core/image_edits.h"

namespace tarvelo {

// A region in which both dumps differ. Its first and last bytes differ; some between them may not.
struct Difference {
  Offset offset = 0;
  Offset size = 0;

  [[nodiscard]] Offset End() const { return offset + size; }
  [[nodiscard]] bool operator==(const Difference&) const = default;
};

struct Comparison {
  std::vector<Difference> differences;  // in order, with offsets of the first dump
  Offset shift = 0;                     // the second dump's offset minus the first one's of the same byte
  Offset start = 0;                     // the first compared byte, as an offset of the first dump
  Offset common = 0;                    // bytes compared, which both dumps have
  Offset restOfOld = 0;                 // further bytes of the first dump
  Offset restOfNew = 0;                 // further bytes of the second dump

  [[nodiscard]] bool SameLength() const { return restOfOld == 0 && restOfNew == 0; }
  [[nodiscard]] bool Same() const { return SameLength() && differences.empty(); }
};

// Two differing bytes with at most this many equal bytes between them belong to one difference.
constexpr Offset usualGap = 8;

// The shift that compares two dumps by phone address. Dumps of up to 16 MiB all end at the same address;
// larger ones begin at the same address. Dumps of different kinds have no address in common: the shift is 0.
[[nodiscard]] Offset AddressShift(const Fullflash& one, const Fullflash& other);

// Compares each byte of the first dump with the one of the second dump that lies `shift` bytes further, as
// far as both have such bytes.
[[nodiscard]] Comparison Compare(Bytes oldBytes, Bytes newBytes, Offset gap = usualGap, Offset shift = 0);

// The bytes of a dump in a difference; `shift` is 0 for the first dump and Comparison::shift for the second,
// here and below. Throws std::out_of_range unless the dump has all of them.
[[nodiscard]] Bytes RegionOf(Bytes dump, const Difference& difference, Offset shift = 0);

// The number of differing bytes; a difference may contain equal ones.
[[nodiscard]] Offset DifferingBytes(Bytes oldBytes, Bytes newBytes, std::span<const Difference> differences,
                                    Offset shift = 0);

// Joins neighbours across ever longer runs of equal bytes until at most `most` are left. Returns false if
// there were no more than that.
bool JoinDifferences(std::vector<Difference>& differences, std::size_t most);

// The index of the difference at an offset or nearest to it. There must be one.
[[nodiscard]] std::size_t NearestDifference(std::span<const Difference> differences, Offset offset);

// The change that turns the first dump's bytes in a difference into the second one's. Throws
// std::out_of_range unless both dumps have all of them.
[[nodiscard]] Change ChangeOf(Bytes oldBytes, Bytes newBytes, const Difference& difference, Offset shift = 0);

// The patch lines of differences, separated by line feeds, made without copying the bytes. Throws
// std::out_of_range unless both dumps have all of them.
[[nodiscard]] std::string PatchLines(Bytes oldBytes, Bytes newBytes, std::span<const Difference> differences,
                                     Offset shift = 0);

}  // namespace tarvelo
