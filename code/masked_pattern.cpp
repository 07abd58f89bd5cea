#include "code/masked_pattern.h"

#include <algorithm>

#include "code/sweep.h"
#include "core/notation.h"

namespace tarvelo {
namespace {

constexpr std::uint8_t byte1 = 2;
constexpr std::uint8_t byte2 = 4;
constexpr std::uint8_t byte3 = 8;
constexpr std::uint8_t word = byte2 | byte3;

bool IsSpecialRegister(std::uint16_t address) {
  return address >= 0xFE00 || (address >= 0xF000 && address < 0xF200);
}

// Bits of variables; those above are of special function registers and R0 .. R15.
bool IsVariable(std::uint8_t bitoff) { return bitoff < 0x80; }

// The bytes that one operand contributes.
std::uint8_t Movable(Arg arg, const Instruction& instruction, const ExtRange& range) {
  switch (arg) {
    case Arg::IndexedLow:
    case Arg::Data16:
    case Arg::PageOrSegment:
    case Arg::Near:
    case Arg::Far: return word;
    case Arg::Mem: return range.ReplacesDpp() || !IsSpecialRegister(instruction.Word()) ? word : 0;
    case Arg::Segment:
    case Arg::Relative: return byte1;
    case Arg::RelativeAt2: return byte2;
    case Arg::OpcodeBit:
    case Arg::BitWord: return IsVariable(instruction.Byte(1)) ? byte1 : 0;
    case Arg::BitQ: return IsVariable(instruction.Byte(1)) ? byte1 | byte3 : 0;
    case Arg::BitZ: return IsVariable(instruction.Byte(2)) ? byte2 | byte3 : 0;
    default: return 0;
  }
}

}  // namespace

std::uint8_t MovableBytes(const Instruction& instruction, const ExtRange& range) {
  if (instruction.IsData()) return 0;
  std::uint8_t bytes = 0;
  for (const Arg arg : instruction.Row().args)
    bytes = static_cast<std::uint8_t>(bytes | Movable(arg, instruction, range));
  return bytes;
}

std::string MaskedPattern(Bytes bytes, Region region) {
  std::string pattern;
  Sweep(bytes, std::max<Offset>(0, region.offset), region.End(),
        [&](Offset, const Instruction& instruction, const ExtRange& range) {
          const std::uint8_t movable = MovableBytes(instruction, range);
          for (int i = 0; i < instruction.Size(); ++i)
            pattern += (movable >> i & 1) != 0 ? "??" : HexOfByte(instruction.Byte(i));
          return false;
        });
  return pattern;
}

}  // namespace tarvelo
