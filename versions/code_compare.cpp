#include "versions/code_compare.h"

#include "versions/code_sides.h"

namespace tarvelo {
namespace {

const CodeUnit& UnitOf(const CodeUnits& units, int unit) {
  return units.units[static_cast<std::size_t>(unit)];
}

// Whether two units agree in every instruction, but for what moves.
bool AreAlike(const CodePairing& pairing, int oldUnit, int newUnit) {
  return UnitOf(pairing.Old(), oldUnit).hash == UnitOf(pairing.New(), newUnit).hash;
}

void Count(ComparedFunction& function, SideMark mark) {
  if (mark == SideMark::Edited) ++function.edited;
  if (mark == SideMark::Constant) ++function.constants;
}

ComparedFunction Compared(const CodeVersions& versions, int oldUnit, int newUnit) {
  const CodePairing& pairing = versions.Pairing();
  ComparedFunction function{.oldUnit = oldUnit,
                            .newUnit = newUnit,
                            .old = UnitOf(pairing.Old(), oldUnit).code,
                            .now = UnitOf(pairing.New(), newUnit).code};
  if (AreAlike(pairing, oldUnit, newUnit)) {  // the usual case, without making the rows
    const auto old = pairing.OldCode(oldUnit);
    const auto now = pairing.NewCode(newUnit);
    for (std::size_t i = 0; i < old.size(); ++i) Count(function, MarkOf(pairing, old[i], oldUnit, now[i]));
  } else {
    for (const CodeSide& side : SidesOf(pairing, oldUnit, newUnit)) Count(function, side.mark);
  }
  const bool isThere =
      versions.Old().PhoneAddress(function.old.offset) == versions.New().PhoneAddress(function.now.offset);
  function.state = function.edited > 0 ? FunctionState::Changed
                   : isThere           ? FunctionState::Same
                                       : FunctionState::Moved;
  return function;
}

// The new unit that is paired with an old one. Of twins that nothing tells apart, it is the one at the same
// address. -1: none.
int NewOf(const CodeVersions& versions, int oldUnit) {
  const CodePairing& pairing = versions.Pairing();
  if (const int paired = pairing.NewOf(oldUnit); paired >= 0) return paired;
  const Offset place = UnitOf(pairing.Old(), oldUnit).code.offset;
  const int now = pairing.NewUnitFrom(versions.Old().PhoneAddress(place));
  return now >= 0 && pairing.OldOf(now) < 0 && AreAlike(pairing, oldUnit, now) ? now : -1;
}

}  // namespace

std::vector<ComparedFunction> CompareFunctions(const CodeVersions& versions) {
  const CodePairing& pairing = versions.Pairing();
  const auto count = [](const CodeUnits& units) { return static_cast<int>(units.units.size()); };
  std::vector<ComparedFunction> functions;
  std::vector<bool> isListed(pairing.New().units.size());
  for (int old = 0; old < count(pairing.Old()); ++old) {
    const CodeUnit& unit = UnitOf(pairing.Old(), old);
    const int now = NewOf(versions, old);
    if (now >= 0) isListed[static_cast<std::size_t>(now)] = true;
    const bool isFunction = unit.isFunction || (now >= 0 && UnitOf(pairing.New(), now).isFunction);
    if (!isFunction) continue;
    if (now >= 0)
      functions.push_back(Compared(versions, old, now));
    else
      functions.push_back({.state = FunctionState::Gone, .oldUnit = old, .old = unit.code});
  }
  for (int now = 0; now < count(pairing.New()); ++now)
    if (const CodeUnit& unit = UnitOf(pairing.New(), now);
        unit.isFunction && !isListed[static_cast<std::size_t>(now)])
      functions.push_back({.state = FunctionState::New, .newUnit = now, .now = unit.code});
  return functions;
}

}  // namespace tarvelo
