#include "code/movable.h"

#include <algorithm>
#include <bit>

namespace tarvelo {
namespace {

bool IsVariableBit(int bitoff) { return bitoff < 0x80; }

constexpr std::uint32_t Byte(int i, std::uint32_t bits = 0xFF) { return bits << 8 * i; }

// The bits that an argument lets move.
std::uint32_t MovingBits(const Instruction& instruction, Arg arg, const ExtRange& range) {
  constexpr std::uint32_t word = 0xFFFF0000;
  switch (arg) {
    case Arg::Segment: return Byte(1);
    case Arg::Far:
    case Arg::Near:
    case Arg::IndexedLow:
    case Arg::Data16:
    case Arg::PageOrSegment: return word;
    case Arg::Mem: return IsSpecialRegister(instruction.Word()) && !range.ReplacesDpp() ? 0 : word;
    case Arg::Relative: return Byte(1);
    case Arg::RelativeAt2: return Byte(2);
    case Arg::OpcodeBit: return IsVariableBit(instruction.Byte(1)) ? Byte(0, 0xF0) | Byte(1) : 0;
    case Arg::BitQ: return IsVariableBit(instruction.Byte(1)) ? Byte(1) | Byte(3, 0xF0) : 0;
    case Arg::BitZ: return IsVariableBit(instruction.Byte(2)) ? Byte(2) | Byte(3, 0x0F) : 0;
    case Arg::BitWord: return IsVariableBit(instruction.Byte(1)) ? Byte(1) : 0;
    default: return 0;
  }
}

Movable BitOf(int bitoff, int number) {
  if (!IsVariableBit(bitoff)) return {};
  return {Movable::Kind::Bit, static_cast<std::uint32_t>(bitoff * 16 + number)};
}

Movable OfArg(const Instruction& instruction, Arg arg, std::uint32_t address, const ExtRange& range) {
  using enum Movable::Kind;
  switch (arg) {
    case Arg::Far:
    case Arg::Near: return {Code, *instruction.Target(address)};
    case Arg::IndexedLow: return {Member, instruction.Word()};
    case Arg::Data16: return {Constant, instruction.Word()};
    case Arg::OpcodeBit: return BitOf(instruction.Byte(1), instruction.Op() >> 4);
    case Arg::BitQ: return BitOf(instruction.Byte(1), instruction.Byte(3) >> 4);
    case Arg::BitWord: return BitOf(instruction.Byte(1), BitFieldOf(instruction)->LowestBit());
    case Arg::Mem:
      if (IsSpecialRegister(instruction.Word()) && !range.ReplacesDpp()) return {};
      if (const auto data = range.Address(instruction.Word())) return {Address, *data};
      return {range.ReplacesDpp() ? Member : Near, instruction.Word()};
    default: return {};
  }
}

}  // namespace

std::uint32_t FixedBits(const Instruction& instruction, const ExtRange& range) {
  const std::uint32_t all = instruction.Size() == 4 ? 0xFFFFFFFF : (1U << 8 * instruction.Size()) - 1;
  if (instruction.IsData()) return all;
  std::uint32_t moving = 0;
  for (const Arg arg : instruction.Row().args) moving |= MovingBits(instruction, arg, range);
  return all & ~moving;
}

Movable MovableOf(const Instruction& instruction, std::uint32_t address, const ExtRange& range) {
  if (instruction.IsData()) return {};
  for (const Arg arg : instruction.Row().args)
    if (const Movable movable = OfArg(instruction, arg, address, range); movable.kind != Movable::Kind::None)
      return movable;
  return {};
}

Movable SecondBitOf(const Instruction& instruction) {
  if (instruction.IsData() ||
      std::ranges::find(instruction.Row().args, Arg::BitZ) == instruction.Row().args.end())
    return {};
  return BitOf(instruction.Byte(2), instruction.Byte(3) & 0xF);
}

int BitField::LowestBit() const { return (std::countr_zero(mask) & 7) + (isHigh ? 8 : 0); }

std::optional<BitField> BitFieldOf(const Instruction& instruction) {
  if (instruction.IsData()) return {};
  if (instruction.Op() == op::bitFieldLow) return BitField{instruction.Byte(2), instruction.Byte(3), false};
  if (instruction.Op() == op::bitFieldHigh) return BitField{instruction.Byte(3), instruction.Byte(2), true};
  return {};
}

}  // namespace tarvelo
