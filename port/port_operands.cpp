#include "port/port_operands.h"

#include <algorithm>
#include <span>

#include "code/movable.h"
#include "code/sweep.h"
#include "port/load_pairs.h"
#include "port/moved_field.h"
#include "port/moved_pair.h"
#include "port/patched_image.h"

namespace tarvelo {
namespace {

std::uint32_t AllBits(const Instruction& instruction) {
  return instruction.Size() == 4 ? 0xFFFFFFFF : 0xFFFF;
}

class Carrier {
 public:
  Carrier(const PatchedCode& code, const Fullflash& old, const Fullflash& now, const CodePairing& pairing,
          const CarryMaps& maps)
      : code_(code), old_(old), now_(now), pairing_(pairing), maps_(maps) {
    const Bytes bytes = code.patched.subspan(static_cast<std::size_t>(code.region.offset),
                                             static_cast<std::size_t>(code.region.size));
    carried_.bytes.assign(bytes.begin(), bytes.end());
    Sweep(code.patched, code.around.offset, code.around.End(),
          [&](Offset at, const Instruction& instruction, const ExtRange& range) {
            decoded_.push_back({at, instruction, range});
            return false;
          });
  }

  CarriedCode Run() && {
    for (std::size_t i = 0; i < decoded_.size(); ++i)
      if (code_.region.Holds(decoded_[i].at) && !Carry(i)) Fail(i);
    isInPair_.resize(decoded_.size());
    for (std::size_t i = 0; i < decoded_.size(); ++i) CarryPair(i);
    for (std::size_t i = 0; i < decoded_.size(); ++i)
      if (code_.region.Holds(decoded_[i].at) && HasLonePart(i)) Fail(i);
    return std::move(carried_);
  }

 private:
  void Fail(std::size_t i) { carried_.failed.push_back({decoded_[i].at, decoded_[i].instruction.Size()}); }

  // The bytes of the new dump at what is at `at` in the old one.
  [[nodiscard]] Bytes There(Offset at, int size) const {
    const Offset there = at - code_.region.offset + code_.there;
    if (!HasRegion(now_, {there, size})) return {};
    return now_.Region(there, size);
  }

  // Whether an instruction of the old dump begins there; what is inside one is new, whatever its bytes.
  [[nodiscard]] bool IsOldStart(Offset at) const {
    const CodeUnits& old = pairing_.Old();
    const int instruction = old.InstructionAt(at);
    return instruction >= 0 && old.instructions[static_cast<std::size_t>(instruction)].offset == at;
  }

  [[nodiscard]] bool IsUnchanged(const DecodedCode& decoded) const {
    if (!IsOldStart(decoded.at)) return false;
    const auto size = static_cast<std::size_t>(decoded.instruction.Size());
    return std::ranges::equal(code_.patched.subspan(static_cast<std::size_t>(decoded.at), size),
                              old_.Region(decoded.at, decoded.instruction.Size()));
  }

  bool Carry(std::size_t i) {
    const DecodedCode& decoded = decoded_[i];
    const Instruction& instruction = decoded.instruction;
    if (IsUnchanged(decoded)) {
      const Bytes there = There(decoded.at, instruction.Size());
      for (std::size_t k = 0; k < there.size(); ++k) Byte(decoded.at + static_cast<Offset>(k), there[k]);
      return !there.empty();
    }
    if (instruction.IsData() || KeepsOperand(decoded)) return true;
    return CarryOperand(i);
  }

  // Whether the patch leaves what moves in an instruction; then it becomes what the new dump has.
  bool KeepsOperand(const DecodedCode& decoded) {
    const Instruction& instruction = decoded.instruction;
    const Instruction before = Instruction::Decode(old_.ff(), decoded.at);
    const std::uint32_t moving = ~FixedBits(instruction, decoded.range) & AllBits(instruction);
    if (moving == 0) return true;
    if (!IsOldStart(decoded.at)) return false;
    if (before.IsData() || before.Size() != instruction.Size()) return false;
    if ((~FixedBits(before, decoded.range) & AllBits(before)) != moving) return false;
    const Bytes there = There(decoded.at, instruction.Size());
    if (BitFieldOf(before) && !there.empty() && !IsInSameBits(before, there)) return false;
    for (std::size_t k = 0; k < there.size(); ++k) {
      const int byte = static_cast<int>(k);
      if (((instruction.Byte(byte) ^ before.Byte(byte)) & (moving >> 8 * k) & 0xFF) != 0) return false;
    }
    for (std::size_t k = 0; k < there.size(); ++k) {
      const std::uint32_t mask = moving >> 8 * k & 0xFF;
      Byte(decoded.at + static_cast<Offset>(k),
           (instruction.Byte(static_cast<int>(k)) & ~mask) | (there[k] & mask));
    }
    return !there.empty();
  }

  // Whether a bit field of the old dump has the same bits of its word in the new one.
  static bool IsInSameBits(const Instruction& before, Bytes there) {
    return before.Op() == there[0] && before.Word() == WordAt(there, 2);
  }

