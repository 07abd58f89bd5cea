#include "patch/code_compare.h"

#include "patch/code_sides.h"

namespace tarvelo {
namespace {

const CodeUnit& UnitOf(const CodeUnits& units, int unit) {
  return units.units[static_cast<std::size_t>(unit)];
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
  if (pairing.IsSame(oldUnit)) {  // the usual case, without making the rows
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

}  // namespace

std::vector<ComparedFunction> CompareFunctions(const CodeVersions& versions) {
  const CodePairing& pairing = versions.Pairing();
  const auto count = [](const CodeUnits& units) { return static_cast<int>(units.units.size()); };
  std::vector<ComparedFunction> functions;
  for (int old = 0; old < count(pairing.Old()); ++old) {
    const CodeUnit& unit = UnitOf(pairing.Old(), old);
    const int now = pairing.NewOf(old);
    const bool isFunction = unit.isFunction || (now >= 0 && UnitOf(pairing.New(), now).isFunction);
    if (!isFunction) continue;
    if (now >= 0)
      functions.push_back(Compared(versions, old, now));
    else
      functions.push_back({.state = FunctionState::Gone, .oldUnit = old, .old = unit.code});
  }
  for (int now = 0; now < count(pairing.New()); ++now)
    if (const CodeUnit& unit = UnitOf(pairing.New(), now); unit.isFunction && pairing.OldOf(now) < 0)
      functions.push_back({.state = FunctionState::New, .newUnit = now, .now = unit.code});
  return functions;
}

}  // namespace tarvelo
