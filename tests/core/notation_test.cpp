#include "core/notation.h"

#include <gtest/gtest.h>

namespace tarvelo {
namespace {

TEST(Notation, PadsWithAtMostSixZerosOrFiveBlanks) {
  EXPECT_EQ(PadZero("1A", 6), "00001A");
  EXPECT_EQ(PadZero("", 8), "000000");
  EXPECT_EQ(PadZero("1234567", 4), "4567");
  EXPECT_EQ(PadSpace("7", 3), "  7");
  EXPECT_EQ(PadSpace("7", 9), "     7");
  EXPECT_EQ(PadSpace("12345", 2), "45");
}

TEST(Notation, WritesWordsAndPointersAsTheyLieInMemory) {
  EXPECT_EQ(Word2Str(0x12345), "4523");
  EXPECT_EQ(Adr2Str(0xA12345), "45238402");
  // A large image's address is negative; its page keeps the last four digits: 0xA0004321 / 0x4000
  // is 0xFFFE8001 as a signed number.
  EXPECT_EQ(Adr2Str(static_cast<std::int32_t>(0xA0004321)), "21030180");
}

TEST(Notation, KeepsTwoDigitsOfAByte) {
  EXPECT_EQ(HexOfByte(0x0A), "0A");
  EXPECT_EQ(DecOfByte(5), "05");
  EXPECT_EQ(DecOfByte(123), "23");
  EXPECT_EQ(Hex(0), "0");
}

}  // namespace
}  // namespace tarvelo
