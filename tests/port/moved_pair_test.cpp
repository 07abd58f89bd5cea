#include "port/moved_pair.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "port/port_pointers.h"

namespace tarvelo {
namespace {

// In 16 MiB two words may be an address with a segment as well as one with a page.
TEST(MovePair, TakesTheFormThatNamesWhatMoves) {
  const std::vector<std::uint8_t> bytes(0x1000000, 0xFF), erased(4, 0xFF);
  const Fullflash image{Bytes(bytes)};
  const CodeUnits none;
  NoProgress progress;
  const CodePairing pairing(none, 0, none, 0, progress);
  const std::vector<PatchChange> changes{{1, {0x301234, erased, {1, 2, 3, 4}}},
                                         {2, {0xC1234, erased, {5, 6, 7, 8}}}};
  const std::vector<AreaMove> moves{{{0x301234, 4}, 0x411234}, {{0xC1234, 4}, 0xD1234}};
  Fullflash now{Bytes(bytes)};
  CarryMaps maps;
  maps.code = maps.data = [&](std::uint32_t address) {
    return static_cast<std::uint32_t>(maps.areas.NewOf(address).value_or(0));
  };
  const auto moved = [&](std::uint32_t high) {
    return MovePair(0x1234, high, true, image, pairing, maps).words;
  };
  now.Write(0x301234, std::vector<std::uint8_t>{0});
  maps.areas = BroughtAreas(PatchedImage(changes, image, none), now, moves);
  EXPECT_EQ(moved(0x30), std::pair(0x1234u, 0x41u));
  EXPECT_EQ(moved(0xC0), std::pair(0x1234u, 0x104u));
  // All of a pointer but its first byte.
  std::vector<std::uint8_t> patched = bytes, part{0x12, 0x30, 0x00};
  std::ranges::copy(std::array{0x34, 0x12, 0x30, 0x00}, patched.begin() + 0x100);
  now.Write(0x100, std::vector<std::uint8_t>{0x34});
  EXPECT_TRUE(CarryPointers(part, {{0x101, 3}, 0x101}, patched, image, now, pairing, maps).empty());
  EXPECT_EQ(part, (std::vector<std::uint8_t>{0x12, 0x41, 0x00}));
  now.Write(0xC1234, std::vector<std::uint8_t>{0});  // page 30h moves, too
  maps.areas = BroughtAreas(PatchedImage(changes, image, none), now, moves);
  EXPECT_FALSE(moved(0x30));
}

}  // namespace
}  // namespace tarvelo
