#include "versions/code_sides.h"

#include <algorithm>
#include <span>

namespace tarvelo {
namespace {

using CodeSpan = std::span<const UnitInstruction>;

// Instructions without a counterpart, beside one another.
void AddEdited(std::vector<CodeSide>& sides, CodeSpan old, CodeSpan now) {
  for (std::size_t i = 0; i < std::max(old.size(), now.size()); ++i) {
    CodeSide side{.mark = SideMark::Edited};
    if (i < old.size()) side.old = old[i];
    if (i < now.size()) side.now = now[i];
    sides.push_back(side);
  }
}

}  // namespace

SideMark MarkOf(const CodePairing& pairing, const UnitInstruction& old, int oldUnit,
                const UnitInstruction& now) {
  using enum Movable::Kind;
  const Movable::Kind kind = old.movable.kind;
  if (kind == None) return SideMark::Same;
  if (kind == Constant || kind == Member || kind != now.movable.kind)
    return old.movable == now.movable ? SideMark::Same : SideMark::Constant;
  const Verdict verdict = pairing.Judge(old, oldUnit, now);
  if (verdict == Verdict::Contradicts) return SideMark::Edited;
  const bool isKnown = verdict == Verdict::Agrees || kind == Code || old.movable == now.movable;
  return isKnown || pairing.Votes().Sure(old.movable) == now.movable.value ? SideMark::Same
                                                                           : SideMark::Constant;
}

std::vector<CodeSide> SidesOf(const CodePairing& pairing, int oldUnit, int newUnit) {
  const CodeSpan old = oldUnit < 0 ? CodeSpan() : pairing.OldCode(oldUnit);
  const CodeSpan now = newUnit < 0 ? CodeSpan() : pairing.NewCode(newUnit);
  std::vector<CodeSide> sides;
  const bool hasBoth = oldUnit >= 0 && newUnit >= 0;
  const bool isSame = hasBoth && pairing.NewOf(oldUnit) == newUnit && pairing.IsSame(oldUnit);
  const std::vector<int> pairs = hasBoth && !isSame ? pairing.Aligned(oldUnit, newUnit) : std::vector<int>();
  std::size_t from = 0;
  std::size_t nowFrom = 0;
  for (std::size_t i = 0; hasBoth && i < old.size(); ++i) {
    const int pair = isSame ? static_cast<int>(i) : pairs[i];
    if (pair < 0) continue;
    const auto to = static_cast<std::size_t>(pair);
    AddEdited(sides, old.subspan(from, i - from), now.subspan(nowFrom, to - nowFrom));
    sides.push_back({old[i], now[to], MarkOf(pairing, old[i], oldUnit, now[to])});
    from = i + 1;
    nowFrom = to + 1;
  }
  AddEdited(sides, old.subspan(from), now.subspan(nowFrom));
  return sides;
}

}  // namespace tarvelo
