#include "core/byte_writer.h"

#include <gtest/gtest.h>

#include <array>

namespace tarvelo {
namespace {

TEST(ByteWriter, AppendsInEitherOrder) {
  ByteBuffer out;
  AppendWord(out, 0x1234);
  AppendBigWord(out, 0x1234);
  AppendDWord(out, 0x89ABCDEF);
  AppendBigDWord(out, 0x89ABCDEF);
  AppendText(out, {"A\0B", 3});
  AppendBytes(out, {1, 0xFF});
  AppendWord(out, 0x54321);  // only the low 16 bits
  EXPECT_EQ(out, (ByteBuffer{0x34, 0x12, 0x12, 0x34, 0xEF, 0xCD, 0xAB, 0x89, 0x89, 0xAB, 0xCD, 0xEF, 'A', 0,
                             'B', 1, 0xFF, 0x21, 0x43}));
}

TEST(ByteWriter, PutsUpToTheLastByte) {
  ByteBuffer image(14, 0xEE);
  std::size_t next = PutByte(image, 1, 0x01);
  next = PutWord(image, next, 0x2345);
  next = PutDWord(image, next, 0x6789ABCD);
  next = PutText(image, next, "OK");
  next = PutFill(image, next, 2, 0);
  next = PutBytes(image, next, std::array<std::uint8_t, 2>{0xFE, 0xDC});
  EXPECT_EQ(next, image.size());
  EXPECT_EQ(image, (ByteBuffer{0xEE, 0x01, 0x45, 0x23, 0xCD, 0xAB, 0x89, 0x67, 'O', 'K', 0, 0, 0xFE, 0xDC}));
}

TEST(ByteWriter, PutsNothingPastTheEnd) {
  ByteBuffer image(4, 0xEE);
  const ByteBuffer before = image;
  EXPECT_THROW(PutByte(image, 4, 0), std::out_of_range);
  EXPECT_THROW(PutWord(image, 3, 0), std::out_of_range);
  EXPECT_THROW(PutDWord(image, 1, 0), std::out_of_range);
  EXPECT_THROW(PutText(image, 2, "ABC"), std::out_of_range);
  EXPECT_THROW(PutFill(image, 5, 0, 0), std::out_of_range);
  EXPECT_THROW(PutFill(image, 1, SIZE_MAX, 0), std::out_of_range);  // the sum wraps
  EXPECT_EQ(image, before);
}

}  // namespace
}  // namespace tarvelo
