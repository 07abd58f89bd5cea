#include "patch/pattern_walk.h"

#include <gtest/gtest.h>

#include <random>

#include "images.h"

namespace tarvelo {
namespace {

TEST(PatternWalk, ReachesBothEndsOfTheImage) {
  const Fullflash image(Data{0x41, 0x42, 0x41, 0x00, 0x41, 0x42, 0x41});
  constexpr std::tuple<const char*, Offset, Offset, Offset, Offset> cases[] = {
      {"4142", 0, 0, 7, 4},
      {"4142", 1, 4, 4, 0},
      {"4142", 5, -1, 0, -1},
      {"4241", 2, 5, 7, 5},
      {"42??", 2, 5, 6, 5},
      {"41", 7, -1, 99, 6},
      {"??", 6, 6, 7, 6},
      {"????????", 4, -1, 7, 3},
      {"", 0, -1, 7, -1},
      {"4x", 0, -1, 7, -1},
      {"4142410041424100", 0, -1, 7, -1},
      {"4100", -5, 2, 3, 2},
  };
  for (const auto& [pattern, start, first, end, last] : cases) {
    EXPECT_EQ(FirstFrom(image, Pattern(pattern), start), first) << pattern << " from " << start;
    EXPECT_EQ(LastBefore(image, Pattern(pattern), end), last) << pattern << " before " << end;
  }
  EXPECT_EQ(FirstFrom(Fullflash(), Pattern("??"), 0), -1);
  EXPECT_EQ(LastBefore(Fullflash(), Pattern("??"), 1), -1);
}

// Every occurrence, whatever its position relative to the search windows, forwards and backwards.
TEST(PatternWalk, FindsTheSameForwardsAndBackwards) {
  std::mt19937 random(7);
  Data bytes(0x9003);
  for (std::uint8_t& byte : bytes) byte = random() % 24 == 0 ? 0xE6 : static_cast<std::uint8_t>(random() % 3);
  const Fullflash image(bytes);
  for (const char* text : {"E600", "E6??E6", "E6E6", "??E6"}) {
    const Pattern pattern(text);
    std::vector<Offset> forwards, backwards;
    for (Offset hit = FirstFrom(image, pattern, 0); hit >= 0; hit = FirstFrom(image, pattern, hit + 1))
      forwards.push_back(hit);
    ASSERT_GT(forwards.size(), 9u) << text;
    for (const Offset hit : forwards) backwards.push_back(LastBefore(image, pattern, hit + 1));
    EXPECT_EQ(forwards, backwards) << text;
    EXPECT_EQ(LastBefore(image, pattern, forwards.front()), -1) << text;
    EXPECT_EQ(LastBefore(image, pattern, image.ffEnd() + 1), forwards.back()) << text;
  }
}

TEST(PatternWalk, SeparatesOverlappingHits) {
  const Fullflash image{Bytes(Data{1, 1, 1, 1, 1, 2, 1, 1})};
  EXPECT_EQ(SeparateHits(image, Pattern("01 01"), noProgress, 9), (std::vector<Offset>{0, 2, 6}));
  EXPECT_EQ(SeparateHits(image, Pattern("01 01"), noProgress, 1), (std::vector<Offset>{0, 2}));
}

}  // namespace
}  // namespace tarvelo
