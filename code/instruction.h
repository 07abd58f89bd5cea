// Decodes C166 instructions.
//
// An instruction has 2 or 4 bytes; its first byte determines which. Words are little-endian. Whatever is no
// instruction (reserved encodings, an instruction that the end of the bytes cuts off) is data: 2 bytes, or a
// single last one. Decoding never allocates and never throws.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <optional>

#include "code/opcodes.h"
#include "text/bytes.h"

namespace tarvelo {

// An operand as it is written. Only the fields of its kind count.
struct Operand {
  enum class Kind : std::uint8_t {
    None,
    WordRegister,  // number 0 .. 15
    ByteRegister,  // number 0 .. 15: RL0, RH0, RL1, ...
    At,            // [Rn]
    After,         // [Rn+]
    Before,        // [-Rn]
    Indexed,       // [Rn+#value]
    Immediate,     // value
    Count,         // value 1 .. 4
    Memory,        // value: 16 bits of an address
    Special,       // value: address of a special function register
    Bit,           // of the word at address `value`, or of register `number` if `isRegister`
    BitWord,       // likewise, without a bit
    Condition,     // number
    Segment,       // value
    Target,        // value: offset of code in its segment
  };

  Kind kind = Kind::None;
  std::uint8_t number = 0;
  std::uint8_t bit = 0;
  bool isRegister = false;
  std::uint16_t value = 0;
};

using Operands = std::array<Operand, 3>;  // those behind the last one are None

class Instruction {
 public:
  // Data of no bytes.
  constexpr Instruction() = default;

  // Decodes what starts at `offset`, which must be within the bytes.
  [[nodiscard]] static Instruction Decode(Bytes bytes, Offset offset);

  [[nodiscard]] bool IsData() const { return isData_; }
  // 2 or 4 bytes; data also 1.
  [[nodiscard]] int Size() const { return size_; }
  [[nodiscard]] std::uint8_t Byte(int i) const { return bytes_[static_cast<std::size_t>(i)]; }
  [[nodiscard]] std::uint8_t Op() const { return bytes_[0]; }
  // The word of bytes 2 and 3.
  [[nodiscard]] std::uint16_t Word() const { return static_cast<std::uint16_t>(bytes_[2] | bytes_[3] << 8); }
  // The first word of data.
  [[nodiscard]] std::uint16_t DataWord() const {
    return static_cast<std::uint16_t>(bytes_[0] | bytes_[1] << 8);
  }
  [[nodiscard]] int High() const { return bytes_[1] >> 4; }
  [[nodiscard]] int Low() const { return bytes_[1] & 0xF; }

  // The rest is for instructions, not for data.

  [[nodiscard]] const Opcode& Row() const { return opcodes[bytes_[0]]; }
  [[nodiscard]] std::string_view Mnemonic() const;
  [[nodiscard]] Flow GetFlow() const { return Row().flow; }
  // Whether the program can go on with the next instruction, also after the return of a call.
  [[nodiscard]] bool FallsThrough() const;
  // The phone address that a jump or call at `address` goes to. Near and relative targets stay in the segment
  // of the instruction and wrap at 64 KiB.
  [[nodiscard]] std::optional<std::uint32_t> Target(std::uint32_t address) const;
  // Whether one of its operands is Mem; its 16 bits are Word() then.
  [[nodiscard]] bool HasMemory() const;

  // Whether it is ATOMIC or EXT*, whose range is the next 1 to 4 instructions: RangeLength().
  [[nodiscard]] bool BeginsRange() const { return !isData_ && (opcodeTraits[Op()] & beginsRange) != 0; }
  [[nodiscard]] int RangeLength() const { return (High() & 3) + 1; }

  // The operands at phone address `address`. In the range of an EXTR, EXTPR or EXTSR, `isExtended`,
  // special function registers are those of the other half.
  [[nodiscard]] Operands GetOperands(std::uint32_t address, bool isExtended) const;

 private:
  [[nodiscard]] bool IsReserved() const;
  [[nodiscard]] Operand Get(Arg arg, std::uint32_t address, bool isExtended) const;

  std::array<std::uint8_t, 4> bytes_{};
  std::uint8_t size_ = 0;
  bool isData_ = true;
};

// --- the inner loop of every sweep ---

inline Instruction Instruction::Decode(Bytes bytes, Offset offset) {
  Instruction result;
  const auto at = static_cast<std::size_t>(offset);
  const std::size_t left = bytes.size() - at;
  if (left >= 4)
    std::memcpy(result.bytes_.data(), bytes.data() + at, 4);
  else
    std::memcpy(result.bytes_.data(), bytes.data() + at, left);
  const std::uint8_t traits = opcodeTraits[result.Op()];
  const std::size_t size = traits & sizeBits;
  result.isData_ = size == 0 || size > left || ((traits & hasRule) != 0 && result.IsReserved());
  result.size_ = static_cast<std::uint8_t>(!result.isData_ ? size : left < 2 ? left : 2);
  return result;
}

}  // namespace tarvelo
