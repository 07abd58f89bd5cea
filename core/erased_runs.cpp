#include "core/erased_runs.h"

#include <cstring>

namespace tarvelo {
namespace {

constexpr Offset shortestErased = 256;

bool IsErased(Bytes image, Offset p) { return image[static_cast<std::size_t>(p)] == 0xFF; }

Offset EndOfErased(Bytes image, Offset p) {
  const auto end = static_cast<Offset>(image.size());
  constexpr std::uint64_t erased = ~std::uint64_t{0};
  for (std::uint64_t word = erased; p + 8 <= end; p += 8) {
    std::memcpy(&word, image.data() + p, 8);
    if (word != erased) break;
  }
  while (p < end && IsErased(image, p)) ++p;
  return p;
}

}  // namespace

std::vector<Region> ErasedRuns(Bytes image) {
  std::vector<Region> runs;
  Offset known = 0;  // the end of the last run looked at
  // A run that is long enough contains one of these offsets.
  for (Offset p = shortestErased - 1; p < static_cast<Offset>(image.size()); p += shortestErased) {
    if (p < known || !IsErased(image, p)) continue;
    Offset begin = p;
    while (begin > known && IsErased(image, begin - 1)) --begin;
    known = EndOfErased(image, p);
    if (known - begin >= shortestErased) runs.push_back({begin, known - begin});
  }
  return runs;
}

}  // namespace tarvelo
