#include "core/scan/vector_scan.h"

#include <algorithm>
#include <atomic>
#include <cstring>

namespace tarvelo {
namespace {

std::atomic<VectorUnit> mostVectors = VectorUnit::Avx2;

VectorUnit OfThisMachine() {
#ifdef TARVELO_X86_VECTORS
  static const bool hasAvx2 = __builtin_cpu_supports("avx2") != 0;
  return hasAvx2 ? VectorUnit::Avx2 : VectorUnit::Sse2;
#else
  return VectorUnit::None;
#endif
}

template <int step>
bool MatchesAt(const std::uint8_t* p, const SieveProbes& probes) {
  static_assert(std::endian::native == std::endian::little);
  for (int i = 0; i < SieveProbes::count; ++i) {
    std::uint32_t word = 0;
    std::memcpy(&word, p + probes.offset[i], step);
    if ((word & probes.mask[i]) != probes.value[i]) return false;
  }
  return true;
}

// The bits for the positions of a block, or for those in front of `end`.
template <int step>
SieveBits PlainBits(const std::uint8_t* block, const std::uint8_t* end, const SieveProbes& probes) {
  SieveBits bits{};
  const auto count = static_cast<int>(std::min<std::ptrdiff_t>(SieveBits::positions, end - block));
  for (int i = 0; i < count; i += step)
    if (MatchesAt<step>(block + i, probes)) bits.words[i / 64] |= std::uint64_t{1} << i % 64;
  return bits;
}

template <int step>
const std::uint8_t* PlainLoop(const std::uint8_t* block, const std::uint8_t* end, const SieveProbes& probes,
                              SieveBits& bits) {
  for (; end - block >= SieveBits::positions; block += SieveBits::positions) {
    bits = PlainBits<step>(block, end, probes);
    if ((bits.words[0] | bits.words[1]) != 0) return block;
  }
  bits = {};
  return block;
}

constexpr SieveLoops plainLoops{PlainLoop<1>, PlainLoop<2>, PlainLoop<4>};

const SieveLoops& Loops() {
#ifdef TARVELO_X86_VECTORS
  switch (BestVectorUnit()) {
    case VectorUnit::Avx2: return avx2Loops;
    case VectorUnit::Sse2: return sse2Loops;
    case VectorUnit::None: break;
  }
#endif
  return plainLoops;
}

// A mask of all bits of a word of `step` bytes.
std::uint32_t BitsOfStep(int step) { return 0xFFFFFFFF >> (32 - 8 * step); }

}  // namespace

VectorUnit BestVectorUnit() { return std::min(mostVectors.load(), OfThisMachine()); }

void LimitVectorUnit(VectorUnit most) { mostVectors = most; }

Sieve::Sieve(int step, std::span<const Probe> probes, int everywhere) : step_(step) {
  probes_.everywhere = everywhere;
  const SieveLoops& loops = Loops();
  loop_ = step == 1 ? loops.step1 : step == 2 ? loops.step2 : loops.step4;
  for (std::size_t i = 0; i < SieveProbes::count; ++i) {
    const Probe& probe = i < probes.size() ? probes[i] : probes[0];  // missing probes repeat the first
    probes_.offset[i] = probe.offset;
    probes_.value[i] = probe.value;
    probes_.mask[i] = probe.mask & BitsOfStep(step);
  }
}

Offset Sieve::NextBlock(const std::uint8_t* start, Offset from, Offset last, SieveBits& bits) const {
  const Offset positions = (last - from) / step_ + 1;
  const std::uint8_t* const end = start + from + positions * step_;
  const std::uint8_t* const block = loop_(start + from, end, probes_, bits);
  const bool found = (bits.words[0] | bits.words[1]) != 0;
  if (!found && block < end)
    bits = step_ == 1   ? PlainBits<1>(block, end, probes_)
           : step_ == 2 ? PlainBits<2>(block, end, probes_)
                        : PlainBits<4>(block, end, probes_);
  return block - start;
}

}  // namespace tarvelo
