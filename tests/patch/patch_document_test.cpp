#include "patch/patch_document.h"

#include <gtest/gtest.h>

#include "images.h"
#include "patch/patch_lines.h"

namespace tarvelo {
namespace {

using Changes = std::vector<Change>;

TEST(PatchLines, HaveSixDigitsOrMore) {
  EXPECT_EQ(
      PatchLines(Changes{
          {0x10, {0}, {0xAB}}, {0xFFFFFF, {1, 2}, {3, 4}}, {0x1000002, {0xFF}, {0}}, {0x7FFFFFFF, {5}, {6}}}),
      "000010: 00 AB\nFFFFFF: 0102 0304\n1000002: FF 00\n7FFFFFFF: 05 06");
  EXPECT_EQ(PatchLines({}), "");
}

TEST(PatchLines, HoldSixteenBytesAndNoneThatStayAtTheirEnds) {
  const std::string eights = "00000000000000000000000000000000 08080808080808080808080808080808";
  EXPECT_EQ(PatchLines(Changes{{0x100, Data(33, 0), Data(33, 8)}}),
            "000100: " + eights + "\n000110: " + eights + "\n000120: 00 08");
  // The sixteenth byte is unchanged, and so is the next one.
  Data to(20, 8);
  to[15] = to[16] = 0;
  EXPECT_EQ(PatchLines(Changes{{0, Data(20, 0), to}}),
            "000000: 000000000000000000000000000000 080808080808080808080808080808\n"
            "000011: 000000 080808");
  EXPECT_EQ(PatchLines(Changes{{4, {1, 2, 3, 4, 5}, {1, 9, 3, 9, 5}}, {20, {7, 7}, {7, 7}}}),
            "000005: 020304 090309");
}

TEST(PatchLines, AreSharedByChangesWithoutAByteBetween) {
  EXPECT_EQ(PatchLines(Changes{{4, {1}, {2}}, {5, {3}, {4}}, {7, {5}, {6}}}),
            "000004: 0103 0204\n000007: 05 06");
}

const std::string stars(80, '*');

TEST(FirstBytes, TellsThatThereAreMore) {
  EXPECT_EQ(FirstBytes(Data{1, 2, 0xAB}, 3), "0102AB");
  EXPECT_EQ(FirstBytes(Data{1, 2, 0xAB}, 2), "0102...");
}

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
  for (const char* line : {"A12344: 00FF 12AB", "a12344:    00ff   12ab   ;comment", "00A12344:00FF 12AB;",
                           "A12344:\t00FF\t12AB \t", "A12344: 00FF 12AB ; 00 00 текст", "  A12344: 00FF 12AB",
                           "\tA12344 \t: 00FF 12AB"}) {
    const PatchLine read = ReadPatchLine(line);
    EXPECT_EQ(read.kind, PatchLine::Kind::Change) << line;
    EXPECT_EQ(read.address, 0xA12344u) << line;
    EXPECT_EQ(read.oldBytes, (Data{0x00, 0xFF})) << line;
    EXPECT_EQ(read.newBytes, (Data{0x12, 0xAB})) << line;
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
