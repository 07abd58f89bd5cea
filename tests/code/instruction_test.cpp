// Every operand form and every reserved encoding, worked out by hand from the instruction set's encodings.
#include "code/instruction.h"

#include <gtest/gtest.h>

#include <sstream>

#include "code/instruction_text.h"
#include "code/sweep.h"
#include "images.h"

namespace tarvelo {
namespace {

constexpr std::uint32_t address = 0x80FFF0;

std::string TextOf(const Data& bytes, bool isExtended = false) {
  return std::string(TextOf(Instruction::Decode(bytes, 0), address, isExtended).View());
}

// The texts of all that a sweep finds.
std::vector<std::string> TextsOf(const Data& bytes, Offset from = 0) {
  std::vector<std::string> texts;
  Sweep(bytes, from, static_cast<Offset>(bytes.size()),
        [&](Offset at, const Instruction& instruction, const ExtRange& range) {
          const auto here = address + static_cast<std::uint32_t>(at);
          texts.emplace_back(TextOf(instruction, here, range.IsExtended()).View());
          return false;
        });
  return texts;
}

// Bytes and their text.
constexpr char everyForm[] = R"(
  005A ADD R5, R10; 010F ADDB RL0, RH7; 02F53412 ADD R5, 1234h; 02100000 ADD 0FE20h, 0h;
  03F3CDAB ADDB RH1, 0ABCDh; 048810FE ADD 0FE10h, PSW; 06070201 ADD MDL, #102h; 07F18077 ADDB RH0, #80h;
  0897 ADD R9, #7h; 089B ADD R9, [R3]; 492C CMPB RL1, [R0+]; 0A880FF0 BFLDL PSW, #0Fh, #0F0h;
  1A880FF0 BFLDH PSW, #0F0h, #0Fh; 3DFE JMPR cc_NZ, 0FFEEh; 0D07 JMPR cc_UC, 0h; FD7F JMPR cc_ULE, 0F0h;
  BB80 CALLR 0FEF2h; 9EF4 BCLR R4.9; BF88 BSET PSW.11; 0F34 BSET 0FD68h.0; 4A34F7C5 BMOV R7.5, 0FD68h.12;
  4B33 DIV R3; 5C4E SHL R14, #4h; 81C0 NEG R12; A1C0 NEGB RL6; 82F62010 CMPI1 R6, 1020h;
  86F62010 CMPI1 R6, #1020h; 84062010 MOV [R6], 1020h; B4062010 MOVB 1020h, [R6]; 8810 MOV [-R0], R1;
  8910 MOVB [-R0], RH0; 9810 MOV R1, [R0+]; A910 MOVB RH0, [R0]; B810 MOV [R0], R1; C812 MOV [R1], [R2];
  D812 MOV [R1+], [R2]; E912 MOVB [R1], [R2+]; C012 MOVBZ R2, RH0; C2F40090 MOVBZ R4, 9000h;
  C5F40090 MOVBZ 9000h, RL2; C4453412 MOV [R5+#1234h], R4; F445FEFF MOVB RL2, [R5+#0FFFEh];
  8AF40290 JB R4.9, 0FFF8h; BA88FFB0 JNBS PSW.11, 0FFF2h; 9B54 TRAP #2Ah; 9C35 JMPI cc_NZ, [R5];
  AB05 CALLI cc_UC, [R5]; CA003412 CALLA cc_UC, 1234h; EAA03412 JMPA cc_SGT, 1234h;
  DA806A00 CALLS 80h, 6Ah; FAFF00C0 JMPS 0FFh, 0C000h; E2F43412 PCALL R4, 1234h; EB03 RETP DPP3;
  EC08 PUSH CP; E0F4 MOV R4, #0Fh; E1F4 MOVB RL2, #0Fh; E6000402 MOV DPP0, #204h; E7F42A00 MOVB RL2, #2Ah;
  EC04 PUSH CSP; EC06 PUSH MDH; EC09 PUSH SP; EC0A PUSH STKOV; EC0B PUSH STKUN; EC87 PUSH MDC;
  EC89 PUSH SYSCON; EC8F PUSH ONES;
  F68E3412 MOV 1234h, ZEROS; C6D60100 SCXT TFR, #1h; D100 ATOMIC #1; D1B0 EXTR #4; D7008000 EXTS #80h, #1;
  D7500402 EXTP #204h, #2; D7A08000 EXTSR #80h, #3; D7F0FF03 EXTPR #3FFh, #4; DC05 EXTS R5, #1;
  DC75 EXTP R5, #4; DC85 EXTSR R5, #1; DCC5 EXTPR R5, #1; FB88 RETI; B748B7B7 SRST; A758A7A7 SRVWDT)";

TEST(Instruction, WritesEveryOperandForm) {
  int forms = 0;
  std::istringstream all(everyForm);
  for (std::string digits, text; all >> digits && std::getline(all >> std::ws, text, ';'); ++forms) {
    const Data bytes = *ReadHex(digits);
    EXPECT_EQ(TextOf(bytes), text);
    EXPECT_EQ(Instruction::Decode(bytes, 0).Size(), std::ssize(bytes)) << text;
  }
  EXPECT_EQ(forms, 81);
}

TEST(Instruction, NamesTheOtherHalfOfSpecialRegisters) {
  EXPECT_EQ(TextOf("E6070201"_hex, true), "MOV 0F00Eh, #102h");
  EXPECT_EQ(TextOf("BF88"_hex, true), "BSET 0F110h.11");
  EXPECT_EQ(TextOf("BF34"_hex, true), "BSET 0FD68h.11");
  EXPECT_EQ(TextOf("ECF4"_hex, true), "PUSH R4");
}

// Each is nearly an instruction: one nibble or byte breaks its rule.
TEST(Instruction, ShowsReservedEncodingsAsData) {
  constexpr const char* reserved[] = {
      "4B34", "82E62010", "B6762010", "81C1", "B1C8", "84162010", "B4862010", "8AF40291", "BAF40298", "9B55",
      "CA013412", "EAA83412", "CB01", "DB80", "CC10", "FB89", "D101", "D140", "D7018000", "D7008001",
      "D7808002", "D7400404", "D7C00480", "87798787", "B748B6B7", "A55AA525",
      // opcodes without a meaning
      "3B00", "4400", "4500", "8300", "8500", "8B00", "8C00", "9300", "9500", "A300", "B300", "C100", "C300",
      "C700", "D300", "E300", "E500", "F500", "F800", "F900"};
  for (const char* digits : reserved) {
    const Instruction data = Instruction::Decode(*ReadHex(digits), 0);
    EXPECT_TRUE(data.IsData()) << digits;
    EXPECT_EQ(data.Size(), 2) << digits;
  }
  EXPECT_EQ(TextOf("8C00"_hex), "DW 8Ch");
  EXPECT_EQ(TextOf("008C"_hex), "ADD R8, R12");
  EXPECT_EQ(TextOf("F9F9"_hex), "DW 0F9F9h");
}

TEST(Instruction, IsDataWhereTheBytesEnd) {
  EXPECT_EQ(TextOf("FF"_hex), "DB 0FFh");
  EXPECT_EQ(TextOf("DA80"_hex), "DW 80DAh");
  EXPECT_EQ(TextsOf("CC00 DA806A"_hex), (std::vector<std::string>{"NOP", "DW 80DAh", "DB 6Ah"}));
  EXPECT_EQ(TextsOf("8CE0 14"_hex, 1), (std::vector<std::string>{"MOV R4, #1h"}));  // an odd offset
}

TEST(Instruction, TargetsWrapWithinTheSegment) {
  const auto target = [](const Data& bytes, std::uint32_t at) {
    return Instruction::Decode(bytes, 0).Target(at).value_or(0);
  };
  EXPECT_EQ(target("0D01"_hex, 0x80FFFC), 0x800000U);
  EXPECT_EQ(target("0DFE"_hex, 0x800000), 0x80FFFEU);
  EXPECT_EQ(target("8AF40000"_hex, 0x80FFFC), 0x800000U);
  EXPECT_EQ(target("EA003412"_hex, 0x80FFFC), 0x801234U);
  EXPECT_EQ(target("DA123412"_hex, 0x80FFFC), 0x121234U);
}

TEST(Instruction, KnowsWhatFallsThrough) {
  const auto falls = [](const char* digits) {
    return Instruction::Decode(*ReadHex(digits), 0).FallsThrough();
  };
  for (const char* end : {"0D00", "FA010203", "EA000000", "9C05", "DB00", "CB00", "FB88", "EBF4", "B748B7B7"})
    EXPECT_FALSE(falls(end)) << end;
  for (const char* other : {"1D00", "EA200000", "9C25", "DA800000", "CA000000", "AB05", "9B02", "8AF40000"})
    EXPECT_TRUE(falls(other)) << other;
}

// The address that a memory operand behind some instructions names; 0: none.
std::uint32_t AddressBehind(Data bytes) {
  const Data access = "F2F434D2"_hex;
  bytes.insert(bytes.end(), access.begin(), access.end());
  std::uint32_t named = 0;
  Sweep(bytes, 0, static_cast<Offset>(bytes.size()),
        [&](Offset, const Instruction& instruction, const ExtRange& range) {
          if (instruction.HasMemory()) named = range.Address(instruction.Word()).value_or(0);
          return false;
        });
  return named;
}

TEST(ExtRange, ReplacesThePageOrSegment) {
  EXPECT_EQ(AddressBehind("D7400402"_hex), 0x811234U);  // page 204h and the low 14 bits
  EXPECT_EQ(AddressBehind("D7008500"_hex), 0x85D234U);
  EXPECT_EQ(AddressBehind("D7C00402"_hex), 0x811234U);
  EXPECT_EQ(AddressBehind("DC45"_hex), 0U);                      // page in R5
  EXPECT_EQ(AddressBehind("D180"_hex), 0U);                      // registers alone
  EXPECT_EQ(AddressBehind("D7400402 CC00"_hex), 0U);             // one instruction
  EXPECT_EQ(AddressBehind("D7500402 CC00"_hex), 0x811234U);      // two
  EXPECT_EQ(AddressBehind("D7700402 D100"_hex), 0U);             // a new range
  EXPECT_EQ(AddressBehind("D7700402 8C00"_hex), 0U);             // data
  EXPECT_EQ(AddressBehind("D7700402 D7008500"_hex), 0x85D234U);  // a new one
}

TEST(ExtRange, SelectsTheOtherHalfOfTheRegisters) {
  const Data moves = "E6070200 E6070200"_hex;
  const auto second = [&](Data bytes) {
    bytes.insert(bytes.end(), moves.begin(), moves.end());
    return TextsOf(bytes)[1];
  };
  EXPECT_EQ(second("D180"_hex), "MOV 0F00Eh, #2h");
  EXPECT_EQ(second("D100"_hex), "MOV MDL, #2h");
  EXPECT_EQ(second("DC85"_hex), "MOV 0F00Eh, #2h");
  EXPECT_EQ(second("D7400402"_hex), "MOV MDL, #2h");
  EXPECT_EQ(TextsOf("D180 EC07 EC07"_hex)[2], "PUSH MDL");
}

}  // namespace
}  // namespace tarvelo
