// The instruction set of the C166, as data: one row for each first byte of an instruction.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace tarvelo {

// Where an operand is in an instruction, and how it is written. Byte 0 is the opcode. "High" and "Low" are
// the nibbles of byte 1.
enum class Arg : std::uint8_t {
  None,
  WordHigh,         // R5
  WordLow,          // R5
  ByteHigh,         // RL5
  ByteLow,          // RL5
  AtHigh,           // [R5]
  AtLow,            // [R5]
  AfterHigh,        // [R5+]
  AfterLow,         // [R5+]
  BeforeLow,        // [-R5]
  IndexedLow,       // [R5+#1234h], the word at 2
  Short,            // low nibble: #0 .. #7, [R0] .. [R3] or [R0+] .. [R3+]
  WordReg,          // byte 1: a word register or a special function register
  ByteReg,          // byte 1: a byte register or a special function register
  Mem,              // 16 bits of a data address, the word at 2
  Data4,            // high nibble
  Data8,            // byte 2
  Data8At3,         // byte 3
  Data16,           // the word at 2
  OpcodeBit,        // byte 1 and the opcode's high nibble: R5.12
  BitQ,             // byte 1 and the high nibble of byte 3
  BitZ,             // byte 2 and the low nibble of byte 3
  BitWord,          // byte 1, without a bit
  OpcodeCondition,  // the opcode's high nibble: cc_NZ
  Condition,        // high nibble
  Segment,          // byte 1
  Far,              // the word at 2, an offset in that segment
  Near,             // the word at 2, an offset in the segment of the instruction
  Relative,         // byte 1: words from the next instruction
  RelativeAt2,      // byte 2: likewise
  Trap,             // byte 1 / 2
  Count,            // bits 5 and 4 of byte 1, plus 1
  PageOrSegment,    // the word at 2
};

// Where the program goes after an instruction. JMPA and JMPI with a condition are Jump and IndirectJump, too:
// Instruction::FallsThrough tells whether they can go on.
enum class Flow : std::uint8_t {
  Next,
  Jump,          // to a known place
  Branch,        // there, or on
  Call,          // of a known place, then on
  IndirectJump,  // to where a register says
  IndirectCall,
  Trap,
  Return,
  Stop,  // SRST
};

// What must hold for an encoding; all others of the row are reserved.
enum class Rule : std::uint8_t {
  None,
  SameNibbles,   // both nibbles of byte 1 are equal
  HighNibbleF,   // of byte 1
  HighNibble0,   // of byte 1
  LowNibble0,    // of byte 1
  LowNibbleAt3,  // the low nibble of byte 3 is 0
  Even,          // byte 1
  Zero,          // byte 1
  Is88,          // byte 1
  Atomic,        // low nibble and bit 6 of byte 1 are 0
  Extend,        // low nibble of byte 1 is 0, the page has 10 bits, the segment 8
  Protected,     // byte 1 is the opcode's complement, bytes 2 and 3 repeat it
};

// First bytes that code asks for by name.
namespace op {
inline constexpr std::uint8_t bitFieldLow = 0x0A;
inline constexpr std::uint8_t bitFieldHigh = 0x1A;
inline constexpr std::uint8_t jumpIndirect = 0x9C;
inline constexpr std::uint8_t switchContext = 0xC6;  // SCXT reg, #data16
inline constexpr std::uint8_t callAbsolute = 0xCA;
inline constexpr std::uint8_t atomicOrExtend = 0xD1;
inline constexpr std::uint8_t extendByNumber = 0xD7;
inline constexpr std::uint8_t callSegment = 0xDA;
inline constexpr std::uint8_t extendByRegister = 0xDC;
inline constexpr std::uint8_t moveShort = 0xE0;  // MOV Rn, #data4
inline constexpr std::uint8_t pushAndCall = 0xE2;
inline constexpr std::uint8_t moveConstant = 0xE6;  // MOV reg, #data16
inline constexpr std::uint8_t jumpAbsolute = 0xEA;
inline constexpr std::uint8_t jumpSegment = 0xFA;
}  // namespace op

struct Opcode {
  std::string_view mnemonic;     // of the first of several instructions that share an opcode
  std::uint8_t size = 0;         // 2 or 4 bytes; 0: undefined
  std::array<Arg, 3> args = {};  // in the order in which they are written
  Flow flow = Flow::Next;
  Rule rule = Rule::None;
};

// By the first byte.
extern const std::array<Opcode, 256> opcodes;

// What else decoding needs of a row.
inline constexpr std::uint8_t hasMoreRules = 1;  // OpcodeCheck does not tell all: SameNibbles, Extend
inline constexpr std::uint8_t beginsRange = 2;
extern const std::array<std::uint8_t, 256> opcodeTraits;

// The size of a defined opcode, as in its row: its low nibble tells. Quicker than the row, and every walk
// through code waits for it.
constexpr std::uint8_t SizeOf(std::uint8_t op) {
  constexpr std::uint32_t longNibbles = 0b0000'0100'1111'1100;
  return static_cast<std::uint8_t>(2 + 2 * (longNibbles >> (op & 0xF) & 1));  // no branch: code is random
}

// The rule of a row as bits of the four bytes, the first one lowest: an encoding is reserved unless
// (bytes & mask) == value. The opcode's own bits are not in the mask. Undefined opcodes never match.
struct OpcodeCheck {
  std::uint32_t mask = 0;
  std::uint32_t value = 0;
};
extern const std::array<OpcodeCheck, 256> opcodeChecks;

}  // namespace tarvelo
