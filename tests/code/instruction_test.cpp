// Every operand form and every reserved encoding, worked out by hand from the instruction set's encodings.
#include "code/instruction.h"

#include <gtest/gtest.h>

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

struct Encoding {
  Data bytes;
  std::string text;
};

TEST(Instruction, WritesEveryOperandForm) {
  const std::vector<Encoding> encodings{
      {{0x00, 0x5A}, "ADD R5, R10"},
      {{0x01, 0x0F}, "ADDB RL0, RH7"},
      {{0x02, 0xF5, 0x34, 0x12}, "ADD R5, 1234h"},
      {{0x02, 0x10, 0x00, 0x00}, "ADD 0FE20h, 0h"},
      {{0x03, 0xF3, 0xCD, 0xAB}, "ADDB RH1, 0ABCDh"},
      {{0x04, 0x88, 0x10, 0xFE}, "ADD 0FE10h, PSW"},
      {{0x06, 0x07, 0x02, 0x01}, "ADD MDL, #102h"},
      {{0x07, 0xF1, 0x80, 0x77}, "ADDB RH0, #80h"},
      {{0x08, 0x97}, "ADD R9, #7h"},
      {{0x08, 0x9B}, "ADD R9, [R3]"},
      {{0x49, 0x2C}, "CMPB RL1, [R0+]"},
      {{0x0A, 0x88, 0x0F, 0xF0}, "BFLDL PSW, #0Fh, #0F0h"},
      {{0x1A, 0x88, 0x0F, 0xF0}, "BFLDH PSW, #0F0h, #0Fh"},
      {{0x3D, 0xFE}, "JMPR cc_NZ, 0FFEEh"},
      {{0x0D, 0x07}, "JMPR cc_UC, 0h"},
      {{0xFD, 0x7F}, "JMPR cc_ULE, 0F0h"},
      {{0xBB, 0x80}, "CALLR 0FEF2h"},
      {{0x9E, 0xF4}, "BCLR R4.9"},
      {{0xBF, 0x88}, "BSET PSW.11"},
      {{0x0F, 0x34}, "BSET 0FD68h.0"},
      {{0x4A, 0x34, 0xF7, 0xC5}, "BMOV R7.5, 0FD68h.12"},
      {{0x4B, 0x33}, "DIV R3"},
      {{0x5C, 0x4E}, "SHL R14, #4h"},
      {{0x81, 0xC0}, "NEG R12"},
      {{0xA1, 0xC0}, "NEGB RL6"},
      {{0x82, 0xF6, 0x20, 0x10}, "CMPI1 R6, 1020h"},
      {{0x86, 0xF6, 0x20, 0x10}, "CMPI1 R6, #1020h"},
      {{0x84, 0x06, 0x20, 0x10}, "MOV [R6], 1020h"},
      {{0xB4, 0x06, 0x20, 0x10}, "MOVB 1020h, [R6]"},
      {{0x88, 0x10}, "MOV [-R0], R1"},
      {{0x89, 0x10}, "MOVB [-R0], RH0"},
      {{0x98, 0x10}, "MOV R1, [R0+]"},
      {{0xA9, 0x10}, "MOVB RH0, [R0]"},
      {{0xB8, 0x10}, "MOV [R0], R1"},
      {{0xC8, 0x12}, "MOV [R1], [R2]"},
      {{0xD8, 0x12}, "MOV [R1+], [R2]"},
      {{0xE9, 0x12}, "MOVB [R1], [R2+]"},
      {{0xC0, 0x12}, "MOVBZ R2, RH0"},
      {{0xC2, 0xF4, 0x00, 0x90}, "MOVBZ R4, 9000h"},
      {{0xC5, 0xF4, 0x00, 0x90}, "MOVBZ 9000h, RL2"},
      {{0xC4, 0x45, 0x34, 0x12}, "MOV [R5+#1234h], R4"},
      {{0xF4, 0x45, 0xFE, 0xFF}, "MOVB RL2, [R5+#0FFFEh]"},
      {{0x8A, 0xF4, 0x02, 0x90}, "JB R4.9, 0FFF8h"},
      {{0xBA, 0x88, 0xFF, 0xB0}, "JNBS PSW.11, 0FFF2h"},
      {{0x9B, 0x54}, "TRAP #2Ah"},
      {{0x9C, 0x35}, "JMPI cc_NZ, [R5]"},
      {{0xAB, 0x05}, "CALLI cc_UC, [R5]"},
      {{0xCA, 0x00, 0x34, 0x12}, "CALLA cc_UC, 1234h"},
      {{0xEA, 0xA0, 0x34, 0x12}, "JMPA cc_SGT, 1234h"},
      {{0xDA, 0x80, 0x6A, 0x00}, "CALLS 80h, 6Ah"},
      {{0xFA, 0xFF, 0x00, 0xC0}, "JMPS 0FFh, 0C000h"},
      {{0xE2, 0xF4, 0x34, 0x12}, "PCALL R4, 1234h"},
      {{0xEB, 0x03}, "RETP DPP3"},
      {{0xEC, 0x08}, "PUSH CP"},
      {{0xE0, 0xF4}, "MOV R4, #0Fh"},
      {{0xE1, 0xF4}, "MOVB RL2, #0Fh"},
      {{0xE6, 0x00, 0x04, 0x02}, "MOV DPP0, #204h"},
      {{0xE7, 0xF4, 0x2A, 0x00}, "MOVB RL2, #2Ah"},
      {{0xF6, 0x8E, 0x34, 0x12}, "MOV 1234h, ZEROS"},
      {{0xC6, 0xD6, 0x01, 0x00}, "SCXT TFR, #1h"},
      {{0xD1, 0x00}, "ATOMIC #1"},
      {{0xD1, 0xB0}, "EXTR #4"},
      {{0xD7, 0x00, 0x80, 0x00}, "EXTS #80h, #1"},
      {{0xD7, 0x50, 0x04, 0x02}, "EXTP #204h, #2"},
      {{0xD7, 0xA0, 0x80, 0x00}, "EXTSR #80h, #3"},
      {{0xD7, 0xF0, 0xFF, 0x03}, "EXTPR #3FFh, #4"},
      {{0xDC, 0x05}, "EXTS R5, #1"},
      {{0xDC, 0x75}, "EXTP R5, #4"},
      {{0xDC, 0x85}, "EXTSR R5, #1"},
      {{0xDC, 0xC5}, "EXTPR R5, #1"},
      {{0xFB, 0x88}, "RETI"},
      {{0xB7, 0x48, 0xB7, 0xB7}, "SRST"},
      {{0xA7, 0x58, 0xA7, 0xA7}, "SRVWDT"},
  };
  for (const auto& [bytes, text] : encodings) {
    EXPECT_EQ(TextOf(bytes), text);
    EXPECT_EQ(Instruction::Decode(bytes, 0).Size(), static_cast<int>(bytes.size())) << text;
  }
}

