#include "versions/operand_votes.h"

#include <algorithm>

namespace tarvelo {
namespace {

constexpr int fewestVotes = 2;
constexpr int neighbours = 4;  // operands on each side

std::uint64_t KeyOf(const Movable& movable) {
  return static_cast<std::uint64_t>(movable.kind) << 32 | movable.value;
}

}  // namespace

void OperandVotes::Add(const Movable& old, const Movable& now, int unit, bool isFunction) {
  if (old.kind == now.kind) votes_.push_back({KeyOf(old), now.value, unit, isFunction});
}

void OperandVotes::Count() {
  // One vote per unit: a loop over one variable is one witness.
  std::ranges::sort(votes_);
  votes_.erase(std::unique(votes_.begin(), votes_.end()), votes_.end());
  pairs_.clear();
  for (std::uint32_t i = 0; i < votes_.size(); ++i) {
    const Vote& vote = votes_[i];
    if (pairs_.empty() || pairs_.back().old != vote.old || pairs_.back().now != vote.now)
      pairs_.push_back({vote.old, vote.now, i, i});
    ++pairs_.back().end;
  }
}

std::span<const OperandVotes::Pair> OperandVotes::PairsOf(const Movable& old) const {
  const std::uint64_t key = KeyOf(old);
  const auto first = std::ranges::lower_bound(pairs_, key, {}, &Pair::old);
  auto last = first;
  while (last != pairs_.end() && last->old == key) ++last;
  return {first, last};
}

int OperandVotes::CountOf(const Pair& pair, int without) const {
  const auto first = votes_.begin() + pair.first;
  const auto last = votes_.begin() + pair.end;
  const auto own = std::lower_bound(first, last, Vote{pair.old, pair.now, without, false});
  return static_cast<int>(pair.end - pair.first) - (own != last && own->unit == without ? 1 : 0);
}

OperandVotes::Tally OperandVotes::On(const Movable& old, const Movable& now, int without) const {
  Tally tally;
  for (const Pair& pair : PairsOf(old)) {
    const int votes = CountOf(pair, without);
    tally.all += votes;
    if (pair.now == now.value) tally.agreeing += votes;
  }
  return tally;
}

OperandVotes::Winner OperandVotes::Best(const Movable& old, int without) const {
  Winner winner;
  int all = 0;
  for (const Pair& pair : PairsOf(old)) {
    const int votes = CountOf(pair, without);
    all += votes;
    if (votes > winner.tally.agreeing) winner = {pair.now, {votes, 0}};
  }
  winner.tally.all = all;
  return winner;
}

std::optional<std::uint32_t> OperandVotes::Voted(const Movable& old) const {
  const Winner winner = Best(old, -1);
  if (winner.tally.agreeing < fewestVotes || winner.tally.agreeing * 10 < winner.tally.all * 9) return {};
  return winner.value;
}

std::optional<std::uint32_t> OperandVotes::Sure(const Movable& old) const {
  if (const auto now = Voted(old)) return now;
  const std::span<const Pair> pairs = PairsOf(old);
  if (pairs.size() != 1 || !IsMovedAlike(pairs[0])) return {};
  return pairs[0].now;
}

// Whether the only vote on an operand is a function's and moves it as far as a sure operand near it.
bool OperandVotes::IsMovedAlike(const Pair& pair) const {
  if (pair.end - pair.first != 1 || !votes_[pair.first].isFunction) return false;
  const auto distance = [](const Pair& each) { return each.now - static_cast<std::uint32_t>(each.old); };
  const auto isAlike = [&](const Pair& other) {
    if (other.old >> 32 != pair.old >> 32 || distance(other) != distance(pair)) return false;
    const auto kind = static_cast<Movable::Kind>(other.old >> 32);
    return Voted({kind, static_cast<std::uint32_t>(other.old)}) == other.now;
  };
  const auto at = &pair - pairs_.data();
  const auto first = pairs_.begin() + std::max<std::ptrdiff_t>(at - neighbours, 0);
  const auto last = pairs_.begin() + std::min<std::ptrdiff_t>(at + neighbours + 1, std::ssize(pairs_));
  return std::any_of(first, last, isAlike);
}

std::optional<std::pair<std::uint32_t, std::uint32_t>> OperandVotes::Before(const Movable& old) const {
  auto pair = std::ranges::upper_bound(pairs_, KeyOf(old), {}, &Pair::old);
  while (pair != pairs_.begin() && (--pair)->old >> 32 == KeyOf(old) >> 32) {
    const auto value = static_cast<std::uint32_t>(pair->old);
    if (const auto now = Voted({old.kind, value})) return std::pair(value, *now);
  }
  return {};
}

bool OperandVotes::Stays(const Movable& old) const {
  const auto at = std::ranges::lower_bound(pairs_, KeyOf(old), {}, &Pair::old);
  const auto isOther = [&](const Pair& pair) { return pair.old >> 32 != KeyOf(old) >> 32; };
  const auto stays = [&](const Pair& pair) { return pair.now == static_cast<std::uint32_t>(pair.old); };
  if (at != pairs_.end() && at->old == KeyOf(old)) return false;
  int staying = 0;
  auto pair = at;
  for (int i = 0; i < neighbours && pair != pairs_.begin() && !isOther(*(pair - 1)); ++i, ++staying)
    if (!stays(*--pair)) return false;
  pair = at;
  for (int i = 0; i < neighbours && pair != pairs_.end() && !isOther(*pair); ++i, ++staying)
    if (!stays(*pair++)) return false;
  return staying >= neighbours;
}

}  // namespace tarvelo
