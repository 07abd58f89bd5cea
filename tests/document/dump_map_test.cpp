#include "document/dump_map.h"

#include <gtest/gtest.h>

#include <map>
#include <numeric>
#include <set>
#include <sstream>

#include "crafted_images.h"
#include "document/map_kinds.h"
#include "document/map_table.h"
#include "document/used_areas.h"
#include "eeprom/blocks.h"
#include "eeprom/eeprom_explorer.h"
#include "images.h"
#include "pictures/picture.h"
#include "pictures/pictures_explorer.h"
#include "ringtones/ringtone.h"
#include "ringtones/ringtones_explorer.h"

namespace tarvelo {
namespace {

using Lines = std::vector<std::string>;

DumpMap MapOf(const ImageBuilder& image) {
  const Dump dump = DumpOf(image);
  std::map<const Explorer*, Findings> found;
  return MapDump(dump, [&](const Explorer& explorer) -> const Findings& {
    return found.emplace(&explorer, explorer.search(dump, noProgress)).first->second;
  });
}

// "offset size what" of each region, the offset in hexadecimal.
Lines LinesOf(const DumpMap& map) {
  Lines lines;
  for (const Claim& region : map.regions) {
    std::ostringstream line;
    line << std::hex << region.offset << std::dec << ' ' << region.size << ' ' << WhatOf(region);
    lines.push_back(line.str());
  }
  return lines;
}

void ExpectTiles(const DumpMap& map, std::size_t size) {
  Offset at = 0;
  for (const Claim& region : map.regions) {
    ASSERT_EQ(region.offset, at);
    ASSERT_GT(region.size, 0);
    ASSERT_EQ(region.kind == &map::unknown, region.sure == Sureness::Unknown);
    at = region.End();
  }
  EXPECT_EQ(at, static_cast<Offset>(size));
  for (std::size_t i = 1; i < map.regions.size(); ++i) {
    Claim next = map.regions[i];
    next.offset = map.regions[i - 1].offset;
    next.size = map.regions[i - 1].size;
    ASSERT_NE(next, map.regions[i - 1]) << i;
  }
}

constexpr std::uint8_t nothing = 0x90;

// 1 MiB: offset 0 lies at 0xF00000, so blocks may lie from 0x60000 on.
ImageBuilder Plain() {
  ImageBuilder image(0x100000);
  image.Fill(0, image.Size(), nothing);
  return image;
}

TEST(DumpMap, HasHeadersBlocksErasedRegionsAndTheT9Area) {
  ImageBuilder image = Plain();
  image.Text(0x20000, "T9");
  image.DWord(0x20004, 0x10);
  image.Fill(0x2F000, 0x1000, 0xFF);
  image.Text(0x7FF80, "SIEMENS");
  PutBlock(image, 0x1000, liveBlockState, 5076, 0x61000, 0x20);
  PutBlock(image, 0x100C, deletedBlockState, 5076, 0x61020, 0x20);
  PutBlock(image, 0x1018, deletedBlockState, 5076, 0x61040, 0x20);  // a separate neighbour
  image.Fill(0x61050, 0x130, 0xFF);                                 // starts within the block
  image.Fill(0x62000, 0xFF, 0xFF);                                  // too short
  image.Fill(0x8FF00, 0x20200, 0xFF);
  EXPECT_EQ(
      LinesOf(MapOf(image)),
      (Lines{"0 4096 unknown", "1000 12 EEPROM 5076 (header)", "100c 12 EEPROM 5076 (deleted, header)",
             "1018 12 EEPROM 5076 (deleted, header)", "1024 126940 unknown", "20000 61440 T9",
             "2f000 4096 T9 (free)", "30000 200704 unknown", "61000 32 EEPROM 5076",
             "61020 32 EEPROM 5076 (deleted)", "61040 32 EEPROM 5076 (deleted)", "61060 288 erased",
             "61180 126336 unknown", "7ff00 256 firmware header", "80000 65280 unknown", "8ff00 256 erased",
             "90000 131072 empty blocks", "b0000 256 erased", "b0100 327424 unknown"}));
  // Nothing else goes into free space of T9 or a flash block with EEPROM.
  const std::vector<Region> used = UsedAreas(DumpOf(image), noProgress);
  for (const Region& region : {Region{0x2F000, 0x1000}, {0x60000, 0x10000}})
    EXPECT_NE(std::ranges::find(used, region), used.end()) << region.offset;
}

// Nine plain monochrome pictures 4 x 4, which take 4 bytes each; the third is the second, once more.
TEST(DumpMap, HasPictures) {
  ImageBuilder image = Plain();
  for (std::size_t i = 0; i < 9; ++i)
    PutPicture(image, 0x100 + 8 * i, i == 0 ? 4 : 3, 4, 1, i == 2 ? 0x202 : 0x200 + 5 * i - (i > 2 ? 1 : 0));
  image.Fill(0x148, 8, 0);
  const Lines lines = LinesOf(MapOf(image));
  EXPECT_EQ(Lines(lines.begin(), lines.begin() + 8),
            (Lines{"0 256 unknown", "100 80 picture table 1", "150 176 unknown", "200 4 picture 0",
                   "204 1 picture 2", "205 4 picture 1", "209 5 unknown", "20e 4 picture 3"}));
}

TEST(DumpMap, HasRingtones) {
  ImageBuilder image = Plain();
  image.Fill(0x200, 0xC0, 0);
  for (std::uint8_t i = 0; i < 6; ++i)
    PutRingtone(image, 0x100 + 8u * i, i, i == 3 ? 7 : 2, 0x200 + 0x20u * i);
  image.Fill(0x130, 8, 0x10);  // a kind that ends the table
  image.DWord(0x200, 0x00640064);
  image.Pointer(0x260, 0x400);
  image.Text(image.DWord(image.Text(0x400, "RIFF") - 1, 4), "WAVE");
  const DumpMap map = MapOf(image);
  EXPECT_EQ(LabelOf(map, 0xFF, 0x32), "unknown, ringtone table");
  EXPECT_EQ(LabelOf(map, 0x12F), "ringtone table");
  EXPECT_EQ(LabelOf(map, 0x1FF, 9), "unknown, ringtone 00");
  EXPECT_EQ(map.Within(0x200, 1)[0].size, 8);  // a note and the end
  EXPECT_EQ(LabelOf(map, 0x260, 4), "ringtone 03 (pointer)");
  EXPECT_EQ(LabelOf(map, 0x400, 12), "ringtone 03 (file)");
}

TEST(DumpMap, DistinguishesTextFromCode) {
  ImageBuilder image = Plain();
  for (std::size_t p = 0x2000; p < 0x2300; p += 12) image.Text(p, "Some text 1");
  for (std::size_t p = 0x3000; p < 0x3400; p += 128) image.Word(p, 0x00DB);
  for (std::size_t p = 0x4000; p < 0x4380; p += 128) image.Word(p, 0x00DB);  // one too few
  image.Fill(0x5000, 0x1000, '7');                                           // not letters
  for (std::size_t p = 0x6001; p < 0x6801; p += 128) image.Word(p, 0x00DB);  // odd
  EXPECT_EQ(LinesOf(MapOf(image)), (Lines{"0 8192 unknown", "2000 768 text", "2300 3328 unknown",
                                          "3000 4096 code", "4000 1032192 unknown"}));
  ImageBuilder moved(0x100001);  // odd offsets are even addresses
  moved.Fill(0, moved.Size(), nothing);
  for (std::size_t p = 0x3001; p < 0x3401; p += 128) moved.Word(p, 0x00DB);
  EXPECT_EQ(LinesOf(MapOf(moved)), (Lines{"0 12288 unknown", "3000 4096 code", "4000 1032193 unknown"}));
}

// Erased or zero bytes, three at most, in front of an even address, between two known regions.
TEST(DumpMap, GuessesFilling) {
  // The size of the block's data at 61000, and the bytes behind it; the next block's data is at 61020.
  const std::tuple<std::uint16_t, Data, const char*> cases[] = {
      {0x1F, {0xFF}, "filling"},       {0x1D, {0, 0, 0}, "filling"},    {0x1E, {0xFF, 0xFF}, "filling"},
      {0x1E, {0xFF, 0x00}, "unknown"}, {0x1C, {0, 0, 0, 0}, "unknown"}, {0x1F, {1}, "unknown"},
  };
  for (const auto& [blockSize, rest, what] : cases) {
    ImageBuilder image = Plain();
    PutBlock(image, 0x1000, liveBlockState, 5076, 0x61000, blockSize);
    PutBlock(image, 0x100C, liveBlockState, 5077, 0x61020, 0x20);
    image.Data(0x61000 + blockSize, rest);
    EXPECT_EQ(LabelOf(MapOf(image), 0x61000 + blockSize), what) << testing::PrintToString(rest);
  }
  for (const auto& [size, what] : {std::pair(0x100000, "unknown"), {0x100001, "filling"}}) {
    ImageBuilder odd(static_cast<std::size_t>(size));
    odd.Fill(0, odd.Size(), nothing);
    PutBlock(odd, 0x1000, liveBlockState, 5076, 0x61000, 0x1E);
    PutBlock(odd, 0x100C, liveBlockState, 5077, 0x6101F, 0x20);
    odd.Byte(0x6101E, 0xFF);
    EXPECT_EQ(LabelOf(MapOf(odd), 0x6101E), what);
  }
}

TEST(DumpMap, SaysHowSureEachKindIs) {
  ImageBuilder image = CraftedImages()[0].Build();
  PutBlock(image, 0x103C, liveBlockState, 998, 0x90042, 0x20);
  image.Fill(0x90040, 2, 0);  // filling between the data of two blocks
  std::set<std::string> sure;
  for (const Claim& region : MapOf(image).regions)
    sure.insert(std::string(region.kind->key) + " " + std::string(KeyOf(region.sure)) + "; ");
  EXPECT_EQ(std::accumulate(sure.begin(), sure.end(), std::string()),
            "code guessed; eeprom-data certain; eeprom-deleted-data likely; "
            "eeprom-deleted-header certain; eeprom-header certain; empty-block certain; erased likely; "
            "file-data certain; file-deleted-data likely; file-deleted-header likely; "
            "file-directory certain; file-free likely; file-header certain; file-map certain; "
            "file-unit certain; filling guessed; firmware-header certain; function likely; melody likely; "
            "picture certain; picture guessed; picture-header guessed; picture-table certain; "
            "ringtone-file certain; ringtone-pointer likely; ringtone-table certain; t9 certain; "
            "t9-free certain; text guessed; unknown ; ");
}

// A table is certain with eight entries or more, nine tenths of which point into the image.
TEST(DumpMap, GuessesUnsoundPictureTables) {
  constexpr std::tuple<std::size_t, std::size_t, const char*> cases[] = {
      {8, 0, "certain"}, {7, 0, "guessed"}, {8, 1, "guessed"}, {10, 1, "certain"}, {20, 3, "guessed"}};
  for (const auto& [entries, outside, sure] : cases) {
    ImageBuilder image = Plain();
    for (std::size_t i = 0; i < entries; ++i)
      PutPicture(image, 0x5000 + 8 * i, 4, i == 0 ? 4 : 5, 1, i < entries - outside ? 0x5100 : 0xFFFFE);
    image.Fill(0x5000 + 8 * entries, 8, 0);
    const DumpMap map = MapOf(image);
    EXPECT_EQ(KeyOf(map.Within(0x5000, 1)[0].sure), sure) << entries << ' ' << outside;
    EXPECT_EQ(KeyOf(map.Within(0x5100, 1)[0].sure), sure) << entries << ' ' << outside;
  }
}

// Hand-made overlapping finds in an image of 100 bytes.
TEST(DumpMap, GivesOverlapsToTheSurestKind) {
  const Dump dump{Fullflash{Bytes(Data(100, nothing))}, {}, {}};
  const BlockStore blocks = StoreOf({{10, 0, 20, 30, false, liveBlockState, 8},
                                     {11, 0, 40, 30, false, deletedBlockState, 20},
                                     {9, 0, 90, 5000, false, deletedBlockState, 32},
                                     {12, 0, -5, 10, false, liveBlockState, 84}});
  PictureList pictures;
  pictures.pictures = {{.outside = true, .entry = 60, .size = 100}};
  const std::map<const Explorer*, Findings> found{{&eepromExplorer, Findings(EepromFindings{blocks, {}})},
                                                  {&picturesExplorer, Findings(pictures)},
                                                  {&ringtonesExplorer, Findings(RingtoneList())}};
  const FindingsOf findingsOf = [&](const Explorer& explorer) -> const Findings& {
    const auto known = found.find(&explorer);
    if (known != found.end()) return known->second;
    static std::optional<Findings> others;  // there is nothing to find in this image
    return others.emplace(explorer.search(dump, noProgress));
  };
  const DumpMap map = MapDump(dump, findingsOf);
  EXPECT_EQ(LinesOf(map), (Lines{"0 5 EEPROM 12", "5 3 picture 0", "8 12 EEPROM 10 (header)",
                                 "14 12 EEPROM 11 (deleted, header)", "20 12 EEPROM 9 (deleted, header)",
                                 "2c 6 EEPROM 10", "32 20 EEPROM 11 (deleted)", "46 14 picture 0",
                                 "54 12 EEPROM 12 (header)", "60 4 EEPROM 9 (deleted)"}));
  EXPECT_EQ(LabelOf(map, 0, 100), "EEPROM 12, picture 0, EEPROM 10 (header), ...");
  EXPECT_EQ(LabelOf(map, 83, 17), "picture 0, EEPROM 12 (header), EEPROM 9 (deleted)");
  EXPECT_EQ(LabelOf(map, 100), "");
  EXPECT_EQ(LabelOf(map, -1), "");
}

TEST(DumpMap, TilesEveryImage) {
  for (const CraftedImage& crafted : CraftedImages()) {
    SCOPED_TRACE(crafted.name);
    ExpectTiles(MapOf(crafted.Build()), crafted.size);
  }
  for (std::size_t size = 2; size < 0x100; ++size) ExpectTiles(MapOf(ImageBuilder(size)), size);
}

}  // namespace
}  // namespace tarvelo