TEST(Instruction, NamesTheOtherHalfOfSpecialRegisters) {
  EXPECT_EQ(TextOf({0xE6, 0x07, 0x02, 0x01}, true), "MOV 0F00Eh, #102h");
  EXPECT_EQ(TextOf({0xBF, 0x88}, true), "BSET 0F110h.11");
  EXPECT_EQ(TextOf({0xBF, 0x34}, true), "BSET 0FD68h.11");
  EXPECT_EQ(TextOf({0xEC, 0xF4}, true), "PUSH R4");
}

// Each is nearly an instruction: one nibble or byte breaks its rule.
TEST(Instruction, ShowsReservedEncodingsAsData) {
  std::vector<Data> reserved{
      {0x4B, 0x34},
      {0x82, 0xE6, 0x20, 0x10},
      {0xB6, 0x76, 0x20, 0x10},
      {0x81, 0xC1},
      {0xB1, 0xC8},
      {0x84, 0x16, 0x20, 0x10},
      {0xB4, 0x86, 0x20, 0x10},
      {0x8A, 0xF4, 0x02, 0x91},
      {0xBA, 0xF4, 0x02, 0x98},
      {0x9B, 0x55},
      {0xCA, 0x01, 0x34, 0x12},
      {0xEA, 0xA8, 0x34, 0x12},
      {0xCB, 0x01},
      {0xDB, 0x80},
      {0xCC, 0x10},
      {0xFB, 0x89},
      {0xD1, 0x01},
      {0xD1, 0x40},
      {0xD7, 0x01, 0x80, 0x00},
      {0xD7, 0x00, 0x80, 0x01},
      {0xD7, 0x80, 0x80, 0x02},
      {0xD7, 0x40, 0x04, 0x04},
      {0xD7, 0xC0, 0x04, 0x80},
      {0x87, 0x79, 0x87, 0x87},
      {0xB7, 0x48, 0xB6, 0xB7},
      {0xA5, 0x5A, 0xA5, 0x25},
  };
  for (const int op : {0x3B, 0x44, 0x45, 0x83, 0x85, 0x8B, 0x8C, 0x93, 0x95, 0xA3,
                       0xB3, 0xC1, 0xC3, 0xC7, 0xD3, 0xE3, 0xE5, 0xF5, 0xF8, 0xF9})
    reserved.push_back({static_cast<std::uint8_t>(op), 0x00});
  for (const Data& bytes : reserved) {
    const Instruction data = Instruction::Decode(bytes, 0);
    EXPECT_TRUE(data.IsData()) << +bytes[0] << ' ' << +bytes[1];
    EXPECT_EQ(data.Size(), 2) << +bytes[0] << ' ' << +bytes[1];
  }
  EXPECT_EQ(TextOf({0x8C, 0x00}), "DW 8Ch");
  EXPECT_EQ(TextOf({0x00, 0x8C}), "ADD R8, R12");
  EXPECT_EQ(TextOf({0xF9, 0xF9}), "DW 0F9F9h");
}

