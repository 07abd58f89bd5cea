#include "patch/port_operands.h"

#include <algorithm>

#include "code/movable.h"

namespace tarvelo {
namespace {

constexpr int fewestVotes = 2;

class Carrier {
 public:
  Carrier(PatchedCode& code, const PlaceFinder& places, const OperandVotes& votes, const MapCode& mapCode)
      : code_(code), places_(places), votes_(votes), mapCode_(mapCode), carried_(code.bytes) {}

  bool Run() {
    bool isCarried = true;
    Sweep(code_.bytes, 0, std::ssize(code_.bytes),
          [&](Offset at, const Instruction& instruction, const ExtRange& range) {
            isCarried = Carry(at, instruction, range);
            return !isCarried;
          });
    if (isCarried) code_.bytes = std::move(carried_);
    return isCarried;
  }

 private:
  bool Carry(Offset at, const Instruction& instruction, const ExtRange& range) {
    const auto size = static_cast<std::size_t>(instruction.Size());
    const auto from = static_cast<std::size_t>(at);
    const bool isUnchanged = std::equal(
        code_.bytes.begin() + at, code_.bytes.begin() + at + instruction.Size(), code_.before.begin() + at);
    if (isUnchanged) {
      std::copy_n(code_.there.begin() + at, size, carried_.begin() + at);
      return true;
    }
    if (instruction.IsData()) return true;
    if (KeepsOperand(from, instruction, range)) return true;
    return CarryOperand(at, instruction, range);
  }

  // Whether the patch leaves what moves in an instruction; then it becomes what the new dump has.
  bool KeepsOperand(std::size_t at, const Instruction& instruction, const ExtRange& range) {
    const Instruction before = Instruction::Decode(code_.before, static_cast<Offset>(at));
    const std::uint32_t moving = ~FixedBits(instruction, range) & BitsOf(instruction);
    if (before.IsData() || before.Size() != instruction.Size()) return moving == 0;
    if ((~FixedBits(before, range) & BitsOf(before)) != moving) return moving == 0;
    for (std::size_t i = 0; i < static_cast<std::size_t>(instruction.Size()); ++i) {
      const auto mask = static_cast<std::uint8_t>(moving >> 8 * i);
      if (((code_.bytes[at + i] ^ code_.before[at + i]) & mask) != 0) return false;
    }
    for (std::size_t i = 0; i < static_cast<std::size_t>(instruction.Size()); ++i) {
      const auto mask = static_cast<std::uint8_t>(moving >> 8 * i);
      carried_[at + i] =
          static_cast<std::uint8_t>((code_.bytes[at + i] & ~mask) | (code_.there[at + i] & mask));
    }
    return true;
  }

  static std::uint32_t BitsOf(const Instruction& instruction) {
    return instruction.Size() == 4 ? 0xFFFFFFFF : 0xFFFF;
  }

  bool CarryOperand(Offset at, const Instruction& instruction, const ExtRange& range) {
    const std::uint32_t address = code_.address + static_cast<std::uint32_t>(at);
    for (const Arg arg : instruction.Row().args) switch (arg) {
        case Arg::Far: return CarryFar(at, *instruction.Target(address));
        case Arg::Near: return CarryNear(at, *instruction.Target(address));
        case Arg::Relative: return CarryRelative(at, instruction, 1, *instruction.Target(address));
        case Arg::RelativeAt2:
          if (!CarryRelative(at, instruction, 2, *instruction.Target(address))) return false;
          break;
        default: break;
      }
    const Movable movable = MovableOf(instruction, address, range);
    switch (movable.kind) {
      case Movable::Kind::Near: return CarryNearData(at, movable);
      case Movable::Kind::Bit: return CarryBit(at, instruction, movable);
      case Movable::Kind::Address: return CarryInRange(at, movable, range);
      case Movable::Kind::Constant: return CarryPair(at, instruction);
      default: return true;
    }
  }

  bool CarryFar(Offset at, std::uint32_t target) {
    const auto now = mapCode_(target);
    if (!now) return false;
    Byte(at + 1, *now >> 16);
    Word(at + 2, *now);
    return true;
  }

  bool CarryNear(Offset at, std::uint32_t target) {
    const auto now = mapCode_(target);
    if (!now || *now >> 16 != code_.newAddress >> 16) return false;
    Word(at + 2, *now);
    return true;
  }

