#include "patch/pattern_walk.h"

#include <algorithm>

namespace tarvelo {
namespace {

// How many starts each step backwards tries: few at first, because occurrences are often close together.
constexpr Offset firstStep = 0x1000;
constexpr Offset largestStep = 0x100000;

// The number of offsets at which the pattern could begin.
Offset PossibleStarts(const Fullflash& image, const Pattern& pattern) {
  if (!image.IsOpen() || pattern.PatCount() == 0) return 0;
  return std::max<Offset>(0, static_cast<Offset>(image.ff().size()) - pattern.PatCount() + 1);
}

// The last occurrence that begins at from .. from + starts - 1, or -1.
//
// Searches a copy with one byte more than an occurrence can touch: FindPat skips only starts whose match
// would end on the last byte.
Offset LastIn(const Fullflash& image, const Pattern& pattern, Offset from, Offset starts) {
  const Bytes bytes = image.ff().subspan(static_cast<std::size_t>(from));
  const auto wanted = static_cast<std::size_t>(starts + pattern.PatCount());
  FileBytes copy(wanted);
  copy.data[wanted - 1] = 0;
  std::ranges::copy(bytes.first(std::min(bytes.size(), wanted)), copy.data.get());
  const Fullflash window(std::move(copy));
  Offset last = -1;
  for (Offset hit = pattern.FindPat(window, 0); hit >= 0 && hit < starts;
       hit = pattern.FindPat(window, hit + 1))
    last = hit;
  return last < 0 ? -1 : from + last;
}

}  // namespace

Offset FirstFrom(const Fullflash& image, const Pattern& pattern, Offset start) {
  const Offset starts = PossibleStarts(image, pattern);
  start = std::max<Offset>(start, 0);
  if (start >= starts) return -1;
  const Offset hit = pattern.FindPat(image, start);
  return hit >= 0 ? hit : LastIn(image, pattern, starts - 1, 1);
}

Offset LastBefore(const Fullflash& image, const Pattern& pattern, Offset end) {
  Offset step = std::max<Offset>(firstStep, pattern.PatCount());
  for (Offset behind = std::min(end, PossibleStarts(image, pattern)); behind > 0;) {
    const Offset from = std::max<Offset>(0, behind - step);
    const Offset hit = LastIn(image, pattern, from, behind - from);
    if (hit >= 0) return hit;
    behind = from;
    step = std::max(step, std::min(2 * step, largestStep));
  }
  return -1;
}

// Asks the progress once in 64 KiB.
std::optional<std::vector<Offset>> SeparateHits(const Fullflash& image, const Pattern& pattern,
                                                Progress& progress, std::size_t most) {
  constexpr Offset step = 0x10000;
  ProgressRun run(progress, 0, image.ffEnd());
  std::vector<Offset> hits;
  Offset asked = 0;
  for (Offset hit = FirstFrom(image, pattern, 0); hit >= 0 && hits.size() <= most;
       hit = FirstFrom(image, pattern, hit + pattern.PatCount())) {
    hits.push_back(hit);
    if (hit < asked + step) continue;
    asked = hit;
    run.At(hit);
    if (run.StopAsked()) return {};
  }
  return hits;
}

}  // namespace tarvelo