  bool CarryOperand(std::size_t i) {
    const auto& [at, instruction, range] = decoded_[i];
    const std::uint32_t address = old_.PhoneAddress(at);
    for (const Arg arg : instruction.Row().args) switch (arg) {
        case Arg::Far: return CarryFar(at, *instruction.Target(address));
        case Arg::Near: return CarryNear(at, *instruction.Target(address));
        case Arg::Relative: return CarryRelative(at, instruction, 1, *instruction.Target(address));
        case Arg::RelativeAt2:
          if (!CarryRelative(at, instruction, 2, *instruction.Target(address))) return false;
          break;
        case Arg::BitQ:
        case Arg::BitZ:
          if (!CarryBit(at, instruction, arg)) return false;
          break;
        case Arg::OpcodeBit: return CarryBit(at, instruction, arg);
        case Arg::BitWord: return CarryField(at, instruction);
        case Arg::PageOrSegment: return CarryRange(i);
        default: break;
      }
    const Movable movable = MovableOf(instruction, address, range);
    if (movable.kind == Movable::Kind::Near) return CarryNearData(at, movable);
    if (movable.kind == Movable::Kind::Address) return CarryInRange(at, movable, range);
    return true;
  }

  [[nodiscard]] std::uint32_t NewAddress(Offset at) const {
    return now_.PhoneAddress(at - code_.region.offset + code_.there);
  }

  bool CarryFar(Offset at, std::uint32_t target) {
    const auto now = maps_.code(target);
    if (!now) return false;
    Byte(at + 1, *now >> 16);
    Word(at + 2, *now);
    return true;
  }

  bool CarryNear(Offset at, std::uint32_t target) {
    const auto now = Inside(target);
    if (!now || *now >> 16 != NewAddress(at) >> 16) return false;
    Word(at + 2, *now);
    return true;
  }

  bool CarryRelative(Offset at, const Instruction& instruction, int byte, std::uint32_t target) {
    const std::uint32_t from = NewAddress(at + instruction.Size());
    const auto now = Inside(target);
    if (!now || *now >> 16 != from >> 16) return false;
    const Offset words = (Offset{*now} - from) / 2;
    if (words < -128 || words > 127) return false;
    Byte(at + byte, static_cast<std::uint32_t>(words));
    return true;
  }

  // A target in the same piece keeps its distance.
  [[nodiscard]] std::optional<std::uint32_t> Inside(std::uint32_t target) const {
    const Offset offset = Offset{target} - old_.CorrBase();
    if (code_.region.Holds(offset)) return NewAddress(offset);
    const int unit = pairing_.Old().UnitAt(offset);
    if (unit >= 0 && unit == pairing_.Old().UnitAt(code_.region.offset)) return maps_.jump(target);
    return maps_.code(target);
  }

  bool CarryNearData(Offset at, const Movable& movable) {
    const auto now = pairing_.Votes().Sure(movable);
    if (!now) return false;
    Word(at + 2, *now);
    return true;
  }

  bool CarryBit(Offset at, const Instruction& instruction, Arg arg) {
    const int place = arg == Arg::BitZ ? 2 : 1;
    const std::uint32_t word = instruction.Byte(place);
    if (word >= 0x80) return true;
    const std::uint32_t last = instruction.Byte(3);
    const std::uint32_t bit = arg == Arg::OpcodeBit ? instruction.Op() >> 4
                              : arg == Arg::BitQ    ? last >> 4
                                                    : last & 0xF;
    const auto now = pairing_.Votes().Sure({Movable::Kind::Bit, word * 16 + bit});
    if (!now) return false;
    Byte(at + place, *now >> 4);
    const std::uint32_t number = *now & 0xF;
    if (arg == Arg::OpcodeBit)
      Byte(at, (instruction.Op() & 0xFU) | number << 4);
    else if (arg == Arg::BitQ)
      Byte(at + 3, (Carried(at + 3) & 0xFU) | number << 4);
    else
      Byte(at + 3, (Carried(at + 3) & 0xF0U) | number);
    return true;
  }

  bool CarryField(Offset at, const Instruction& instruction) {
    const auto moved = MovedField(instruction, pairing_.Votes());
    if (!moved) return false;
    for (std::size_t k = 0; k < moved->size(); ++k) Byte(at + static_cast<Offset>(k), (*moved)[k]);
    return true;
  }

  // EXTP and EXTS with a number: the page or segment that all operands of the range need.
  bool CarryRange(std::size_t i) {
    const Instruction& instruction = decoded_[i].instruction;
    const int bits = (instruction.Byte(1) & 0x40) != 0 ? 14 : 16;
    std::optional<std::uint32_t> space;
    for (std::size_t k = i + 1;
         k < decoded_.size() && k <= i + static_cast<std::size_t>(instruction.RangeLength()); ++k) {
      const Movable movable =
          MovableOf(decoded_[k].instruction, old_.PhoneAddress(decoded_[k].at), decoded_[k].range);
      if (movable.kind != Movable::Kind::Address) continue;
      const auto now = maps_.data(movable.value);
      if (!now || (space && *space != *now >> bits)) return false;
      space = *now >> bits;
    }
    if (!space) return false;
    Word(decoded_[i].at + 2, *space);
    return true;
  }

