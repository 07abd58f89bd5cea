// The search for positions that a few words of bytes pick out of a whole image, at the speed of memory:
// under every scan of the explorers and of the pattern search.
//
// A sieve compares the words of many positions at once, with the widest vectors that the machine has; it
// is told what is rare, and gives its caller the few positions that are left. Results are the same on
// every machine.
#pragma once

#include <bit>
#include <cstdint>
#include <span>

#include "core/scan/vector_units.h"
#include "text/bytes.h"

namespace tarvelo {

// What sieves compare with.
enum class VectorUnit : std::uint8_t {
  None,  // one position after the other
  Sse2,  // 16 bytes
  Avx2,  // 32 bytes
};

// The best that this machine has, or less where it was limited. The limit is for tests and measurements;
// it holds for sieves made from then on.
[[nodiscard]] VectorUnit BestVectorUnit();
void LimitVectorUnit(VectorUnit most);

// A word to look for beside a position.
struct Probe {
  std::int32_t offset = 0;          // bytes from the position, not negative
  std::uint32_t value = 0;          // little-endian; 0 where the mask is
  std::uint32_t mask = 0xFFFFFFFF;  // the bits that count
};

class Sieve {
 public:
  // Looks at positions `step` apart, which is 1, 2 or 4; probes are words of as many bytes. One to four;
  // the first `everywhere` (2 to 4) are compared everywhere, the others where these match: name the
  // rarest first.
  Sieve(int step, std::span<const Probe> probes, int everywhere = 2);

  // Gives take(position) those of the positions from, from + step, ... up to `last` at which all probes
  // match, in their order, until it returns true. Returns whether it did. All probes of all positions
  // must lie within the bytes, and `from` must not be negative.
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

  SieveProbes probes_{};
  int step_;
  SieveLoop loop_;
};

}  // namespace tarvelo
