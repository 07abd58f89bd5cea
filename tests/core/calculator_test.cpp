#include "core/calculator.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace tarvelo {
namespace {

std::string Fields(const AddressFields& f) { return f.Page + " " + f.Offs + " " + f.Addr + " " + f.AdFF; }

TEST(Calculator, KeepsTheLow24Bits) {
  EXPECT_EQ(Fields(FromAddr(0x1A12345, 0)), "284 2345 A12345 A12345");
  EXPECT_EQ(Fields(FromPage(1, 0x4000, 0)), "2 0 8000 8000");  // the offset carries into the page
  EXPECT_EQ(Fields(FromAddr(0x1000, 0x800000)), "0 1000 1000 801000");
  EXPECT_EQ(Fields(FromAdFF(0x10, static_cast<std::int32_t>(0xA0000000))), "0 10 10 10");
}

TEST(Calculator, ReadsHexadecimalOnly) {
  EXPECT_EQ(HexVal(""), 0u);
  EXPECT_EQ(HexVal("fFfFfFfF"), 0xFFFFFFFFu);
  for (const char* text : {"G", "1H", "-1", "0x10", " 1", "+1"})
    EXPECT_THROW((void)HexVal(text), std::invalid_argument) << text;
  EXPECT_THROW((void)HexVal("100000000"), std::overflow_error);
}

}  // namespace
}  // namespace tarvelo
