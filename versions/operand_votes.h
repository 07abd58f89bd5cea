// Votes of paired code on where things went: each pair of operands of instructions that surely are the same
// says that an old address is a new one.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "code/movable.h"

namespace tarvelo {

class OperandVotes {
 public:
  // A vote of an old unit's instruction. Of a unit that may be data, one vote is never enough.
  void Add(const Movable& old, const Movable& now, int unit, bool isFunction);
  // Sorts the votes; to be called before asking.
  void Count();
  [[nodiscard]] bool IsEmpty() const { return pairs_.empty(); }

  struct Tally {
    int agreeing = 0;  // votes for this pair
    int all = 0;       // votes on this old operand
  };
  // The votes on an old operand, without those of one unit.
  [[nodiscard]] Tally On(const Movable& old, const Movable& now, int without) const;

  struct Winner {
    std::uint32_t value = 0;
    Tally tally;
  };
  // The new operand with the most votes; none: agreeing is 0.
  [[nodiscard]] Winner Best(const Movable& old, int without) const;
  // The new operand that at least two votes and nine tenths of all speak for.
  [[nodiscard]] std::optional<std::uint32_t> Voted(const Movable& old) const;
  // The same; or that of the single vote of a function, if a sure operand near it moved by the same distance.
  [[nodiscard]] std::optional<std::uint32_t> Sure(const Movable& old) const;
  // The sure operand nearest to `old`, at or in front of it, and its new value.
  [[nodiscard]] std::optional<std::pair<std::uint32_t, std::uint32_t>> Before(const Movable& old) const;
  // Whether an operand that nothing votes on is where it was: all votes on what is next to it say so
  // of that.
  [[nodiscard]] bool Stays(const Movable& old) const;

 private:
  struct Vote {
    std::uint64_t old = 0;  // kind and value
    std::uint32_t now = 0;
    int unit = 0;
    bool isFunction = false;

    auto operator<=>(const Vote&) const = default;
  };
  // The votes for one pair of operands: first .. end - 1.
  struct Pair {
    std::uint64_t old = 0;
    std::uint32_t now = 0;
    std::uint32_t first = 0;
    std::uint32_t end = 0;
  };

  [[nodiscard]] bool IsMovedAlike(const Pair& pair) const;
  [[nodiscard]] std::span<const Pair> PairsOf(const Movable& old) const;
  [[nodiscard]] int CountOf(const Pair& pair, int without) const;

  std::vector<Vote> votes_;  // sorted
  std::vector<Pair> pairs_;  // sorted
};

}  // namespace tarvelo
