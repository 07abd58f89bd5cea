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

template <int step>
std::uint64_t PlainMarks(const std::uint8_t* block, const SieveProbes& probes) {
  std::uint64_t marks = 0;
  for (int i = 0; i < 64; ++i, block += SieveBits::positions) {
    const SieveBits bits = PlainBits<step>(block, block + SieveBits::positions, probes);
    marks |= std::uint64_t{(bits.words[0] | bits.words[1]) != 0} << i;
  }
  return marks;
}

bool PlainErased(const std::uint8_t* p, const std::uint8_t* end) {
  return std::all_of(p, end, [](std::uint8_t byte) { return byte == 0xFF; });
}

constexpr SieveLoops plainLoops{PlainLoop<1>,  PlainLoop<2>,  PlainLoop<4>, PlainMarks<1>,
                                PlainMarks<2>, PlainMarks<4>, PlainErased};

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

bool IsErased(Bytes bytes) { return Loops().erased(bytes.data(), bytes.data() + bytes.size()); }

Sieve::Sieve(int step, std::span<const Probe> probes, int everywhere) : step_(step) {
  probes_.everywhere = everywhere;
  const SieveLoops& loops = Loops();
  loop_ = step == 1 ? loops.step1 : step == 2 ? loops.step2 : loops.step4;
  mark_ = step == 1 ? loops.mark1 : step == 2 ? loops.mark2 : loops.mark4;
  for (std::size_t i = 0; i < SieveProbes::count; ++i) {
    const Probe& probe = i < probes.size() ? probes[i] : probes[0];  // missing probes repeat the first
    probes_.offset[i] = probe.offset;
    probes_.value[i] = probe.value;
    probes_.mask[i] = probe.mask & BitsOfStep(step);
  }
}

Sieve::Sieve(const SieveForm& form, std::span<const std::uint64_t> marks) : Sieve(form.step, form.probes) {
  marks_ = marks;
}

// The first position from `from` on in a block that is marked or lies behind the marks; behind `last` it may
// be any.
Offset Sieve::SkipUnmarked(Offset from, Offset last) const {
  const auto block = static_cast<std::size_t>(from / SieveBits::positions);
  std::size_t word = block / 64;
  if (word >= marks_.size()) return from;
  std::uint64_t marks = marks_[word] >> block % 64 << block % 64;
  const auto end = std::min(marks_.size(), static_cast<std::size_t>(last / SieveBits::positions / 64) + 1);
  while (marks == 0 && ++word < end) marks = marks_[word];
  const std::size_t next = word * 64 + (marks == 0 ? 0 : static_cast<std::size_t>(std::countr_zero(marks)));
  return std::max(from, static_cast<Offset>(next) * SieveBits::positions);
}

Offset Sieve::NextBlock(const std::uint8_t* start, Offset from, Offset last, SieveBits& bits) const {
  if (marks_.empty() || from % step_ != 0) return NextOfAll(start, from, last, bits);
  from = SkipUnmarked(from, last);
  bits = {};
  if (from <= last) NextOfAll(start, from, std::min(last, from + SieveBits::positions - step_), bits);
  return from;
}

Offset Sieve::NextOfAll(const std::uint8_t* start, Offset from, Offset last, SieveBits& bits) const {
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
