#include "core/byte_writer.h"

#include <gtest/gtest.h>

namespace tarvelo {
namespace {

TEST(ByteWriter, AppendsInEitherOrder) {
  ByteBuffer out;
  AppendWord(out, 0x54321);  // only the low 16 bits
  AppendBigWord(out, 0x1234);
  AppendDWord(out, 0x89ABCDEF);
  AppendBigDWord(out, 0x89ABCDEF);
  AppendText(out, {"A\0B", 3});
  EXPECT_EQ(
      out, (ByteBuffer{0x21, 0x43, 0x12, 0x34, 0xEF, 0xCD, 0xAB, 0x89, 0x89, 0xAB, 0xCD, 0xEF, 'A', 0, 'B'}));
}

TEST(ByteWriter, PutsNothingPastTheEnd) {
  ByteBuffer image(4, 0xEE);
  EXPECT_EQ(PutWord(image, 2, 0x1234), 4u);
  const ByteBuffer before{0xEE, 0xEE, 0x34, 0x12};
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
