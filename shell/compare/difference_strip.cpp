#include "shell/compare/difference_strip.h"

#include <algorithm>

namespace tarvelo {
namespace {

constexpr Offset stripCells = 1024;

}  // namespace

std::vector<StripPart> StripOf(const Comparison& comparison, Offset imageSize, const wxColour& colour) {
  const Offset cell = imageSize / stripCells + 1;
  const Offset compared = comparison.start + comparison.common;
  std::vector<StripPart> parts;
  for (const Difference& difference : comparison.differences) {
    const Offset begin = std::max(difference.offset / cell * cell, comparison.start);
    const Offset end = std::min((difference.End() + cell - 1) / cell * cell, compared);
    if (!parts.empty() && begin <= parts.back().offset + parts.back().size)
      parts.back().size = end - parts.back().offset;
    else
      parts.push_back({begin, end - begin, colour});
  }
  return parts;
}

}  // namespace tarvelo