  bool CarryRelative(Offset at, const Instruction& instruction, int byte, std::uint32_t target) {
    const std::uint32_t there = code_.newAddress + static_cast<std::uint32_t>(at + instruction.Size());
    const Offset inside = Offset{target} - code_.address;
    std::optional<std::uint32_t> now;
    if (inside >= 0 && inside < std::ssize(code_.bytes))
      now = code_.newAddress + static_cast<std::uint32_t>(inside);
    else
      now = mapCode_(target);
    if (!now || *now >> 16 != there >> 16) return false;
    const Offset words = (Offset{*now} - there) / 2;
    if (words < -128 || words > 127) return false;
    Byte(at + byte, static_cast<std::uint32_t>(words));
    return true;
  }

  std::optional<std::uint32_t> Voted(const Movable& old) const {
    const auto winner = votes_.Best(old, -1);
    if (winner.tally.agreeing < fewestVotes || winner.tally.agreeing * 10 < winner.tally.all * 9) return {};
    return winner.value;
  }

  bool CarryNearData(Offset at, const Movable& movable) {
    const auto now = Voted(movable);
    if (!now) return false;
    Word(at + 2, *now);
    return true;
  }

  bool CarryBit(Offset at, const Instruction& instruction, const Movable& movable) {
    const auto now = Voted(movable);
    if (!now) return false;
    const auto& args = instruction.Row().args;
    if (args[1] == Arg::BitQ || args[0] == Arg::BitWord) return false;  // two bits; a mask of several
    Byte(at + 1, *now >> 4);
    if (args[0] == Arg::OpcodeBit)
      Byte(at, (instruction.Op() & 0x0FU) | (*now & 0xF) << 4);
    else
      Byte(at + 3, (*now & 0xF) << 4);
    return true;
  }

  // A memory operand behind EXTP or EXTS: the page or segment must stay, because the one instruction in front
  // serves several.
  bool CarryInRange(Offset at, const Movable& movable, const ExtRange& range) {
    const auto now = places_.DataAddress(movable.value);
    if (!now) return false;
    const bool isPage = range.Address(0x4000) == range.Address(0);
    if (*now >> (isPage ? 14 : 16) != movable.value >> (isPage ? 14 : 16)) return false;
    const std::uint32_t bits = isPage ? (code_.bytes[static_cast<std::size_t>(at) + 3] & 0xC0U) << 8 : 0;
    Word(at + 2, isPage ? (*now & 0x3FFF) | bits : *now);
    return true;
  }

  // MOV Rn, #offset and MOV Rn+1, #page or #segment; anything else is a plain constant.
  bool CarryPair(Offset at, const Instruction& instruction) {
    if (!instruction.LoadsConstant()) return true;
    const Instruction next = LoadAt(at + 4);
    if (next.IsData() || next.Byte(1) != instruction.Byte(1) + 1) return true;  // the second one was carried
    const std::uint32_t offset = instruction.Word();
    const std::uint32_t high = next.Word();
    if (offset < 0x4000 && high < 0x400 && places_.IsInside(high << 14 | offset)) {
      const auto now = places_.DataAddress(high << 14 | offset);
      return now && PutPair(at, *now & 0x3FFF, *now >> 14);
    }
    if (high < 0x100 && places_.IsInside(high << 16 | offset)) {
      const auto now = mapCode_(high << 16 | offset);
      return now && PutPair(at, *now & 0xFFFF, *now >> 16);
    }
    return true;
  }

  Instruction LoadAt(Offset at) const {
    if (at + 4 > std::ssize(code_.bytes)) return {};
    const Instruction instruction = Instruction::Decode(code_.bytes, at);
    return instruction.LoadsConstant() ? instruction : Instruction();
  }

  bool PutPair(Offset at, std::uint32_t low, std::uint32_t high) {
    Word(at + 2, low);
    Word(at + 6, high);
    return true;
  }

  void Byte(Offset at, std::uint32_t value) {
    carried_[static_cast<std::size_t>(at)] = static_cast<std::uint8_t>(value);
  }
  void Word(Offset at, std::uint32_t value) {
    Byte(at, value);
    Byte(at + 1, value >> 8);
  }

  PatchedCode& code_;
  const PlaceFinder& places_;
  const OperandVotes& votes_;
  const MapCode& mapCode_;
  std::vector<std::uint8_t> carried_;
};

}  // namespace

bool CarryOperands(PatchedCode& code, const PlaceFinder& places, const OperandVotes& votes,
                   const MapCode& mapCode) {
  return Carrier(code, places, votes, mapCode).Run();
}

}  // namespace tarvelo