TEST(Instruction, IsDataWhereTheBytesEnd) {
  EXPECT_EQ(TextOf({0xFF}), "DB 0FFh");
  EXPECT_EQ(TextOf({0xDA, 0x80}), "DW 80DAh");
  EXPECT_EQ(TextsOf({0xCC, 0x00, 0xDA, 0x80, 0x6A}), (std::vector<std::string>{"NOP", "DW 80DAh", "DB 6Ah"}));
  EXPECT_EQ(TextsOf({0x8C, 0xE0, 0x14}, 1), (std::vector<std::string>{"MOV R4, #1h"}));  // an odd offset
}

TEST(Instruction, TargetsWrapWithinTheSegment) {
  const auto target = [](const Data& bytes, std::uint32_t at) {
    return Instruction::Decode(bytes, 0).Target(at).value_or(0);
  };
  EXPECT_EQ(target({0x0D, 0x01}, 0x80FFFC), 0x800000U);
  EXPECT_EQ(target({0x0D, 0xFE}, 0x800000), 0x80FFFEU);
  EXPECT_EQ(target({0x8A, 0xF4, 0x00, 0x00}, 0x80FFFC), 0x800000U);
  EXPECT_EQ(target({0xEA, 0x00, 0x34, 0x12}, 0x80FFFC), 0x801234U);
  EXPECT_EQ(target({0xDA, 0x12, 0x34, 0x12}, 0x80FFFC), 0x121234U);
}

TEST(Instruction, KnowsWhatFallsThrough) {
  const auto falls = [](const Data& bytes) { return Instruction::Decode(bytes, 0).FallsThrough(); };
  for (const Data& bytes : std::vector<Data>{{0x0D, 0},
                                             {0xFA, 1, 2, 3},
                                             {0xEA, 0, 0, 0},
                                             {0x9C, 0x05},
                                             {0xDB, 0},
                                             {0xCB, 0},
                                             {0xFB, 0x88},
                                             {0xEB, 0xF4},
                                             {0xB7, 0x48, 0xB7, 0xB7}})
    EXPECT_FALSE(falls(bytes)) << TextOf(bytes);
  for (const Data& bytes : std::vector<Data>{{0x1D, 0},
                                             {0xEA, 0x20, 0, 0},
                                             {0x9C, 0x25},
                                             {0xDA, 0x80, 0, 0},
                                             {0xCA, 0, 0, 0},
                                             {0xAB, 0x05},
                                             {0x9B, 0x02},
                                             {0x8A, 0xF4, 0, 0}})
    EXPECT_TRUE(falls(bytes)) << TextOf(bytes);
}

// The address that a memory operand behind some instructions names; 0: none.
std::uint32_t AddressBehind(Data bytes) {
  const Data access{0xF2, 0xF4, 0x34, 0xD2};
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
  EXPECT_EQ(AddressBehind({0xD7, 0x40, 0x04, 0x02}), 0x811234U);  // page 204h and the low 14 bits
  EXPECT_EQ(AddressBehind({0xD7, 0x00, 0x85, 0x00}), 0x85D234U);
  EXPECT_EQ(AddressBehind({0xD7, 0xC0, 0x04, 0x02}), 0x811234U);
  EXPECT_EQ(AddressBehind({0xDC, 0x45}), 0U);                                             // page in R5
  EXPECT_EQ(AddressBehind({0xD1, 0x80}), 0U);                                             // registers alone
  EXPECT_EQ(AddressBehind({0xD7, 0x40, 0x04, 0x02, 0xCC, 0x00}), 0U);                     // one instruction
  EXPECT_EQ(AddressBehind({0xD7, 0x50, 0x04, 0x02, 0xCC, 0x00}), 0x811234U);              // two
  EXPECT_EQ(AddressBehind({0xD7, 0x70, 0x04, 0x02, 0xD1, 0x00}), 0U);                     // a new range
  EXPECT_EQ(AddressBehind({0xD7, 0x70, 0x04, 0x02, 0x8C, 0x00}), 0U);                     // data
  EXPECT_EQ(AddressBehind({0xD7, 0x70, 0x04, 0x02, 0xD7, 0x00, 0x85, 0x00}), 0x85D234U);  // a new one
}

TEST(ExtRange, SelectsTheOtherHalfOfTheRegisters) {
  const Data moves{0xE6, 0x07, 0x02, 0x00, 0xE6, 0x07, 0x02, 0x00};
  const auto second = [&](Data bytes) {
    bytes.insert(bytes.end(), moves.begin(), moves.end());
    return TextsOf(bytes)[1];
  };
  EXPECT_EQ(second({0xD1, 0x80}), "MOV 0F00Eh, #2h");
  EXPECT_EQ(second({0xD1, 0x00}), "MOV MDL, #2h");
  EXPECT_EQ(second({0xDC, 0x85}), "MOV 0F00Eh, #2h");
  EXPECT_EQ(second({0xD7, 0x40, 0x04, 0x02}), "MOV MDL, #2h");
  EXPECT_EQ(TextsOf({0xD1, 0x80, 0xEC, 0x07, 0xEC, 0x07})[2], "PUSH MDL");
}

}  // namespace
}  // namespace tarvelo
