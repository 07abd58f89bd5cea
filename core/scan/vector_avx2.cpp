#include <immintrin.h>

#include "core/scan/vector_loops.h"

namespace tarvelo {
namespace {

struct Avx2Vector {
  static constexpr int width = 32;

  static Avx2Vector Load(const std::uint8_t* p) {
    return {_mm256_loadu_si256(reinterpret_cast<const __m256i*>(p))};
  }

  template <int step>
  static Avx2Vector Splat(std::uint32_t word) {
    if constexpr (step == 1) return {_mm256_set1_epi8(static_cast<char>(word))};
    if constexpr (step == 2) return {_mm256_set1_epi16(static_cast<short>(word))};
    return {_mm256_set1_epi32(static_cast<int>(word))};
  }

  template <int step>
  static Avx2Vector Equal(Avx2Vector a, Avx2Vector b) {
    if constexpr (step == 1) return {_mm256_cmpeq_epi8(a.v, b.v)};
    if constexpr (step == 2) return {_mm256_cmpeq_epi16(a.v, b.v)};
    return {_mm256_cmpeq_epi32(a.v, b.v)};
  }

  static std::uint32_t Bits(Avx2Vector a) { return static_cast<std::uint32_t>(_mm256_movemask_epi8(a.v)); }
  static void Prefetch(const std::uint8_t* p) { _mm_prefetch(reinterpret_cast<const char*>(p), _MM_HINT_T0); }

  friend Avx2Vector operator&(Avx2Vector a, Avx2Vector b) { return {_mm256_and_si256(a.v, b.v)}; }
  friend Avx2Vector operator|(Avx2Vector a, Avx2Vector b) { return {_mm256_or_si256(a.v, b.v)}; }

  __m256i v;
};

}  // namespace

const SieveLoops avx2Loops = loopsOver<Avx2Vector>;

}  // namespace tarvelo
