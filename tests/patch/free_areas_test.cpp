#include "patch/free_areas.h"

#include <gtest/gtest.h>

#include "images.h"

namespace tarvelo {
namespace {

// The segments of the small image begin at offset 0, 10000h, 20000h and 30000h; what is behind is never
// offered.
TEST(FreeAreas, HaveRoomWithinTheBoundsOfPagesAndSegments) {
  const struct {
    std::size_t image;
    std::vector<Region> used;
    Offset from;  // 100h bytes
    std::optional<Offset> place;
  } cases[] = {
      {0x50000, {}, 0x801234, 0x21234},  // the nearest to the middle with the same offset in the segment
      {0x50000, {{0, 0x5000}, {0xF000, 0x31000}}, 0x801234, 0x9234},  // in the page
      {0x50000, {{0, 0x5800}, {0x6400, 0x39C00}}, 0x801234, 0x5D34},  // neither
      {0x50000, {{0, 0x5000}, {0x5300, 0x3AD00}}, 0x801000, 0x5100},  // 100h bytes from all
      {0x50000, {{0, 0x5000}, {0x52FF, 0x3AD01}}, 0x801000, {}},
      {0x50000, {{0, 0x5001}, {0x5300, 0x3AD00}}, 0x801000, {}},
      {0x50000, {{0, 0x3FD00}}, 0x801000, 0x3FE00},
      {0x50000, {{0, 0x7E00}, {0x8200, 0x37E00}}, 0x801080, {}},      // crosses the end of a page
      {0x50000, {{0, 0x7E00}, {0x8200, 0x37E00}}, 0x803F80, 0x7F80},  // as it did
      {0x50000, {{0, 0x7E00}, {0x8200, 0xE00}, {0x93C0, 0x36C40}}, 0x801080, 0x9180},   // a shorter area
      {0x50000, {{0, 0x5000}, {0x6000, 0x2000}, {0xA000, 0x36000}}, 0x801080, 0x9080},  // the longest
      {0x1000000, {{0x20000, 0xFD0000}}, 0x800050, 0x18050},                            // not in segment 0
  };
  for (const auto& [size, used, from, place] : cases) {
    const Fullflash image = Erased(size);
    FreeAreas areas(image, used);
    EXPECT_EQ(areas.Find(from, 0x100), place) << used.size() << ", " << from;
    if (!place) continue;
    EXPECT_TRUE(areas.Suits(from, 0x100, *place)) << *place;
    EXPECT_FALSE(areas.Suits(from, 0x100, *place + 1)) << *place;
    areas.Take({*place, 1});
    EXPECT_FALSE(areas.Suits(from, 0x100, *place)) << *place;
  }
}

}  // namespace
}  // namespace tarvelo
