#include "code/instruction.h"

#include <algorithm>
#include <utility>

namespace tarvelo {
namespace {

std::uint8_t Nibble(int value) { return static_cast<std::uint8_t>(value & 0xF); }

// The address of a special function register.
std::uint16_t SpecialRegister(int reg, bool isExtended) {
  return static_cast<std::uint16_t>((isExtended ? 0xF000 : 0xFE00) + 2 * reg);
}

// The address of a word whose bits can be addressed.
std::uint16_t BitAddressable(int bitoff, bool isExtended) {
  if (bitoff < 0x80) return static_cast<std::uint16_t>(0xFD00 + 2 * bitoff);
  return static_cast<std::uint16_t>((isExtended ? 0xF100 : 0xFF00) + 2 * (bitoff - 0x80));
}

Operand Register(Operand::Kind kind, int number) { return {.kind = kind, .number = Nibble(number)}; }

Operand Number(Operand::Kind kind, int value) {
  return {.kind = kind, .value = static_cast<std::uint16_t>(value)};
}

// The operand of a `reg` byte.
Operand Reg(Operand::Kind kind, int reg, bool isExtended) {
  if (reg >= 0xF0) return Register(kind, reg);
  return Number(Operand::Kind::Special, SpecialRegister(reg, isExtended));
}

Operand BitOf(Operand::Kind kind, int bitoff, int bit, bool isExtended) {
  if (bitoff >= 0xF0) return {.kind = kind, .number = Nibble(bitoff), .bit = Nibble(bit), .isRegister = true};
  return {.kind = kind, .bit = Nibble(bit), .value = BitAddressable(bitoff, isExtended)};
}

// #data3, [Rw] or [Rw+].
Operand ShortOperand(int nibble) {
  if (nibble < 8) return Number(Operand::Kind::Immediate, nibble);
  return Register(nibble < 12 ? Operand::Kind::At : Operand::Kind::After, nibble & 3);
}

}  // namespace

Instruction Instruction::DecodeAtEnd(Bytes bytes) {
  std::uint32_t all = 0;
  for (std::size_t i = 0; i < bytes.size(); ++i) all |= std::uint32_t{bytes[i]} << 8 * i;
  const std::uint8_t size = SizeOf(bytes[0]);
  if (size <= bytes.size() && !IsReserved(all)) return {all, size, false};
  return {all, static_cast<int>(std::min<std::size_t>(2, bytes.size())), true};
}

bool Instruction::BreaksMoreRules(std::uint32_t bytes) {
  if (opcodes[bytes & 0xFF].rule == Rule::SameNibbles) return (bytes >> 12 & 0xF) != (bytes >> 8 & 0xF);
  const bool isSegment = (bytes & 0x4000) == 0;
  return isSegment && bytes >> 24 != 0;
}

std::string_view Instruction::Mnemonic() const {
  static constexpr std::string_view extends[] = {"EXTS", "EXTP", "EXTSR", "EXTPR"};
  if (Op() == op::extendByNumber || Op() == op::extendByRegister) return extends[Byte(1) >> 6];
  if (Op() == op::atomicOrExtend && (Byte(1) & 0x80) != 0) return "EXTR";
  return Row().mnemonic;
}

bool Instruction::FallsThrough() const {
  switch (Row().flow) {
    case Flow::Next:
    case Flow::Branch:
    case Flow::Call:
    case Flow::IndirectCall:
    case Flow::Trap: return true;
    case Flow::Jump: return Op() == op::jumpAbsolute && High() != 0;
    case Flow::IndirectJump: return Op() == op::jumpIndirect && High() != 0;
    case Flow::Return:
    case Flow::Stop: return false;
  }
  return false;
}

std::optional<std::uint32_t> Instruction::Target(std::uint32_t address) const {
  const std::uint32_t segment = address & 0xFFFF0000;
  const auto relative = [&](std::uint8_t words) {
    const int distance = 2 * static_cast<std::int8_t>(words);
    return segment | ((address + static_cast<std::uint32_t>(Size() + distance)) & 0xFFFF);
  };
  for (const Arg arg : Row().args) switch (arg) {
      case Arg::Far: return std::uint32_t{Byte(1)} << 16 | Word();
      case Arg::Near: return segment | Word();
      case Arg::Relative: return relative(Byte(1));
      case Arg::RelativeAt2: return relative(Byte(2));
      default: break;
    }
  return {};
}

bool Instruction::HasMemory() const {
  const auto& args = Row().args;
  return args[0] == Arg::Mem || args[1] == Arg::Mem;
}

Operands Instruction::GetOperands(std::uint32_t address, bool isExtended) const {
  Operands operands;
  for (std::size_t i = 0; i < operands.size(); ++i) operands[i] = Get(Row().args[i], address, isExtended);
  return operands;
}

Operand Instruction::Get(Arg arg, std::uint32_t address, bool isExtended) const {
  using enum Operand::Kind;
  switch (arg) {
    case Arg::None: return {};
    case Arg::WordHigh: return Register(WordRegister, High());
    case Arg::WordLow: return Register(WordRegister, Low());
    case Arg::ByteHigh: return Register(ByteRegister, High());
    case Arg::ByteLow: return Register(ByteRegister, Low());
    case Arg::AtHigh: return Register(At, High());
    case Arg::AtLow: return Register(At, Low());
    case Arg::AfterHigh: return Register(After, High());
    case Arg::AfterLow: return Register(After, Low());
    case Arg::BeforeLow: return Register(Before, Low());
    case Arg::IndexedLow: return {.kind = Indexed, .number = Nibble(Low()), .value = Word()};
    case Arg::Short: return ShortOperand(Low());
    case Arg::WordReg: return Reg(WordRegister, Byte(1), isExtended);
    case Arg::ByteReg: return Reg(ByteRegister, Byte(1), isExtended);
    case Arg::Mem: return Number(Memory, Word());
    case Arg::Data4: return Number(Immediate, High());
    case Arg::Data8: return Number(Immediate, Byte(2));
    case Arg::Data8At3: return Number(Immediate, Byte(3));
    case Arg::Data16: return Number(Immediate, Word());
    case Arg::OpcodeBit: return BitOf(Bit, Byte(1), Byte(0) >> 4, isExtended);
    case Arg::BitQ: return BitOf(Bit, Byte(1), Byte(3) >> 4, isExtended);
    case Arg::BitZ: return BitOf(Bit, Byte(2), Byte(3), isExtended);
    case Arg::BitWord: return BitOf(Operand::Kind::BitWord, Byte(1), 0, isExtended);
    case Arg::OpcodeCondition: return Register(Operand::Kind::Condition, Byte(0) >> 4);
    case Arg::Condition: return Register(Operand::Kind::Condition, High());
    case Arg::Segment: return Number(Operand::Kind::Segment, Byte(1));
    case Arg::Far:
    case Arg::Near:
    case Arg::Relative:
    case Arg::RelativeAt2:
      return Number(Operand::Kind::Target, static_cast<int>(*this->Target(address) & 0xFFFF));
    case Arg::Trap: return Number(Immediate, Byte(1) / 2);
    case Arg::Count: return Number(Operand::Kind::Count, RangeLength());
    case Arg::PageOrSegment: return Number(Immediate, Word());
  }
  return {};
}

}  // namespace tarvelo
