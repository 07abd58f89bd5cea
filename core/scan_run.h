// A scan of a whole image that shows its progress.
#pragma once

#include <algorithm>

#include "core/progress.h"
#include "core/scan/vector_scan.h"

namespace tarvelo {

// Gives take(position) the positions from, from + step, ... last at which the probes match, in order, until
// it returns true. Reports the position at `from` and at multiples of 0x8000. All probes of all positions
// must lie within the bytes; `from` is a multiple of `step`, which is 1, 2 or 4.
template <typename Take>
void ScanWithProgress(Bytes bytes, const Sieve& sieve, int step, Offset from, Offset last,
                      ProgressRun& progress, Take take) {
  constexpr Offset piece = 0x8000;
  for (Offset p = from; p <= last;) {
    progress.At(p);
    const Offset end = std::min(last, (p / piece + 1) * piece - step);
    if (sieve.Each(bytes, p, end, take)) return;
    p = end + step;
  }
}

}  // namespace tarvelo
