#include "code/opcodes.h"

namespace tarvelo {
namespace {

using enum Arg;

// clang-format off
constexpr std::array<Opcode, 256> rows{{
    {"ADD", 2, {WordHigh, WordLow}},  // 00
    {"ADDB", 2, {ByteHigh, ByteLow}},  // 01
    {"ADD", 4, {WordReg, Mem}},  // 02
    {"ADDB", 4, {ByteReg, Mem}},  // 03
    {"ADD", 4, {Mem, WordReg}},  // 04
    {"ADDB", 4, {Mem, ByteReg}},  // 05
    {"ADD", 4, {WordReg, Data16}},  // 06
    {"ADDB", 4, {ByteReg, Data8}},  // 07
    {"ADD", 2, {WordHigh, Short}},  // 08
    {"ADDB", 2, {ByteHigh, Short}},  // 09
    {"BFLDL", 4, {BitWord, Data8, Data8At3}},  // 0A
    {"MUL", 2, {WordHigh, WordLow}},  // 0B
    {"ROL", 2, {WordHigh, WordLow}},  // 0C
    {"JMPR", 2, {OpcodeCondition, Relative}, Flow::Jump},  // 0D
    {"BCLR", 2, {OpcodeBit}},  // 0E
    {"BSET", 2, {OpcodeBit}},  // 0F
    {"ADDC", 2, {WordHigh, WordLow}},  // 10
    {"ADDCB", 2, {ByteHigh, ByteLow}},  // 11
    {"ADDC", 4, {WordReg, Mem}},  // 12
    {"ADDCB", 4, {ByteReg, Mem}},  // 13
    {"ADDC", 4, {Mem, WordReg}},  // 14
    {"ADDCB", 4, {Mem, ByteReg}},  // 15
    {"ADDC", 4, {WordReg, Data16}},  // 16
    {"ADDCB", 4, {ByteReg, Data8}},  // 17
    {"ADDC", 2, {WordHigh, Short}},  // 18
    {"ADDCB", 2, {ByteHigh, Short}},  // 19
    {"BFLDH", 4, {BitWord, Data8At3, Data8}},  // 1A
    {"MULU", 2, {WordHigh, WordLow}},  // 1B
    {"ROL", 2, {WordLow, Data4}},  // 1C
    {"JMPR", 2, {OpcodeCondition, Relative}, Flow::Branch},  // 1D
    {"BCLR", 2, {OpcodeBit}},  // 1E
    {"BSET", 2, {OpcodeBit}},  // 1F
    {"SUB", 2, {WordHigh, WordLow}},  // 20
    {"SUBB", 2, {ByteHigh, ByteLow}},  // 21
    {"SUB", 4, {WordReg, Mem}},  // 22
    {"SUBB", 4, {ByteReg, Mem}},  // 23
    {"SUB", 4, {Mem, WordReg}},  // 24
    {"SUBB", 4, {Mem, ByteReg}},  // 25
    {"SUB", 4, {WordReg, Data16}},  // 26
    {"SUBB", 4, {ByteReg, Data8}},  // 27
    {"SUB", 2, {WordHigh, Short}},  // 28
    {"SUBB", 2, {ByteHigh, Short}},  // 29
    {"BCMP", 4, {BitZ, BitQ}},  // 2A
    {"PRIOR", 2, {WordHigh, WordLow}},  // 2B
    {"ROR", 2, {WordHigh, WordLow}},  // 2C
    {"JMPR", 2, {OpcodeCondition, Relative}, Flow::Branch},  // 2D
    {"BCLR", 2, {OpcodeBit}},  // 2E
    {"BSET", 2, {OpcodeBit}},  // 2F
    {"SUBC", 2, {WordHigh, WordLow}},  // 30
    {"SUBCB", 2, {ByteHigh, ByteLow}},  // 31
    {"SUBC", 4, {WordReg, Mem}},  // 32
    {"SUBCB", 4, {ByteReg, Mem}},  // 33
    {"SUBC", 4, {Mem, WordReg}},  // 34
    {"SUBCB", 4, {Mem, ByteReg}},  // 35
    {"SUBC", 4, {WordReg, Data16}},  // 36
    {"SUBCB", 4, {ByteReg, Data8}},  // 37
    {"SUBC", 2, {WordHigh, Short}},  // 38
    {"SUBCB", 2, {ByteHigh, Short}},  // 39
    {"BMOVN", 4, {BitZ, BitQ}},  // 3A
    {},  // 3B
    {"ROR", 2, {WordLow, Data4}},  // 3C
    {"JMPR", 2, {OpcodeCondition, Relative}, Flow::Branch},  // 3D
    {"BCLR", 2, {OpcodeBit}},  // 3E
    {"BSET", 2, {OpcodeBit}},  // 3F
    {"CMP", 2, {WordHigh, WordLow}},  // 40
    {"CMPB", 2, {ByteHigh, ByteLow}},  // 41
    {"CMP", 4, {WordReg, Mem}},  // 42
    {"CMPB", 4, {ByteReg, Mem}},  // 43
    {},  // 44
    {},  // 45
    {"CMP", 4, {WordReg, Data16}},  // 46
    {"CMPB", 4, {ByteReg, Data8}},  // 47
    {"CMP", 2, {WordHigh, Short}},  // 48
    {"CMPB", 2, {ByteHigh, Short}},  // 49
    {"BMOV", 4, {BitZ, BitQ}},  // 4A
    {"DIV", 2, {WordHigh}, Flow::Next, Rule::SameNibbles},  // 4B
    {"SHL", 2, {WordHigh, WordLow}},  // 4C
    {"JMPR", 2, {OpcodeCondition, Relative}, Flow::Branch},  // 4D
    {"BCLR", 2, {OpcodeBit}},  // 4E
    {"BSET", 2, {OpcodeBit}},  // 4F
    {"XOR", 2, {WordHigh, WordLow}},  // 50
    {"XORB", 2, {ByteHigh, ByteLow}},  // 51
    {"XOR", 4, {WordReg, Mem}},  // 52
    {"XORB", 4, {ByteReg, Mem}},  // 53
    {"XOR", 4, {Mem, WordReg}},  // 54
    {"XORB", 4, {Mem, ByteReg}},  // 55
    {"XOR", 4, {WordReg, Data16}},  // 56
    {"XORB", 4, {ByteReg, Data8}},  // 57
    {"XOR", 2, {WordHigh, Short}},  // 58
    {"XORB", 2, {ByteHigh, Short}},  // 59
    {"BOR", 4, {BitZ, BitQ}},  // 5A
    {"DIVU", 2, {WordHigh}, Flow::Next, Rule::SameNibbles},  // 5B
    {"SHL", 2, {WordLow, Data4}},  // 5C
    {"JMPR", 2, {OpcodeCondition, Relative}, Flow::Branch},  // 5D
    {"BCLR", 2, {OpcodeBit}},  // 5E
    {"BSET", 2, {OpcodeBit}},  // 5F
    {"AND", 2, {WordHigh, WordLow}},  // 60
    {"ANDB", 2, {ByteHigh, ByteLow}},  // 61
    {"AND", 4, {WordReg, Mem}},  // 62
    {"ANDB", 4, {ByteReg, Mem}},  // 63
    {"AND", 4, {Mem, WordReg}},  // 64
    {"ANDB", 4, {Mem, ByteReg}},  // 65
    {"AND", 4, {WordReg, Data16}},  // 66
    {"ANDB", 4, {ByteReg, Data8}},  // 67
    {"AND", 2, {WordHigh, Short}},  // 68
    {"ANDB", 2, {ByteHigh, Short}},  // 69
    {"BAND", 4, {BitZ, BitQ}},  // 6A
    {"DIVL", 2, {WordHigh}, Flow::Next, Rule::SameNibbles},  // 6B
    {"SHR", 2, {WordHigh, WordLow}},  // 6C
    {"JMPR", 2, {OpcodeCondition, Relative}, Flow::Branch},  // 6D
    {"BCLR", 2, {OpcodeBit}},  // 6E
    {"BSET", 2, {OpcodeBit}},  // 6F
    {"OR", 2, {WordHigh, WordLow}},  // 70
    {"ORB", 2, {ByteHigh, ByteLow}},  // 71
    {"OR", 4, {WordReg, Mem}},  // 72
    {"ORB", 4, {ByteReg, Mem}},  // 73
    {"OR", 4, {Mem, WordReg}},  // 74
    {"ORB", 4, {Mem, ByteReg}},  // 75
    {"OR", 4, {WordReg, Data16}},  // 76
    {"ORB", 4, {ByteReg, Data8}},  // 77
    {"OR", 2, {WordHigh, Short}},  // 78
    {"ORB", 2, {ByteHigh, Short}},  // 79
    {"BXOR", 4, {BitZ, BitQ}},  // 7A
    {"DIVLU", 2, {WordHigh}, Flow::Next, Rule::SameNibbles},  // 7B
    {"SHR", 2, {WordLow, Data4}},  // 7C
    {"JMPR", 2, {OpcodeCondition, Relative}, Flow::Branch},  // 7D
    {"BCLR", 2, {OpcodeBit}},  // 7E
    {"BSET", 2, {OpcodeBit}},  // 7F
    {"CMPI1", 2, {WordLow, Data4}},  // 80
    {"NEG", 2, {WordHigh}, Flow::Next, Rule::LowNibble0},  // 81
    {"CMPI1", 4, {WordLow, Mem}, Flow::Next, Rule::HighNibbleF},  // 82
    {},  // 83
    {"MOV", 4, {AtLow, Mem}, Flow::Next, Rule::HighNibble0},  // 84
    {},  // 85
    {"CMPI1", 4, {WordLow, Data16}, Flow::Next, Rule::HighNibbleF},  // 86
    {"IDLE", 4, {}, Flow::Next, Rule::Protected},  // 87
    {"MOV", 2, {BeforeLow, WordHigh}},  // 88
    {"MOVB", 2, {BeforeLow, ByteHigh}},  // 89
    {"JB", 4, {BitQ, RelativeAt2}, Flow::Branch, Rule::LowNibbleAt3},  // 8A
    {},  // 8B
    {},  // 8C
    {"JMPR", 2, {OpcodeCondition, Relative}, Flow::Branch},  // 8D
    {"BCLR", 2, {OpcodeBit}},  // 8E
    {"BSET", 2, {OpcodeBit}},  // 8F
    {"CMPI2", 2, {WordLow, Data4}},  // 90
    {"CPL", 2, {WordHigh}, Flow::Next, Rule::LowNibble0},  // 91
    {"CMPI2", 4, {WordLow, Mem}, Flow::Next, Rule::HighNibbleF},  // 92
    {},  // 93
    {"MOV", 4, {Mem, AtLow}, Flow::Next, Rule::HighNibble0},  // 94
    {},  // 95
    {"CMPI2", 4, {WordLow, Data16}, Flow::Next, Rule::HighNibbleF},  // 96
    {"PWRDN", 4, {}, Flow::Next, Rule::Protected},  // 97
    {"MOV", 2, {WordHigh, AfterLow}},  // 98
    {"MOVB", 2, {ByteHigh, AfterLow}},  // 99
    {"JNB", 4, {BitQ, RelativeAt2}, Flow::Branch, Rule::LowNibbleAt3},  // 9A
    {"TRAP", 2, {Trap}, Flow::Trap, Rule::Even},  // 9B
    {"JMPI", 2, {Condition, AtLow}, Flow::IndirectJump},  // 9C
    {"JMPR", 2, {OpcodeCondition, Relative}, Flow::Branch},  // 9D
    {"BCLR", 2, {OpcodeBit}},  // 9E
    {"BSET", 2, {OpcodeBit}},  // 9F
    {"CMPD1", 2, {WordLow, Data4}},  // A0
    {"NEGB", 2, {ByteHigh}, Flow::Next, Rule::LowNibble0},  // A1
    {"CMPD1", 4, {WordLow, Mem}, Flow::Next, Rule::HighNibbleF},  // A2
    {},  // A3
    {"MOVB", 4, {AtLow, Mem}, Flow::Next, Rule::HighNibble0},  // A4
    {"DISWDT", 4, {}, Flow::Next, Rule::Protected},  // A5
    {"CMPD1", 4, {WordLow, Data16}, Flow::Next, Rule::HighNibbleF},  // A6
    {"SRVWDT", 4, {}, Flow::Next, Rule::Protected},  // A7
    {"MOV", 2, {WordHigh, AtLow}},  // A8
    {"MOVB", 2, {ByteHigh, AtLow}},  // A9
    {"JBC", 4, {BitQ, RelativeAt2}, Flow::Branch, Rule::LowNibbleAt3},  // AA
    {"CALLI", 2, {Condition, AtLow}, Flow::IndirectCall},  // AB
    {"ASHR", 2, {WordHigh, WordLow}},  // AC
    {"JMPR", 2, {OpcodeCondition, Relative}, Flow::Branch},  // AD
    {"BCLR", 2, {OpcodeBit}},  // AE
    {"BSET", 2, {OpcodeBit}},  // AF
    {"CMPD2", 2, {WordLow, Data4}},  // B0
    {"CPLB", 2, {ByteHigh}, Flow::Next, Rule::LowNibble0},  // B1
    {"CMPD2", 4, {WordLow, Mem}, Flow::Next, Rule::HighNibbleF},  // B2
    {},  // B3
    {"MOVB", 4, {Mem, AtLow}, Flow::Next, Rule::HighNibble0},  // B4
    {"EINIT", 4, {}, Flow::Next, Rule::Protected},  // B5
    {"CMPD2", 4, {WordLow, Data16}, Flow::Next, Rule::HighNibbleF},  // B6
    {"SRST", 4, {}, Flow::Stop, Rule::Protected},  // B7
    {"MOV", 2, {AtLow, WordHigh}},  // B8
    {"MOVB", 2, {AtLow, ByteHigh}},  // B9
    {"JNBS", 4, {BitQ, RelativeAt2}, Flow::Branch, Rule::LowNibbleAt3},  // BA
    {"CALLR", 2, {Relative}, Flow::Call},  // BB
    {"ASHR", 2, {WordLow, Data4}},  // BC
    {"JMPR", 2, {OpcodeCondition, Relative}, Flow::Branch},  // BD
    {"BCLR", 2, {OpcodeBit}},  // BE
    {"BSET", 2, {OpcodeBit}},  // BF
    {"MOVBZ", 2, {WordLow, ByteHigh}},  // C0
    {},  // C1
    {"MOVBZ", 4, {WordReg, Mem}},  // C2
    {},  // C3
    {"MOV", 4, {IndexedLow, WordHigh}},  // C4
    {"MOVBZ", 4, {Mem, ByteReg}},  // C5
    {"SCXT", 4, {WordReg, Data16}},  // C6
    {},  // C7
    {"MOV", 2, {AtHigh, AtLow}},  // C8
    {"MOVB", 2, {AtHigh, AtLow}},  // C9
    {"CALLA", 4, {Condition, Near}, Flow::Call, Rule::LowNibble0},  // CA
    {"RET", 2, {}, Flow::Return, Rule::Zero},  // CB
    {"NOP", 2, {}, Flow::Next, Rule::Zero},  // CC
    {"JMPR", 2, {OpcodeCondition, Relative}, Flow::Branch},  // CD
    {"BCLR", 2, {OpcodeBit}},  // CE
    {"BSET", 2, {OpcodeBit}},  // CF
    {"MOVBS", 2, {WordLow, ByteHigh}},  // D0
    {"ATOMIC", 2, {Count}, Flow::Next, Rule::Atomic},  // D1
    {"MOVBS", 4, {WordReg, Mem}},  // D2
    {},  // D3
    {"MOV", 4, {WordHigh, IndexedLow}},  // D4
    {"MOVBS", 4, {Mem, ByteReg}},  // D5
    {"SCXT", 4, {WordReg, Mem}},  // D6
    {"EXTS", 4, {PageOrSegment, Count}, Flow::Next, Rule::Extend},  // D7
    {"MOV", 2, {AfterHigh, AtLow}},  // D8
    {"MOVB", 2, {AfterHigh, AtLow}},  // D9
    {"CALLS", 4, {Segment, Far}, Flow::Call},  // DA
    {"RETS", 2, {}, Flow::Return, Rule::Zero},  // DB
    {"EXTS", 2, {WordLow, Count}},  // DC
    {"JMPR", 2, {OpcodeCondition, Relative}, Flow::Branch},  // DD
    {"BCLR", 2, {OpcodeBit}},  // DE
    {"BSET", 2, {OpcodeBit}},  // DF
    {"MOV", 2, {WordLow, Data4}},  // E0
    {"MOVB", 2, {ByteLow, Data4}},  // E1
    {"PCALL", 4, {WordReg, Near}, Flow::Call},  // E2
    {},  // E3
    {"MOVB", 4, {IndexedLow, ByteHigh}},  // E4
    {},  // E5
    {"MOV", 4, {WordReg, Data16}},  // E6
    {"MOVB", 4, {ByteReg, Data8}},  // E7
    {"MOV", 2, {AtHigh, AfterLow}},  // E8
    {"MOVB", 2, {AtHigh, AfterLow}},  // E9
    {"JMPA", 4, {Condition, Near}, Flow::Jump, Rule::LowNibble0},  // EA
    {"RETP", 2, {WordReg}, Flow::Return},  // EB
    {"PUSH", 2, {WordReg}},  // EC
    {"JMPR", 2, {OpcodeCondition, Relative}, Flow::Branch},  // ED
    {"BCLR", 2, {OpcodeBit}},  // EE
    {"BSET", 2, {OpcodeBit}},  // EF
    {"MOV", 2, {WordHigh, WordLow}},  // F0
    {"MOVB", 2, {ByteHigh, ByteLow}},  // F1
    {"MOV", 4, {WordReg, Mem}},  // F2
    {"MOVB", 4, {ByteReg, Mem}},  // F3
    {"MOVB", 4, {ByteHigh, IndexedLow}},  // F4
    {},  // F5
    {"MOV", 4, {Mem, WordReg}},  // F6
    {"MOVB", 4, {Mem, ByteReg}},  // F7
    {},  // F8
    {},  // F9
    {"JMPS", 4, {Segment, Far}, Flow::Jump},  // FA
    {"RETI", 2, {}, Flow::Return, Rule::Is88},  // FB
    {"POP", 2, {WordReg}},  // FC
    {"JMPR", 2, {OpcodeCondition, Relative}, Flow::Branch},  // FD
    {"BCLR", 2, {OpcodeBit}},  // FE
    {"BSET", 2, {OpcodeBit}},  // FF
}};
// clang-format on

constexpr bool BeginsRange(const Opcode& row) { return row.args[0] == Count || row.args[1] == Count; }

constexpr std::array<std::uint8_t, 256> Traits() {
  std::array<std::uint8_t, 256> traits{};
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const Rule rule = rows[i].rule;
    const bool isLong = rule == Rule::SameNibbles || rule == Rule::Extend;
    traits[i] =
        static_cast<std::uint8_t>((isLong ? hasMoreRules : 0) | (BeginsRange(rows[i]) ? beginsRange : 0));
  }
  return traits;
}

static_assert([] {
  for (std::size_t op = 0; op < rows.size(); ++op)
    if (rows[op].size != 0 && rows[op].size != SizeOf(static_cast<std::uint8_t>(op))) return false;
  return true;
}());

constexpr OpcodeCheck CheckOf(Rule rule, std::uint32_t op) {
  switch (rule) {
    case Rule::None:
    case Rule::SameNibbles: return {0, 0};
    case Rule::HighNibbleF: return {0xF000, 0xF000};
    case Rule::HighNibble0: return {0xF000, 0};
    case Rule::LowNibble0: return {0x0F00, 0};
    case Rule::LowNibbleAt3: return {0x0F000000, 0};
    case Rule::Even: return {0x0100, 0};
    case Rule::Zero: return {0xFF00, 0};
    case Rule::Is88: return {0xFF00, 0x8800};
    case Rule::Atomic: return {0x4F00, 0};
    case Rule::Extend: return {0xFC000F00, 0};  // and a segment has 8 bits
    case Rule::Protected: return {0xFFFFFF00, (op ^ 0xFF) << 8 | op << 16 | op << 24};
  }
  return {};
}

constexpr std::array<OpcodeCheck, 256> Checks() {
  std::array<OpcodeCheck, 256> checks{};
  for (std::uint32_t op = 0; op < rows.size(); ++op)
    checks[op] = rows[op].size == 0 ? OpcodeCheck{0, 1} : CheckOf(rows[op].rule, op);
  return checks;
}

}  // namespace

constinit const std::array<Opcode, 256> opcodes = rows;
constinit const std::array<std::uint8_t, 256> opcodeTraits = Traits();
constinit const std::array<OpcodeCheck, 256> opcodeChecks = Checks();

}  // namespace tarvelo