  // A memory operand behind EXTP or EXTS, whose page or segment must be that of the new address.
  bool CarryInRange(Offset at, const Movable& movable, const ExtRange& range) {
    const auto now = maps_.data(movable.value);
    if (!now) return false;
    const bool isPage = range.Address(0x4000) == range.Address(0);
    const auto space = SpaceOf(at);
    if (!space || *now >> (isPage ? 14 : 16) != *space) return false;
    Word(at + 2, isPage ? (*now & 0x3FFF) | (Carried(at + 3) & 0xC0U) << 8 : *now);
    return true;
  }

  // The page or segment of the range that an instruction is in, in the new version.
  [[nodiscard]] std::optional<std::uint32_t> SpaceOf(Offset at) const {
    const auto here = std::ranges::find(decoded_, at, &DecodedCode::at);
    for (auto it = here; it != decoded_.begin();) {
      --it;
      if (!it->instruction.BeginsRange()) continue;
      if (it->instruction.Op() != op::extendByNumber) return {};
      if (code_.region.Holds(it->at)) return Carried(it->at + 2) | Carried(it->at + 3) << 8;
      const Bytes there = There(it->at, 4);
      if (there.empty() || there[0] != op::extendByNumber || there[1] != it->instruction.Byte(1)) return {};
      return there[2] | there[3] << 8;
    }
    return {};
  }

  // MOV Rn, #offset and MOV Rn+1, #page or #segment, of which the patch changes one at least.
  void CarryPair(std::size_t i) {
    if (!decoded_[i].instruction.LoadsConstant()) return;
    const auto partner = PartnerOf(decoded_, i);
    if (!partner) return;
    const std::size_t k = *partner;
    if (IsUnchanged(decoded_[i]) && IsUnchanged(decoded_[k])) return;
    const MovedPair moved = MovedPairOf(i, k);
    if (moved.isPlain) return;
    isInPair_[i] = isInPair_[k] = true;
    if (IsOffsetOfNext(k)) return Fail(i);
    if (!moved.words || !Put(i, moved.words->first) || !Put(k, moved.words->second)) {
      Fail(i);
      Fail(k);
    }
  }

  [[nodiscard]] MovedPair MovedPairOf(std::size_t low, std::size_t high) const {
    return MovePair(decoded_[low].instruction.Word(), decoded_[high].instruction.Word(), high == low + 1,
                    old_, pairing_, maps_);
  }

  // Whether what may be a page may as well be the offset of an address in the next two registers.
  [[nodiscard]] bool IsOffsetOfNext(std::size_t i) const {
    const auto next = PartnerOf(decoded_, i);
    if (!next) return false;
    return !MovedPairOf(i, *next).isPlain;
  }

  // Whether a new constant may be half of an address that moves, and nothing near is the other half.
  [[nodiscard]] bool HasLonePart(std::size_t i) const {
    const DecodedCode& decoded = decoded_[i];
    if (isInPair_[i] || IsUnchanged(decoded)) return false;
    const Movable movable = MovableOf(decoded.instruction, old_.PhoneAddress(decoded.at), decoded.range);
    const bool isPart = movable.kind == Movable::Kind::Constant || movable.kind == Movable::Kind::Member;
    return isPart && (maps_.areas.MayBeNumber(movable.value) || maps_.areas.MayBeOffset(movable.value));
  }

  // Puts a constant; outside the region the new dump must have it.
  bool Put(std::size_t i, std::uint32_t word) {
    const Offset at = decoded_[i].at;
    if (code_.region.Holds(at)) {
      Word(at + 2, word);
      return true;
    }
    const Bytes there = There(at, 4);
    const Instruction& instruction = decoded_[i].instruction;
    return !there.empty() && there[0] == instruction.Op() && there[1] == instruction.Byte(1) &&
           there[2] == (word & 0xFF) && there[3] == word >> 8;
  }

  [[nodiscard]] std::uint32_t Carried(Offset at) const {
    return carried_.bytes[static_cast<std::size_t>(at - code_.region.offset)];
  }
  void Byte(Offset at, std::uint32_t value) {
    carried_.bytes[static_cast<std::size_t>(at - code_.region.offset)] = static_cast<std::uint8_t>(value);
  }
  void Word(Offset at, std::uint32_t value) {
    Byte(at, value);
    Byte(at + 1, value >> 8);
  }

  const PatchedCode& code_;
  const Fullflash& old_;
  const Fullflash& now_;
  const CodePairing& pairing_;
  const CarryMaps& maps_;
  std::vector<DecodedCode> decoded_;
  std::vector<bool> isInPair_;  // of an address
  CarriedCode carried_;
};

}  // namespace

CarriedCode CarryOperands(const PatchedCode& code, const Fullflash& old, const Fullflash& now,
                          const CodePairing& pairing, const CarryMaps& maps) {
  return Carrier(code, old, now, pairing, maps).Run();
}

}  // namespace tarvelo
