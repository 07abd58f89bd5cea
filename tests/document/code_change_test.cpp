#include "document/code_change.h"

#include <gtest/gtest.h>

#include "images.h"

namespace tarvelo {
namespace {

TEST(CodeChange, ShowsWholeInstructionsBeforeAndAfter) {
  ImageBuilder builder(0x10000);  // offset 0 is at FF0000
  builder.Fill(0, 0x200, 0);
  const std::uint8_t code[] = {0xDA, 0xF0, 0x00, 0x11, 0xE0, 0x14, 0xDB, 0x00};
  builder.Data(0x100, code);
  const Fullflash image = ImageOf(std::move(builder));
  // The offset's high byte in CALLS, and MOV: the change begins and ends within instructions.
  EXPECT_EQ(InstructionsOf({0x103, {0x11, 0xE0}, {0x12, 0xF0}}, image, FunctionList()),
            "- FF:0100  DAF00011  CALLS 0F0h, 1100h\n"
            "- FF:0104  E014      MOV R4, #1h\n"
            "+ FF:0100  DAF00012  CALLS 0F0h, 1200h\n"
            "+ FF:0104  F014      MOV R1, R4\n");
  // The image has the new bytes already.
  EXPECT_EQ(InstructionsOf({0x106, {0xCC, 0x00}, {0xDB, 0x00}}, image, FunctionList()),
            "- FF:0106  CC00      NOP\n+ FF:0106  DB00      RETS\n");
  EXPECT_EQ(InstructionsOf({0xFFFF, {0xFF, 0x00}, {0x01, 0x00}}, image, FunctionList()),
            "- FF:FFFE  FFFF      BSET R15.15\n+ FF:FFFE  FF01      BSET 0FD02h.15\n");
  EXPECT_EQ(InstructionsOf({0x10000, {0}, {1}}, image, FunctionList()), "");
  ImageBuilder odd(0x10001);  // offset 1 is at FF0000
  odd.Data(0x101, code);
  EXPECT_EQ(InstructionsOf({0x105, {0xE0}, {0xF0}}, ImageOf(std::move(odd)), FunctionList()),
            "- FF:0104  E014      MOV R4, #1h\n+ FF:0104  F014      MOV R1, R4\n");
}

}  // namespace
}  // namespace tarvelo
