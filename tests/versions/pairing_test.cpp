// What the pairing of two versions rests on: aligned instructions and votes on operands.
#include <gtest/gtest.h>

#include "versions/alignment.h"
#include "versions/operand_votes.h"

namespace tarvelo {
namespace {

TEST(Align, PairsEqualTokensInOrderAndRuns) {
  const std::tuple<std::string_view, std::string_view, std::vector<int>> cases[] = {
      {"abc", "ab", {0, 1, -1}},
      {"ab", "abc", {0, 1}},
      {"axbc", "aybc", {0, -1, 2, 3}},
      {"pax", "aqy", {-1, 0, -1}},
      {"xabcy", "wabzcv", {-1, 1, 2, 4, -1}},
      {"xaby", "waqabv", {-1, 3, 4, -1}}};
  const auto units = [](std::string_view tokens) {
    std::vector<UnitInstruction> instructions;
    for (const char token : tokens) instructions.push_back({.token = static_cast<std::uint32_t>(token)});
    return instructions;
  };
  const auto always = [](const UnitInstruction&, const UnitInstruction&) { return true; };
  for (const auto& [old, now, pairs] : cases) EXPECT_EQ(Align(units(old), units(now), always), pairs) << old;
}

TEST(OperandVotes, AreSureIfNearlyAllAgree) {
  using enum Movable::Kind;
  OperandVotes votes;
  const auto add = [&](const Movable& old, std::uint32_t now, int count, int unit = 1,
                       bool isFunction = false) {
    while (count-- > 0) votes.Add(old, {old.kind, now}, unit++, isFunction);
  };
  add({Near, 0x10}, 0x110, 2);
  add({Near, 0x20}, 0x120, 9), add({Near, 0x20}, 0x300, 1, 10);
  add({Near, 0x30}, 0x130, 8), add({Near, 0x30}, 0x300, 1, 9);
  add({Near, 0x40}, 0x140, 1, 1, true);                                        // as far as its neighbours
  add({Near, 0x50}, 0x150, 1);                                                 // by what may be data
  add({Near, 0x60}, 0x168, 1, 1, true), add({Near, 0x60}, 0x168, 1, 1, true);  // one witness
  for (const std::uint32_t data : {0x20, 0x21, 0x30, 0x31}) add({Address, data}, data, 1);
  for (const std::uint32_t bit : {3, 4, 5, 6, 10, 12, 13, 14}) add({Bit, bit}, bit, 1);
  add({Bit, 2}, 99, 1), add({Bit, 30}, 31, 1);
  votes.Count();
  const std::pair<std::uint32_t, std::optional<std::uint32_t>> sure[] = {
      {0x10, 0x110}, {0x20, 0x120}, {0x30, {}}, {0x40, 0x140}, {0x50, {}}, {0x60, {}}, {0x70, {}}};
  for (const auto& [old, now] : sure) EXPECT_EQ(votes.Sure({Near, old}), now) << old;
  EXPECT_EQ(votes.Before({Near, 0x55}), std::pair(0x20u, 0x120u));
  EXPECT_EQ(votes.Before({Near, 0x0F}), std::nullopt);
  EXPECT_EQ(votes.Best({Near, 0x20}, 10).tally.all, 9);
  EXPECT_EQ(votes.On({Near, 0x30}, {Near, 0x300}, 9).agreeing, 0);
  for (const auto& [bit, stays] : {std::pair(1u, false), {3u, false}, {7u, true}, {20u, false}})
    EXPECT_EQ(votes.Stays({Bit, bit}), stays) << bit;
  EXPECT_TRUE(votes.Stays({Address, 0x25}));
  EXPECT_FALSE(votes.Stays({Near, 0x1000}));
}

}  // namespace
}  // namespace tarvelo
