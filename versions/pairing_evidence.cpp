// What paired code says about other code: votes on where its operands went, and verdicts from them.
#include <algorithm>
#include <utility>

#include "versions/alignment.h"
#include "versions/code_pairing.h"

namespace tarvelo {
namespace {

constexpr int votingRun = 24;  // agreeing instructions that may vote

std::size_t Index(int i) { return static_cast<std::size_t>(i); }

}  // namespace

void CodePairing::CollectVotes() {
  OperandVotes votes;
  for (std::size_t i = 0; i < newOf_.size(); ++i) {
    if (newOf_[i] < 0) continue;
    const int unit = static_cast<int>(i);
    const auto old = OldCode(unit);
    const auto now = NewCode(newOf_[i]);
    const bool isSame = IsSame(unit);
    const bool areFunctions = AreFunctions(unit, newOf_[i]);
    const std::vector<int> pairs = isSame ? std::vector<int>() : Aligned(unit, newOf_[i]);
    const auto pairOf = [&](std::size_t k) { return isSame ? static_cast<int>(k) : pairs[k]; };
    for (std::size_t from = 0; from < old.size();) {
      std::size_t end = from + 1;
      while (end < old.size() && pairOf(from) >= 0 && pairOf(end) == pairOf(end - 1) + 1) ++end;
      // A short piece between functions may as well be data.
      const bool isWhole = isSame && areFunctions;
      if (pairOf(from) >= 0 && (isWhole || static_cast<int>(end - from) >= votingRun)) {
        for (std::size_t k = from; k < end; ++k)
          if (const Movable& movable = old[k].movable; movable.kind != Movable::Kind::None &&
                                                       movable.kind != Movable::Kind::Member &&
                                                       movable.kind != Movable::Kind::Constant)
            votes.Add(movable, now[Index(pairOf(k))].movable, unit, areFunctions);
        AddSecondBits(votes, unit, from, end, pairOf(from) - static_cast<int>(from));
      }
      from = end;
    }
  }
  votes.Count();
  votes_ = std::move(votes);
}

bool CodePairing::AreFunctions(int oldUnit, int newUnit) const {
  return old_.units[Index(oldUnit)].isFunction && now_.units[Index(newUnit)].isFunction;
}

// Of the instructions from .. end - 1 of a unit, which its pair has `shift` further on.
void CodePairing::AddSecondBits(OperandVotes& votes, int oldUnit, std::size_t from, std::size_t end,
                                int shift) const {
  const std::size_t first = old_.units[Index(oldUnit)].first;
  const std::size_t newFirst = now_.units[Index(newOf_[Index(oldUnit)])].first;
  const auto at = [](const CodeUnits& units, std::size_t instruction) {
    return std::ranges::lower_bound(units.secondBits, instruction, {}, &SecondBit::instruction);
  };
  for (auto old = at(old_, first + from); old != old_.secondBits.end() && old->instruction < first + end;
       ++old) {
    const std::size_t there = old->instruction - first + newFirst + static_cast<std::size_t>(shift);
    if (const auto now = at(now_, there); now != now_.secondBits.end() && now->instruction == there)
      votes.Add(old->bit, now->bit, oldUnit, AreFunctions(oldUnit, newOf_[Index(oldUnit)]));
  }
}

std::vector<int> CodePairing::Aligned(int oldUnit, int newUnit) const {
  return Align(OldCode(oldUnit), NewCode(newUnit),
               [&](const UnitInstruction& old, const UnitInstruction& now) {
                 return Judge(old, oldUnit, now) != Verdict::Contradicts;
               });
}

Verdict CodePairing::JudgeUnits(int oldUnit, int newUnit) const {
  if (newOf_[Index(oldUnit)] == newUnit) return Verdict::Agrees;
  return newOf_[Index(oldUnit)] >= 0 || oldOf_[Index(newUnit)] >= 0 ? Verdict::Contradicts : Verdict::Unknown;
}

Verdict CodePairing::Judge(const UnitInstruction& old, int oldUnit, const UnitInstruction& now) const {
  using enum Movable::Kind;
  if (old.movable.kind != now.movable.kind) return Verdict::Unknown;
  switch (old.movable.kind) {
    case None:
    case Member:
    case Constant: return Verdict::Unknown;
    case Code: {
      const int oldTarget = OldUnitFrom(old.movable.value);
      const int newTarget = NewUnitFrom(now.movable.value);
      if (oldTarget >= 0 && newTarget >= 0) return JudgeUnits(oldTarget, newTarget);
      break;
    }
    case Near:
    case Address:
    case Bit: break;
  }
  const OperandVotes::Tally tally = votes_.On(old.movable, now.movable, oldUnit);
  if (tally.agreeing > 0 && tally.agreeing * 2 > tally.all) return Verdict::Agrees;
  if (tally.agreeing == 0 && tally.all >= 2) return Verdict::Contradicts;
  return Verdict::Unknown;
}

CodePairing::Balance CodePairing::Weigh(int oldUnit, int newUnit) const {
  const auto old = OldCode(oldUnit);
  const auto now = NewCode(newUnit);
  Balance balance;
  const auto weigh = [&](const UnitInstruction& a, const UnitInstruction& b) {
    const Verdict verdict = Judge(a, oldUnit, b);
    if (verdict == Verdict::Agrees) ++balance.agreeing;
    if (verdict == Verdict::Contradicts) ++balance.contradicting;
  };
  const bool isSame = old_.units[Index(oldUnit)].hash == now_.units[Index(newUnit)].hash;
  if (isSame) {
    for (std::size_t k = 0; k < old.size(); ++k) weigh(old[k], now[k]);
    // Who calls it speaks, too.
    const OperandVotes::Tally tally = CallsOf(oldUnit, newUnit);
    balance.agreeing += tally.agreeing;
    balance.contradicting += tally.all - tally.agreeing;
    return balance;
  }
  const std::vector<int> pairs = Aligned(oldUnit, newUnit);
  for (std::size_t k = 0; k < pairs.size(); ++k)
    if (pairs[k] >= 0) weigh(old[k], now[Index(pairs[k])]);
  return balance;
}

}  // namespace tarvelo
