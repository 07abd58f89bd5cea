#include "port/moved_field.h"

#include <bit>

namespace tarvelo {
namespace {

constexpr int variableWords = 0x80;  // words of bit variables

// How far the bits of a mask, whose bit 0 is `first`, went.
std::optional<int> Distance(int first, unsigned mask, const OperandVotes& votes) {
  std::optional<int> distance;
  for (int bit = 0; bit < 8; ++bit) {
    if ((mask >> bit & 1) == 0) continue;
    const int old = first + bit;
    const auto now = votes.Sure({Movable::Kind::Bit, static_cast<std::uint32_t>(old)});
    if (!now) continue;
    const int moved = static_cast<int>(*now) - old;
    if (distance && *distance != moved) return {};
    distance = moved;
  }
  return distance;
}

}  // namespace

std::optional<std::array<std::uint8_t, 4>> MovedField(const Instruction& instruction,
                                                      const OperandVotes& votes) {
  const auto [mask, data, isHigh] = *BitFieldOf(instruction);
  const int word = instruction.Byte(1);
  if (word >= variableWords)
    return std::array{instruction.Op(), instruction.Byte(1), instruction.Byte(2), instruction.Byte(3)};
  const int first = word * 16 + (isHigh ? 8 : 0);
  const auto distance = Distance(first, mask, votes);
  if (!distance) return {};
  const int low = first + std::countr_zero(mask) + *distance;
  const int high = first + 7 - std::countl_zero(mask) + *distance;
  if (low < 0 || high >= variableWords * 16 || low >> 3 != high >> 3) return {};
  const int shift = (low & 7) - std::countr_zero(mask);
  const auto moved = [&](std::uint8_t bits) {
    return static_cast<std::uint8_t>(shift >= 0 ? bits << shift : bits >> -shift);
  };
  const auto bitoff = static_cast<std::uint8_t>(low >> 4);
  if ((low & 8) != 0) return std::array{op::bitFieldHigh, bitoff, moved(data & mask), moved(mask)};
  return std::array{op::bitFieldLow, bitoff, moved(mask), moved(data & mask)};
}

}  // namespace tarvelo
