#include "versions/code_pairing.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <map>
#include <unordered_map>
#include <utility>

namespace tarvelo {
namespace {

constexpr std::uint32_t fewestUnique = 12;  // instructions that make a unit its own proof
constexpr double likeEnough = 0.6;          // share of instructions that edited units have in common
constexpr int longestGap = 40;              // units between pairs that are compared with each other
constexpr std::size_t largestFamily = 64;   // twins that are compared with each other
constexpr int mostRounds = 8;
constexpr std::uint32_t sureUnique = 24;  // instructions that need no other evidence
constexpr int sureAgreeing = 3;           // operands that are enough
constexpr int farthestUnique = 8;         // units to one that has no twin

std::uint64_t PairKey(int oldUnit, int newUnit) {
  return static_cast<std::uint64_t>(oldUnit) << 32 | static_cast<std::uint32_t>(newUnit);
}

std::size_t At(int i) { return static_cast<std::size_t>(i); }

// The hashes that several units have.
void AddRepeated(const CodeUnits& units, std::vector<std::uint64_t>& repeated) {
  std::vector<std::uint64_t> hashes;
  hashes.reserve(units.units.size());
  for (const CodeUnit& unit : units.units) hashes.push_back(unit.hash);
  std::ranges::sort(hashes);
  for (std::size_t i = 1; i < hashes.size(); ++i)
    if (hashes[i] == hashes[i - 1]) repeated.push_back(hashes[i]);
}

}  // namespace

CodePairing::CodePairing(const CodeUnits& old, std::uint32_t oldBase, const CodeUnits& now,
                         std::uint32_t nowBase, Progress& progress)
    : old_(old),
      now_(now),
      oldBase_(oldBase),
      nowBase_(nowBase),
      newOf_(old.units.size(), -1),
      oldOf_(now.units.size(), -1) {
  AddRepeated(old, twins_);
  AddRepeated(now, twins_);
  std::ranges::sort(twins_);
  constexpr void (CodePairing::*steps[])() = {&CodePairing::CollectVotes, &CodePairing::GiveUpContradicted,
                                              &CodePairing::PairCalled,   &CodePairing::PairNeighbours,
                                              &CodePairing::PairTwins,    &CodePairing::PairUnique};
  constexpr int count = std::ssize(steps);
  ProgressRun run(progress, 0, mostRounds * count);
  PairUnique();
  for (int round = 0; round < mostRounds; ++round) {
    const std::vector<int> before = newOf_;
    for (int step = 0; step < count; ++step) {
      run.At(round * count + step);
      (this->*steps[step])();
    }
    if (newOf_ == before) break;
  }
  CollectVotes();
  GiveUpContradicted();
}

std::span<const UnitInstruction> CodePairing::CodeOf(const CodeUnits& units, int unit) {
  const CodeUnit& found = units.units[At(unit)];
  return std::span(units.instructions).subspan(found.first, found.count);
}

bool CodePairing::IsSame(int oldUnit) const {
  const int newUnit = NewOf(oldUnit);
  return newUnit >= 0 && old_.units[At(oldUnit)].hash == now_.units[At(newUnit)].hash;
}

bool CodePairing::HasTwins(int oldUnit) const {
  return std::ranges::binary_search(twins_, old_.units[At(oldUnit)].hash);
}

OperandVotes::Tally CodePairing::CallsOf(int oldUnit, int newUnit) const {
  const auto address = static_cast<std::uint32_t>(old_.units[At(oldUnit)].code.offset) + oldBase_;
  const auto nowAddress = static_cast<std::uint32_t>(now_.units[At(newUnit)].code.offset) + nowBase_;
  return votes_.On({Movable::Kind::Code, address}, {Movable::Kind::Code, nowAddress}, oldUnit);
}

bool CodePairing::IsSure(int oldUnit) const {
  const int newUnit = NewOf(oldUnit);
  if (newUnit < 0) return false;
  const OperandVotes::Tally calls = CallsOf(oldUnit, newUnit);
  if (calls.all > 0) return calls.agreeing * 4 >= calls.all * 3;
  if (IsSame(oldUnit) && IsBetweenPairs(oldUnit, -1) && IsBetweenPairs(oldUnit, 1))
    return Weigh(oldUnit, newUnit).contradicting == 0;
  if (HasTwins(oldUnit)) return false;
  const Balance balance = Weigh(oldUnit, newUnit);
  if (IsSame(oldUnit))
    return balance.contradicting == 0 &&
           (balance.agreeing >= sureAgreeing || old_.units[At(oldUnit)].count >= sureUnique);
  return Aligned(oldUnit, newUnit)[0] == 0 && balance.agreeing >= sureAgreeing;
}

// Whether units in one direction are pairs one by one, up to one that nothing else is like.
bool CodePairing::IsBetweenPairs(int oldUnit, int step) const {
  const int newUnit = NewOf(oldUnit);
  for (int k = step; std::abs(k) <= farthestUnique; k += step) {
    const int old = oldUnit + k;
    if (old < 0 || At(old) >= newOf_.size() || NewOf(old) != newUnit + k || !IsSame(old)) return false;
    if (!HasTwins(old) && old_.units[At(old)].count >= fewestUnique) return true;
  }
  return false;
}

bool CodePairing::Pair(int oldUnit, int newUnit) {
  if (newOf_[At(oldUnit)] >= 0 || oldOf_[At(newUnit)] >= 0) return false;
  if (std::ranges::binary_search(refused_, PairKey(oldUnit, newUnit))) return false;
  newOf_[At(oldUnit)] = newUnit;
  oldOf_[At(newUnit)] = oldUnit;
  return true;
}

void CodePairing::PairUnique() {
  struct Found {
    int old = -1;
    int now = -1;
    bool isUnique = true;
  };
  std::unordered_map<std::uint64_t, Found> byHash;
  const auto collect = [&](const CodeUnits& units, const std::vector<int>& pairs, int Found::*side) {
    for (std::size_t i = 0; i < units.units.size(); ++i) {
      if (pairs[i] >= 0 || units.units[i].count < fewestUnique) continue;
      Found& found = byHash[units.units[i].hash];
      if (found.*side >= 0) found.isUnique = false;
      found.*side = static_cast<int>(i);
    }
  };
  collect(old_, newOf_, &Found::old);
  collect(now_, oldOf_, &Found::now);
  // In the order of the units, because each pair is evidence for the next ones.
  for (std::size_t i = 0; i < newOf_.size(); ++i) {
    const auto found = byHash.find(old_.units[i].hash);
    if (found == byHash.end()) continue;
    const auto& [old, now, isUnique] = found->second;
    if (old == static_cast<int>(i) && now >= 0 && isUnique &&
        (votes_.IsEmpty() || Weigh(old, now).contradicting == 0))
      Pair(old, now);
  }
}

void CodePairing::PairNeighbours() {
  const int oldCount = static_cast<int>(newOf_.size());
  const int newCount = static_cast<int>(oldOf_.size());
  for (int i = 0; i < oldCount; ++i) {
    if (newOf_[At(i)] < 0) continue;
    int oldEnd = i + 1;
    while (oldEnd < oldCount && newOf_[At(oldEnd)] < 0) ++oldEnd;
    const int newFrom = newOf_[At(i)] + 1;
    int newEnd = newFrom;
    while (newEnd < newCount && oldOf_[At(newEnd)] < 0) ++newEnd;
    const bool isClosed = oldEnd < oldCount && newEnd < newCount && newOf_[At(oldEnd)] == newEnd;
    if (isClosed) PairGap(i + 1, oldEnd, newFrom, newEnd);
  }
}

void CodePairing::PairGap(int oldFrom, int oldEnd, int newFrom, int newEnd) {
  const bool hasSameCount = oldEnd - oldFrom == newEnd - newFrom;
  // From both ends, as long as the units are the same.
  while (oldFrom < oldEnd && newFrom < newEnd &&
         old_.units[At(oldFrom)].hash == now_.units[At(newFrom)].hash &&
         (hasSameCount || old_.units[At(oldFrom)].count >= fewestUnique) &&
         Weigh(oldFrom, newFrom).contradicting == 0 && Pair(oldFrom, newFrom))
    ++oldFrom, ++newFrom;
  while (oldFrom < oldEnd && newFrom < newEnd &&
         old_.units[At(oldEnd - 1)].hash == now_.units[At(newEnd - 1)].hash &&
         (hasSameCount || old_.units[At(oldEnd - 1)].count >= fewestUnique) &&
         Weigh(oldEnd - 1, newEnd - 1).contradicting == 0 && Pair(oldEnd - 1, newEnd - 1))
    --oldEnd, --newEnd;
  PairEdited(oldFrom, oldEnd, newFrom, newEnd);
}

// The most alike units between two pairs, in order.
void CodePairing::PairEdited(int oldFrom, int oldEnd, int newFrom, int newEnd) {
  const int rows = oldEnd - oldFrom;
  const int columns = newEnd - newFrom;
  if (rows <= 0 || columns <= 0 || rows > longestGap || columns > longestGap) return;
  const auto width = At(columns + 1);
  std::vector<double> best(At(rows + 1) * width, 0);
  for (int i = 0; i < rows; ++i)
    for (int j = 0; j < columns; ++j) {
      const double alike = Likeness(oldFrom + i, newFrom + j);
      const std::size_t cell = At(i + 1) * width + At(j + 1);
      best[cell] = std::max(best[cell - 1], best[cell - width]);
      if (alike >= likeEnough) best[cell] = std::max(best[cell], best[cell - width - 1] + alike);
    }
  for (int i = rows, j = columns; i > 0 && j > 0;) {
    const std::size_t cell = At(i) * width + At(j);
    if (best[cell] == best[cell - 1]) {
      --j;
    } else if (best[cell] == best[cell - width]) {
      --i;
    } else {
      Pair(oldFrom + i - 1, newFrom + j - 1);
      --i, --j;
    }
  }
}

// The share of instructions that two units have in common, 0 .. 1; 0 for units that are too short to tell, or
// that the votes keep apart.
double CodePairing::Likeness(int oldUnit, int newUnit) const {
  const auto old = OldCode(oldUnit);
  const auto now = NewCode(newUnit);
  if (std::min(old.size(), now.size()) < 8 ||
      std::max(old.size(), now.size()) > 3 * std::min(old.size(), now.size()))
    return 0;
  const auto sorted = [](std::span<const UnitInstruction> code) {
    std::vector<std::uint32_t> tokens;
    for (const UnitInstruction& instruction : code) tokens.push_back(instruction.token);
    std::ranges::sort(tokens);
    return tokens;
  };
  std::vector<std::uint32_t> common;
  std::ranges::set_intersection(sorted(old), sorted(now), std::back_inserter(common));
  const double quick =
      2.0 * static_cast<double>(common.size()) / static_cast<double>(old.size() + now.size());
  if (quick < likeEnough) return 0;
  const std::vector<int> pairs = Aligned(oldUnit, newUnit);
  const auto aligned = static_cast<double>(std::ranges::count_if(pairs, [](int pair) { return pair >= 0; }));
  return 2.0 * aligned / static_cast<double>(old.size() + now.size());
}

// Paired code calls units at the same places.
void CodePairing::PairCalled() {
  for (std::size_t i = 0; i < newOf_.size(); ++i) {
    if (newOf_[i] >= 0) continue;
    const auto address = static_cast<std::uint32_t>(old_.units[i].code.offset) + oldBase_;
    const auto winner = votes_.Best({Movable::Kind::Code, address}, static_cast<int>(i));
    if (winner.tally.agreeing == 0 || winner.tally.agreeing * 4 < winner.tally.all * 3) continue;
    const int now = NewUnitFrom(winner.value);
    if (now < 0 || oldOf_[At(now)] >= 0) continue;
    const bool isSame = old_.units[i].hash == now_.units[At(now)].hash;
    if (!isSame && Likeness(static_cast<int>(i), now) < likeEnough - 0.1) continue;
    const Balance balance = Weigh(static_cast<int>(i), now);
    if (balance.contradicting * 4 > balance.agreeing) continue;
    Pair(static_cast<int>(i), now);
  }
}

// Units that are equal but for what moves: each pairs with the one that its operands speak for.
void CodePairing::PairTwins() {
  struct Family {
    std::vector<int> old, now;
  };
  std::map<std::uint64_t, Family> families;  // in an order that is the same on every machine
  for (std::size_t i = 0; i < newOf_.size(); ++i)
    if (newOf_[i] < 0) families[old_.units[i].hash].old.push_back(static_cast<int>(i));
  for (std::size_t i = 0; i < oldOf_.size(); ++i)
    if (oldOf_[i] < 0)
      if (const auto found = families.find(now_.units[i].hash); found != families.end())
        found->second.now.push_back(static_cast<int>(i));
  for (const auto& [hash, family] : families) {
    if (family.old.size() * family.now.size() > largestFamily * largestFamily) continue;
    for (const int old : family.old) {
      std::vector<int> possible;
      int bestAgreeing = 0;
      for (const int now : family.now) {
        const Balance balance = Weigh(old, now);
        if (balance.contradicting > 0) continue;
        possible.push_back(now);
        bestAgreeing = std::max(bestAgreeing, balance.agreeing);
      }
      if (possible.size() != 1 || bestAgreeing < 2) continue;
      // The way back must lead home.
      const auto speaksFor = [&](int other) {
        return other != old && Weigh(other, possible[0]).contradicting == 0;
      };
      if (std::ranges::none_of(family.old, speaksFor)) Pair(old, possible[0]);
    }
  }
}

void CodePairing::GiveUpContradicted() {
  std::vector<std::uint64_t> given;
  for (std::size_t i = 0; i < newOf_.size(); ++i) {
    if (newOf_[i] < 0) continue;
    const Balance balance = Weigh(static_cast<int>(i), newOf_[i]);
    if (balance.contradicting >= 2 && balance.contradicting * 3 > balance.agreeing)
      given.push_back(PairKey(static_cast<int>(i), newOf_[i]));
  }
  for (const std::uint64_t pair : given) {
    oldOf_[pair & 0xFFFFFFFF] = -1;
    newOf_[pair >> 32] = -1;
  }
  refused_.insert(refused_.end(), given.begin(), given.end());
  std::ranges::sort(refused_);
}

}  // namespace tarvelo
