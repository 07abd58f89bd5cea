#include "demo/demo_image.h"

#include <gtest/gtest.h>

#include <numeric>

#include "core/identification.h"

namespace tarvelo {
namespace {

// 64-bit FNV-1a, to compare whole images between the platforms.
std::uint64_t Hash(const std::vector<std::uint8_t>& bytes) {
  return std::accumulate(bytes.begin(), bytes.end(), std::uint64_t{0xCBF29CE484222325},
                         [](std::uint64_t h, std::uint8_t b) { return (h ^ b) * 0x100000001B3; });
}

TEST(DemoImage, IsAC55InPageMode) {
  Fullflash image{Bytes(DemoImage())};
  const Identification info = Identify(image);
  EXPECT_EQ(image.ff().size(), 0x800000u);
  EXPECT_EQ(info.Model, "C55");
  EXPECT_EQ(info.buildDate, "14.11.2002 / 10:22:31");
  ASSERT_TRUE(info.t9);
  EXPECT_EQ(info.t9->languages, 4);
  EXPECT_GT(info.t9->Empty(), 0);
  EXPECT_NE(info.EmptyBlocks.find(" - "), std::string::npos);
}

TEST(DemoImage, IsIdentifiedInLargeModeToo) {
  Fullflash image{Bytes(DemoImage(true))};
  const Identification info = Identify(image);
  EXPECT_EQ(image.ff().size(), 0x2000000u);
  EXPECT_FALSE(image.PageMode());
  EXPECT_TRUE(info.SigPos);
  EXPECT_FALSE(info.Model.empty());
  EXPECT_EQ(info.Family, 7);
}

// Changes with the demonstration, on purpose only.
TEST(DemoImage, IsTheSameEverywhere) {
  EXPECT_EQ(Hash(DemoImage()), 14616580461377504932u);
  EXPECT_EQ(Hash(DemoImage(true)), 17681210265453398821u);
}

}  // namespace
}  // namespace tarvelo
