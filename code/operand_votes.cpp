#include "code/operand_votes.h"

#include <algorithm>

namespace tarvelo {
namespace {

constexpr int fewestVotes = 2;
constexpr int neighbours = 4;  // votes on each side

std::uint64_t KeyOf(const Movable& movable) {
  return static_cast<std::uint64_t>(movable.kind) << 32 | movable.value;
}

}  // namespace

void OperandVotes::Add(const Movable& old, const Movable& now, int unit) {
  if (old.kind == now.kind) votes_.push_back({KeyOf(old), now.value, unit});
}

void OperandVotes::Count() {
  // One vote per unit: a loop over one variable is one witness.
  std::ranges::sort(votes_);
  votes_.erase(std::unique(votes_.begin(), votes_.end()), votes_.end());
}

auto OperandVotes::VotesOn(const Movable& old) const
    -> std::pair<std::vector<Vote>::const_iterator, std::vector<Vote>::const_iterator> {
  const std::uint64_t key = KeyOf(old);
  return {std::ranges::lower_bound(votes_, key, {}, &Vote::old),
          std::ranges::upper_bound(votes_, key, {}, &Vote::old)};
}

OperandVotes::Tally OperandVotes::On(const Movable& old, const Movable& now, int without) const {
  Tally tally;
  const auto [first, last] = VotesOn(old);
  for (auto vote = first; vote != last; ++vote) {
    if (vote->unit == without) continue;
    ++tally.all;
    if (vote->now == now.value) ++tally.agreeing;
  }
  return tally;
}

OperandVotes::Winner OperandVotes::Best(const Movable& old, int without) const {
  Winner winner;
  int all = 0;
  const auto [first, last] = VotesOn(old);
  for (auto vote = first; vote != last;) {
    const std::uint32_t value = vote->now;
    int votes = 0;
    for (; vote != last && vote->now == value; ++vote)
      if (vote->unit != without) ++votes;
    all += votes;
    if (votes > winner.tally.agreeing) winner = {value, {votes, 0}};
  }
  winner.tally.all = all;
  return winner;
}

std::optional<std::uint32_t> OperandVotes::Sure(const Movable& old) const {
  const Winner winner = Best(old, -1);
  if (winner.tally.agreeing < fewestVotes || winner.tally.agreeing * 10 < winner.tally.all * 9) return {};
  return winner.value;
}

std::optional<std::pair<std::uint32_t, std::uint32_t>> OperandVotes::Before(const Movable& old) const {
  for (auto vote = VotesOn(old).second; vote != votes_.begin();) {
    --vote;
    if (vote->old >> 32 != KeyOf(old) >> 32) return {};
    const auto value = static_cast<std::uint32_t>(vote->old);
    if (const auto now = Sure({old.kind, value})) return std::pair(value, *now);
    vote = VotesOn({old.kind, value}).first;
  }
  return {};
}

bool OperandVotes::Stays(const Movable& old) const {
  const auto [first, last] = VotesOn(old);
  if (first != last) return false;
  const auto isOther = [&](const Vote& vote) { return vote.old >> 32 != KeyOf(old) >> 32; };
  const auto stays = [&](const Vote& vote) { return vote.now == static_cast<std::uint32_t>(vote.old); };
  int staying = 0;
  auto vote = first;
  for (int i = 0; i < neighbours && vote != votes_.begin() && !isOther(*(vote - 1)); ++i, ++staying)
    if (!stays(*--vote)) return false;
  vote = last;
  for (int i = 0; i < neighbours && vote != votes_.end() && !isOther(*vote); ++i, ++staying)
    if (!stays(*vote++)) return false;
  return staying >= neighbours;
}

}  // namespace tarvelo
