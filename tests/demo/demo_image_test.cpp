#include "demo/demo_image.h"

#include <gtest/gtest.h>

#include <numeric>

#include "core/identification.h"

namespace tarvelo {
namespace {

// 64-bit FNV-1a, to compare whole images across platforms.
std::uint64_t Hash(const std::vector<std::uint8_t>& bytes) {
  return std::accumulate(bytes.begin(), bytes.end(), std::uint64_t{0xCBF29CE484222325},
                         [](std::uint64_t h, std::uint8_t b) { return (h ^ b) * 0x100000001B3; });
}

TEST(DemoImage, IsIdentified) {
  for (const bool large : {false, true}) {
    Fullflash image{Bytes(DemoImage(large))};
    const Identification info = Identify(image);
    EXPECT_EQ(image.PageMode(), !large);
    EXPECT_EQ(info.Family, 7);
    EXPECT_FALSE(info.Model.empty());
    EXPECT_FALSE(info.buildDate.empty());
    EXPECT_EQ(info.t9.has_value(), !large);
  }
}

// Changes only when the demonstration is changed on purpose.
TEST(DemoImage, IsTheSameEverywhere) {
  EXPECT_EQ(Hash(DemoImage()), 11198308598025318504u);
  EXPECT_EQ(Hash(DemoImage(true)), 13678314427179491820u);
}

}  // namespace
}  // namespace tarvelo
