#include "versions/code_units.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "code/sweep.h"

namespace tarvelo {
namespace {

constexpr std::uint32_t fewestBetween = 3;  // instructions of a unit that is no function

// The same for a bit field wherever it is in its word.
std::uint32_t TokenBytes(const BitField& field) {
  const int lowest = std::countr_zero(field.mask);
  return op::bitFieldLow | static_cast<std::uint32_t>(field.mask >> lowest) << 16 |
         static_cast<std::uint32_t>(field.data >> lowest) << 24;
}

std::uint32_t TokenOf(const Instruction& instruction, const ExtRange& range, const Movable& movable) {
  std::uint32_t bytes = 0;
  for (int i = 0; i < instruction.Size(); ++i) bytes |= std::uint32_t{instruction.Byte(i)} << 8 * i;
  // The size is that of the opcode, except for data.
  bytes &= FixedBits(instruction, range);
  if (movable.kind == Movable::Kind::Bit)
    if (const auto field = BitFieldOf(instruction)) bytes = TokenBytes(*field);
  return bytes * 0x9E3779B1 ^ (bytes >> 15) ^ (instruction.IsData() ? 0x5A5A5A5A : 0);
}

std::uint64_t Mixed(std::uint64_t hash, std::uint32_t token) {
  hash = (hash ^ token) * 0x9E3779B97F4A7C15;
  return hash ^ hash >> 29;
}

class Cutter {
 public:
  explicit Cutter(const Fullflash& image) : image_(image) {}

  void Function(const tarvelo::Function& function) {
    Begin(function.code.offset, true);
    Sweep(image_.ff(), function.code.offset, function.code.End(),
          [&](Offset at, const Instruction& instruction, const ExtRange& range) {
            Add(at, instruction, range);
            return false;
          });
    End(1);
  }

  // Code between functions: it ends behind each return; data and filling belong to no unit.
  void Between(Offset from, Offset end) {
    if (!image_.BeginsWord(from)) ++from;
    Begin(from, false);
    Sweep(image_.ff(), from, end, [&](Offset at, const Instruction& instruction, const ExtRange& range) {
      const Offset next = at + instruction.Size();
      if (instruction.IsData() || instruction.IsFilling()) {
        Cancel();
        Begin(next, false);
        return false;
      }
      Add(at, instruction, range);
      if (!instruction.FallsThrough() && instruction.GetFlow() == Flow::Return) {
        End(fewestBetween);
        Begin(next, false);
      }
      return false;
    });
    Cancel();
  }

  [[nodiscard]] CodeUnits Take() && { return std::move(result_); }

 private:
  void Begin(Offset offset, bool isFunction) {
    unit_ = {};
    unit_.first = static_cast<std::uint32_t>(result_.instructions.size());
    unit_.isFunction = isFunction;
    unit_.code.offset = offset;
    wasLoad_ = false;
  }

  void Add(Offset at, const Instruction& instruction, const ExtRange& range) {
    const Movable movable = MovableOf(instruction, image_.PhoneAddress(at), range);
    UnitInstruction added{static_cast<std::uint32_t>(at), TokenOf(instruction, range, movable), movable};
    if (const Movable second = SecondBitOf(instruction); second.kind != Movable::Kind::None)
      result_.secondBits.push_back({static_cast<std::uint32_t>(result_.instructions.size()), second});
    // The offset and the page of a text or a table, in two registers.
    const bool isLoad = instruction.LoadsConstant();
    if (isLoad && wasLoad_ && instruction.Byte(1) == lastRegister_ + 1) {
      UnitInstruction& before = result_.instructions.back();
      const std::uint32_t page = instruction.Word();
      if (before.movable.value < 0x4000 && page < 0x400) {
        before.movable = {Movable::Kind::Address, page << 14 | before.movable.value};
        added.movable = before.movable;
      }
    }
    wasLoad_ = isLoad;
    lastRegister_ = instruction.Byte(1);
    unit_.hash = Mixed(unit_.hash, added.token);
    unit_.code.size = at + instruction.Size() - unit_.code.offset;
    result_.instructions.push_back(added);
  }

  void End(std::uint32_t fewest) {
    unit_.count = static_cast<std::uint32_t>(result_.instructions.size()) - unit_.first;
    if (unit_.count < fewest) return Cancel();
    unit_.hash = Mixed(unit_.hash, unit_.count);
    result_.units.push_back(unit_);
  }

  void Cancel() {
    result_.instructions.resize(unit_.first);
    while (!result_.secondBits.empty() && result_.secondBits.back().instruction >= unit_.first)
      result_.secondBits.pop_back();
  }

  const Fullflash& image_;
  CodeUnits result_;
  CodeUnit unit_;
  bool wasLoad_ = false;
  int lastRegister_ = 0;
};

}  // namespace

int CodeUnits::UnitAt(Offset offset) const {
  auto after =
      std::ranges::upper_bound(units, offset, {}, [](const CodeUnit& unit) { return unit.code.offset; });
  if (after == units.begin()) return -1;
  --after;
  return after->code.Holds(offset) ? static_cast<int>(after - units.begin()) : -1;
}

int CodeUnits::UnitFrom(Offset offset) const {
  const int unit = UnitAt(offset);
  return unit >= 0 && units[static_cast<std::size_t>(unit)].code.offset == offset ? unit : -1;
}

int CodeUnits::InstructionAt(Offset offset) const {
  if (UnitAt(offset) < 0) return -1;
  const auto after = std::ranges::upper_bound(instructions, static_cast<std::uint32_t>(offset), {},
                                              &UnitInstruction::offset);
  return static_cast<int>(after - instructions.begin()) - 1;
}

CodeUnits GetCodeUnits(const Fullflash& image, const FunctionList& functions) {
  Cutter cutter(image);
  Offset end = 0;
  for (const Function& function : functions.All()) {
    if (function.code.offset < end) continue;  // it begins inside the one before
    cutter.Between(end, function.code.offset);
    cutter.Function(function);
    end = function.code.End();
  }
  cutter.Between(end, std::ssize(image.ff()));
  return std::move(cutter).Take();
}

}  // namespace tarvelo
