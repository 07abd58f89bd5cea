// Decodes C166 instructions.
//
// An instruction has 2 or 4 bytes; its first byte determines which. Words are little-endian. Whatever is no
// instruction (reserved encodings, an instruction that the end of the bytes cuts off) is data: 2 bytes, or a
// single last one. Decoding never allocates and never throws.
#pragma once

#include <array>
#include <cstdint>
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
  [[nodiscard]] std::uint8_t Byte(int i) const { return static_cast<std::uint8_t>(bytes_ >> 8 * i); }
  [[nodiscard]] std::uint8_t Op() const { return Byte(0); }
  // The word of bytes 2 and 3.
  [[nodiscard]] std::uint16_t Word() const { return static_cast<std::uint16_t>(bytes_ >> 16); }
  // The first word of data.
  [[nodiscard]] std::uint16_t DataWord() const { return static_cast<std::uint16_t>(bytes_); }
  [[nodiscard]] int High() const { return Byte(1) >> 4; }
  [[nodiscard]] int Low() const { return Byte(1) & 0xF; }

  // Whether it is a word of 0000 or FFFF, which fills gaps.
  [[nodiscard]] bool IsFilling() const { return size_ == 2 && (DataWord() == 0 || DataWord() == 0xFFFF); }

  // The rest is for instructions, not for data.

  [[nodiscard]] const Opcode& Row() const { return opcodes[Op()]; }
  [[nodiscard]] std::string_view Mnemonic() const;
  [[nodiscard]] Flow GetFlow() const { return Row().flow; }
  // Whether the program can go on with the next instruction, also after the return of a call.
  [[nodiscard]] bool FallsThrough() const;
  // The phone address that a jump or call at `address` goes to. Near and relative targets stay in the segment
  // of the instruction and wrap at 64 KiB.
  [[nodiscard]] std::optional<std::uint32_t> Target(std::uint32_t address) const;
  // Whether it is MOV Rn, #data16; the constant is Word() then. Also for data: false.
  [[nodiscard]] bool LoadsConstant() const { return !isData_ && Op() == op::moveConstant && Byte(1) >= 0xF0; }
  // Whether one of its operands is Mem; its 16 bits are Word() then.
  [[nodiscard]] bool HasMemory() const;

  // Whether it is ATOMIC or EXT*, whose range is the next 1 to 4 instructions: RangeLength().
  [[nodiscard]] bool BeginsRange() const { return !isData_ && (opcodeTraits[Op()] & beginsRange) != 0; }
  [[nodiscard]] int RangeLength() const { return (High() & 3) + 1; }

  // The operands at phone address `address`. In the range of an EXTR, EXTPR or EXTSR, `isExtended`,
  // special function registers are those of the other half.
  [[nodiscard]] Operands GetOperands(std::uint32_t address, bool isExtended) const;

 private:
  Instruction(std::uint32_t bytes, int size, bool isData)
      : bytes_(bytes), size_(static_cast<std::uint8_t>(size)), isData_(isData) {}

  // Decodes where 1 to 3 bytes are left.
  [[nodiscard]] static Instruction DecodeAtEnd(Bytes bytes);
  [[nodiscard]] static bool IsReserved(std::uint32_t bytes);
  [[nodiscard]] static bool BreaksMoreRules(std::uint32_t bytes);
  [[nodiscard]] Operand Get(Arg arg, std::uint32_t address, bool isExtended) const;

  std::uint32_t bytes_ = 0;  // little-endian
  std::uint8_t size_ = 0;
  bool isData_ = true;
};

// --- the inner loop of every sweep ---

// Numbers alone until the end: an object would go through memory, and the next step would wait for it.
inline Instruction Instruction::Decode(Bytes bytes, Offset offset) {
  const auto at = static_cast<std::size_t>(offset);
  if (bytes.size() - at < 4) [[unlikely]]
    return DecodeAtEnd(bytes.subspan(at));
  const std::uint8_t* const from = bytes.data() + at;  // the compiler makes one read of these
  const std::uint32_t all = from[0] | from[1] << 8 | from[2] << 16 | std::uint32_t{from[3]} << 24;
  if (IsReserved(all)) [[unlikely]]
    return {all, 2, true};
  return {all, SizeOf(from[0]), false};
}

inline bool Instruction::IsReserved(std::uint32_t bytes) {
  const OpcodeCheck& check = opcodeChecks[bytes & 0xFF];
  return (bytes & check.mask) != check.value ||
         ((opcodeTraits[bytes & 0xFF] & hasMoreRules) != 0 && BreaksMoreRules(bytes));
}

}  // namespace tarvelo
