// Searches a whole image, at memory speed, for positions that a few words of bytes identify. All scans of the
// explorers and the pattern search build on it.
//
// A sieve compares the words of many positions at once, with the widest vectors of the machine. Its caller
// names rare words and examines the few positions that match. Results are the same on every machine.
#pragma once

#include <bit>
#include <cstdint>
#include <span>

#include "core/scan/vector_units.h"
#include "text/bytes.h"

namespace tarvelo {

// What sieves compare with.
enum class VectorUnit : std::uint8_t {
  None,  // one position at a time
  Sse2,  // 16 bytes
  Avx2,  // 32 bytes
};

// The best unit of this machine, or a lower one if it was limited. The limit is for tests and measurements;
// it applies to sieves created afterwards.
[[nodiscard]] VectorUnit BestVectorUnit();
void LimitVectorUnit(VectorUnit most);

// A word to look for beside a position.
struct Probe {
  std::int32_t offset = 0;          // bytes from the position, not negative
  std::uint32_t value = 0;          // little-endian; bits outside the mask are 0
  std::uint32_t mask = 0xFFFFFFFF;  // the bits that count; all of them in single bytes
};

// A sieve as an explorer names it, a constant object. Its address tells it from others (core/sieve_marks.h).
struct SieveForm {
  int step;
  std::span<const Probe> probes;
};

// Whether all bytes are 0xFF.
[[nodiscard]] bool IsErased(Bytes bytes);

class Sieve {
 public:
  // Examines positions `step` apart; `step` is 1, 2 or 4 and is also the size of the probes' words in bytes.
  // There are one to four probes. The first `everywhere` (2 to 4) are compared at every position, the others
  // only where those match: put the rarest first.
  Sieve(int step, std::span<const Probe> probes, int everywhere = 2);
  // With its marks in the bytes that Each will get, it looks only at the marked blocks. None: at all of them.
  explicit Sieve(const SieveForm& form, std::span<const std::uint64_t> marks = {});

  // The marks of 64 blocks: bit i is set if a match may begin at the positions 128 * i to 128 * i + 127,
  // which must be readable with all probes. Counts the positions that are multiples of the step from `block`
  // on.
  [[nodiscard]] std::uint64_t Mark(const std::uint8_t* block) const { return mark_(block, probes_); }

  // Calls take(position) for each of the positions from, from + step, ... `last` at which all probes match,
  // in order, until it returns true. Returns whether it did. All probes of all positions must be within the
  // bytes, and `from` must not be negative.
  template <typename Take>
  bool Each(Bytes bytes, Offset from, Offset last, Take take) const {
    const std::uint8_t* const start = bytes.data();
    for (SieveBits bits; from <= last; from += SieveBits::positions) {
      from = NextBlock(start, from, last, bits);
      for (int half = 0; half < 2; ++half)
        for (std::uint64_t word = bits.words[half]; word != 0; word &= word - 1)
          if (take(from + Offset{64} * half + std::countr_zero(word))) return true;
    }
    return false;
  }

 private:
  Offset NextBlock(const std::uint8_t* start, Offset from, Offset last, SieveBits& bits) const;
  Offset NextOfAll(const std::uint8_t* start, Offset from, Offset last, SieveBits& bits) const;
  [[nodiscard]] Offset SkipUnmarked(Offset from, Offset last) const;

  SieveProbes probes_{};
  int step_;
  SieveLoop loop_;
  MarkLoop mark_;
  std::span<const std::uint64_t> marks_;
};

}  // namespace tarvelo
