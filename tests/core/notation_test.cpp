#include "core/notation.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "core/byte_text.h"
#include "core/calculator.h"
#include "core/table.h"

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

TEST(HexVal, ReadsHexadecimalOnly) {
  EXPECT_EQ(HexVal(""), 0u);
  EXPECT_EQ(HexVal("fFfFfFfF"), 0xFFFFFFFFu);
  for (const char* text : {"G", "1H", "-1", "0x10", " 1", "+1"})
    EXPECT_THROW((void)HexVal(text), std::invalid_argument) << text;
  EXPECT_THROW((void)HexVal("100000000"), std::overflow_error);
}

TEST(ByteText, WriteAndReadBytes) {
  const std::vector<std::uint8_t> bytes{0x41, 0x00, 0xC0};
  EXPECT_EQ(AsHex(bytes), "41 00 C0");
  EXPECT_EQ(AsText(std::vector<std::uint8_t>{0x41, 0x00, 0xC0, 0x0D, 0x0A, 0xAD}), "A.А\r\n.");
  for (const char* text : {"4100c0", "41 00 C0", "41,00,C0\r\n", "\t4100\n,C0"})
    EXPECT_EQ(ReadHex(text), bytes) << text;
  for (const char* text : {"", " ,", "4", "410", "4 1", "0x41", "41 ?? C0", "41h", "Д0"})
    EXPECT_FALSE(ReadHex(text)) << text;
}

TEST(Table, KeepsItsColumnsWhateverACellHolds) {
  EXPECT_EQ(TabSeparated({{"A"}, {{{"x\ty\r\nz"}}}}, "\n"), "A\nx y  z\n");
}

}  // namespace
}  // namespace tarvelo
