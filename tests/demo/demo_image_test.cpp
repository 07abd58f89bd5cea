#include "demo/demo_image.h"

#include <gtest/gtest.h>

#include <numeric>

#include "code/functions.h"
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

// The service menu: helpers, tests that only a table names, the loop that the system starts.
TEST(DemoImage, HasFunctionsThatCallOneAnother) {
  const Fullflash image{Bytes(DemoImage())};
  NoProgress progress;
  const FunctionList functions = GetFunctions(image, progress);
  constexpr Function expected[] = {{{0x314000, 14}, 1}, {{0x31400E, 12}, 4}, {{0x31401A, 30}, 1},
                                   {{0x314038, 16}, 1}, {{0x314048, 8}, 1},  {{0x314050, 26}, 0},
                                   {{0x31406A, 22}, 0}, {{0x314080, 20}, 0}, {{0x314094, 38}, 1},
                                   {{0x3140BA, 24}, 1}, {{0x3140D2, 30}, 0}};
  for (const Function& each : expected) {
    const Function* const function = functions.Entry(each.code.offset);
    ASSERT_NE(function, nullptr) << each.code.offset;
    EXPECT_EQ(function->code.size, each.code.size) << each.code.offset;
    EXPECT_EQ(function->calls, each.calls) << each.code.offset;
  }
  EXPECT_GT(functions.All().size(), 15000u);
}

// Changes only when the demonstration is changed on purpose.
TEST(DemoImage, IsTheSameEverywhere) {
  EXPECT_EQ(Hash(DemoImage()), 5422568833721809927u);
  EXPECT_EQ(Hash(DemoImage(true)), 10068935537453821672u);
}

}  // namespace
}  // namespace tarvelo
