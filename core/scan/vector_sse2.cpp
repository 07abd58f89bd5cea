#include <emmintrin.h>

#include "core/scan/vector_loops.h"

namespace tarvelo {
namespace {

struct Sse2Vector {
  static constexpr int width = 16;

  static Sse2Vector Load(const std::uint8_t* p) {
    return {_mm_loadu_si128(reinterpret_cast<const __m128i*>(p))};
  }

  template <int step>
  static Sse2Vector Splat(std::uint32_t word) {
    if constexpr (step == 1) return {_mm_set1_epi8(static_cast<char>(word))};
    if constexpr (step == 2) return {_mm_set1_epi16(static_cast<short>(word))};
    return {_mm_set1_epi32(static_cast<int>(word))};
  }

  template <int step>
  static Sse2Vector Equal(Sse2Vector a, Sse2Vector b) {
    if constexpr (step == 1) return {_mm_cmpeq_epi8(a.v, b.v)};
    if constexpr (step == 2) return {_mm_cmpeq_epi16(a.v, b.v)};
    return {_mm_cmpeq_epi32(a.v, b.v)};
  }

  static std::uint32_t Bits(Sse2Vector a) { return static_cast<std::uint32_t>(_mm_movemask_epi8(a.v)); }
  static void Prefetch(const std::uint8_t* p) { _mm_prefetch(reinterpret_cast<const char*>(p), _MM_HINT_T0); }

  friend Sse2Vector operator&(Sse2Vector a, Sse2Vector b) { return {_mm_and_si128(a.v, b.v)}; }
  friend Sse2Vector operator|(Sse2Vector a, Sse2Vector b) { return {_mm_or_si128(a.v, b.v)}; }

  __m128i v;
};

}  // namespace

const SieveLoops sse2Loops = loopsOver<Sse2Vector>;

}  // namespace tarvelo
