#include "patch/patch_document.h"

#include <gtest/gtest.h>

namespace tarvelo {
namespace {

const std::string stars(80, '*');

TEST(PatchBlock, HasTheNameAboveAndAsterisksBelow) {
  EXPECT_EQ(PatchBlock("Block 71", "1A: 00 FF\n1C: 00 FF"),
            "\r\n;Block 71\r\n\r\n1A: 00 FF\r\n1C: 00 FF\r\n\r\n;" + stars + "\r\n");
  EXPECT_EQ(PatchBlock("", "a\r\nb\rc\n\rd"), "\r\n;\r\n\r\na\r\nb\r\nc\r\n\r\nd\r\n\r\n;" + stars + "\r\n");
  EXPECT_EQ(InformationBlock("Search :", "one\ntwo"), "\nSearch :\n\none\ntwo\n\n" + stars + "\n");
}

TEST(PatchBlock, KeepsANameWithinItsComment) {
  EXPECT_EQ(PatchBlock("a\r\n0: 00 FF\x1B", "").substr(0, 17), "\r\n;a  0: 00 FF \r\n");
  EXPECT_TRUE(PatchFile("C55\n0: 00 FF", "").starts_with(";C55 0: 00 FF - Patch"));
}

TEST(PatchFile, BeginsWithFourLinesEvenWhenTheDocumentIsEmpty) {
  const std::string header =
      ";C55 v24 - Patch made by \"Tarvelo\", explorer of fullflash images\r\n"
      ";Lines: address in the fullflash, old bytes, new bytes\r\n\r\n;" +
      stars + "\r\n";
  EXPECT_EQ(PatchFile("C55 v24", ""), header + "\r\n");
  EXPECT_EQ(PatchFile("C55 v24", "\n;x\n"), header + "\r\n;x\r\n\r\n");
}

TEST(ReadPatchLine, TakesChangesApart) {
  const std::vector<std::uint8_t> from{0x00, 0xFF}, to{0x12, 0xaB};
  for (const char* line : {"A12344: 00FF 12AB", "a12344:    00ff   12ab   ;comment", "00A12344:00FF 12AB;",
                           "A12344:\t00FF\t12AB \t", "A12344: 00FF 12AB ; 00 00 текст", "  A12344: 00FF 12AB",
                           "\tA12344 \t: 00FF 12AB"}) {
    const PatchLine read = ReadPatchLine(line);
    EXPECT_EQ(read.kind, PatchLine::Kind::Change) << line;
    EXPECT_EQ(read.address, 0xA12344u) << line;
    EXPECT_EQ(read.oldBytes, from) << line;
    EXPECT_EQ(read.newBytes, to) << line;
  }
  EXPECT_EQ(ReadPatchLine("FFFFFFFF: 00 01").address, 0xFFFFFFFF);
}

TEST(ReadPatchLine, ReportsLinesThatAreNotChanges) {
  for (const char* line : {"", " ", "\t "})
    EXPECT_EQ(ReadPatchLine(line).kind, PatchLine::Kind::Empty) << line;
  for (const char* line : {";", ";A12344: 00FF", "; \xFF", " \t;comment"})
    EXPECT_EQ(ReadPatchLine(line).kind, PatchLine::Kind::Comment) << line;
  for (const char* line : {"A12344",          "A12344:",
                           "A12344: 00FF",    "A12344: 00FF ;12AB",
                           "A12344: 00FF 12", "A12344: 00FF 12ABCD",
                           "A12344: 0 1",     "A12344: 00FF12AB",
                           ": 00 01",         "A1234400F: 00 01",
                           "0x10: 00 01",     "-1: 00 01",
                           "1 0: 00 01",      "10:: 00 01",
                           "10: 00 01 02",    "10: 00 0G",
                           "10: 00 -1",       "10: 00 01 comment",
                           "10: 00 01\xFF",   "10: 00\r\n01",
                           "+1: 00 01",       "10: 00 01\x1A"})
    EXPECT_EQ(ReadPatchLine(line).kind, PatchLine::Kind::Invalid) << line;
}

}  // namespace
}  // namespace tarvelo
