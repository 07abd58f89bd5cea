#include "patch/patch_lines.h"

#include <gtest/gtest.h>

#include "images.h"

namespace tarvelo {
namespace {

TEST(PatchLines, HaveSixDigitsOrMore) {
  const std::vector<Change> changes{
      {0x10, {0}, {0xAB}}, {0xFFFFFF, {1, 2}, {3, 4}}, {0x1000002, {0xFF}, {0}}, {0x7FFFFFFF, {5}, {6}}};
  EXPECT_EQ(PatchLines(changes), "000010: 00 AB\nFFFFFF: 0102 0304\n1000002: FF 00\n7FFFFFFF: 05 06");
  EXPECT_EQ(PatchLines({}), "");
}

TEST(PatchLines, HoldSixteenBytesAndNoneThatStayAtTheirEnds) {
  const std::string eights = "00000000000000000000000000000000 08080808080808080808080808080808";
  EXPECT_EQ(PatchLines(std::vector<Change>{{0x100, Data(33, 0), Data(33, 8)}}),
            "000100: " + eights + "\n000110: " + eights + "\n000120: 00 08");
  // The sixteenth byte is unchanged, and so is the next one.
  Data to(20, 8);
  to[15] = to[16] = 0;
  EXPECT_EQ(PatchLines(std::vector<Change>{{0, Data(20, 0), to}}),
            "000000: 000000000000000000000000000000 080808080808080808080808080808\n"
            "000011: 000000 080808");
  EXPECT_EQ(PatchLines(std::vector<Change>{{4, {1, 2, 3, 4, 5}, {1, 9, 3, 9, 5}}, {20, {7, 7}, {7, 7}}}),
            "000005: 020304 090309");
}

TEST(PatchLines, AreSharedByChangesWithoutAByteBetween) {
  EXPECT_EQ(PatchLines(std::vector<Change>{{4, {1}, {2}}, {5, {3}, {4}}, {7, {5}, {6}}}),
            "000004: 0103 0204\n000007: 05 06");
}

TEST(FirstBytes, TellsThatThereAreMore) {
  EXPECT_EQ(FirstBytes(Data{1, 2, 0xAB}, 3), "0102AB");
  EXPECT_EQ(FirstBytes(Data{1, 2, 0xAB}, 2), "0102...");
  EXPECT_EQ(FirstBytes({}, 2), "");
}

}  // namespace
}  // namespace tarvelo
