#include "core/byte_text.h"

#include <gtest/gtest.h>

namespace tarvelo {
namespace {

TEST(ByteText, WriteAndReadBytes) {
  const std::vector<std::uint8_t> bytes{0x41, 0x00, 0xC0};
  EXPECT_EQ(AsHex(bytes), "41 00 C0");
  EXPECT_EQ(AsText(std::vector<std::uint8_t>{0x41, 0x00, 0xC0, 0x0D, 0x0A, 0xAD}), "A.А\r\n.");
  for (const char* text : {"4100c0", "41 00 C0", "41,00,C0\r\n", "\t4100\n,C0"})
    EXPECT_EQ(ReadHex(text), bytes) << text;
  for (const char* text : {"", " ,", "4", "410", "4 1", "0x41", "41 ?? C0", "41h", "Д0"})
    EXPECT_FALSE(ReadHex(text)) << text;
}

}  // namespace
}  // namespace tarvelo
