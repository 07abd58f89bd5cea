#include "document/short_texts.h"

#include <algorithm>
#include <string_view>

namespace tarvelo {
namespace {

constexpr Offset shortestRun = 10;  // bytes

bool IsLetter(std::uint8_t b) { return (b >= 'A' && b <= 'Z') || (b >= 'a' && b <= 'z'); }

bool IsOfPlainText(std::uint8_t b) {
  constexpr std::string_view signs = " .,:;-!?'()/%";
  return IsLetter(b) || (b >= '0' && b <= '9') || signs.find(static_cast<char>(b)) != signs.npos;
}

}  // namespace

std::vector<Region> ShortTexts(Bytes image, const Region& within) {
  std::vector<Region> texts;
  const auto at = [image](Offset p) { return image[static_cast<std::size_t>(p)]; };
  Offset done = within.offset;
  // Each run has one of these offsets, so most bytes need no look.
  for (Offset p = within.offset + shortestRun - 1; p < within.End(); p += shortestRun) {
    if (p < done || !IsOfPlainText(at(p))) continue;
    Offset first = p, end = p + 1;
    while (first > done && IsOfPlainText(at(first - 1))) --first;
    while (end < within.End() && IsOfPlainText(at(end))) ++end;
    done = end;
    const Bytes run = image.subspan(static_cast<std::size_t>(first), static_cast<std::size_t>(end - first));
    if (end - first < shortestRun || std::ranges::count_if(run, IsLetter) * 2 < end - first) continue;
    if (end < within.End() && at(end) == 0) ++end;
    texts.push_back({first, end - first});
    done = end;
  }
  return texts;
}

}  // namespace tarvelo
