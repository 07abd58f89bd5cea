#include "pictures/picture_search.h"

#include <gtest/gtest.h>

#include "images.h"
#include "pictures/picture_table.h"
#include "pictures/pictures_explorer.h"

namespace tarvelo {
namespace {

PictureList Find(ImageBuilder builder) { return GetP(ImageOf(std::move(builder)), noProgress); }

std::size_t Entry(ImageBuilder& builder, std::size_t at, std::uint8_t width, std::uint8_t height,
                  std::uint8_t type, std::size_t data = 0x80000) {
  return PutPicture(builder, at, width, height, type, data);
}

// A table of a 4 x 4 picture and others of one type. Returns its end.
std::size_t PutTable(ImageBuilder& builder, std::size_t at, std::uint8_t type, int others = 1) {
  at = Entry(builder, at, 4, 4, 1);
  for (int i = 0; i < others; ++i) at = Entry(builder, at, 8, 2, type);
  return at;
}

using Cells = std::vector<std::string>;

TEST(GetP, ListsATableAndItsColumns) {
  ImageBuilder builder(mebi);
  std::size_t at = Entry(builder, 0x1002, 4, 4, 0x81, 0x80000);
  at = Entry(builder, at, 101, 80, 0x88, 0x80010);
  Entry(builder, at, 200, 100, 5, 0x12345);
  builder.Byte(0x80000, 0xD0);  // 16 pixels of ink
  const PictureList list = Find(builder);
  EXPECT_EQ(list.tables, std::vector<Offset>{0x1002});
  EXPECT_EQ(TabSeparated(PictureRows(list).All(), "\n"),
            "P\tN/P\tN\tX\tY\tB\tOffset\tSize\tUncomp\tPIT\n"
            "1\t000\t   0\t  4\t  4\t 1\t080000\t    1\t    4\t001002\n"
            "1\t001\t   1\t101\t 80\t16\t080010\t24240\t16160\t00100A\n"  // FF: one pixel, 3 bytes
            "1\t002\t   2\t200\t100\t 8\t012345\t20000\t\t001012\n");
  EXPECT_EQ(list.pictures[1].Caption(), " 1.  101 * 80 * 16 (comp) ");
  EXPECT_EQ(list.pictures[2].Caption(), " 2.  200 * 100 * 8 ");
}

// A column keeps the rightmost digits; the picture keeps all of them.
TEST(PictureRows, CutNumbersOnTheLeft) {
  PictureList list;
  list.pictures = {{.table = 99,
                    .type = 0x88,
                    .width = 254,
                    .height = 255,
                    .index = 0x12345,
                    .number = 123456,
                    .data = 0x1ABCDEF,
                    .entry = 0x1234567,
                    .size = 1234567}};
  EXPECT_EQ(PictureRows(list).row(0).cells,
            (Cells{"99", "345", "3456", "254", "255", "16", "ABCDEF", "34567", "29540", "234567"}));
  EXPECT_EQ(list.pictures[0].PlainSize(), 129540);
}

TEST(GetP, ListsTheLargestAndSmallestPictures) {
  ImageBuilder builder(mebi);
  std::size_t at = Entry(builder, 0x1000, 4, 4, 1);
  at = Entry(builder, at, 254, 255, 8);
  at = Entry(builder, at, 0, 1, 8);
  Entry(builder, at, 255, 8, 8);
  const PictureList list = Find(builder);
  ASSERT_EQ(list.pictures.size(), 3u);
  EXPECT_EQ(list.pictures[1].width, 254);
  EXPECT_EQ(list.pictures[1].size, 129540);
  EXPECT_EQ(list.pictures[2].height, 1);
}

TEST(GetP, StartsATableByEachRule) {
  constexpr std::pair<std::size_t, std::uint8_t> wrong[] = {{0, 5}, {1, 5}, {2, 2}, {3, 1},
                                                            {8, 0}, {9, 0}, {11, 1}};
  for (const auto& [at, value] : wrong) {
    ImageBuilder builder(mebi);
    PutTable(builder, 0x1000, 1);
    builder.Byte(0x1000 + at, value);
    EXPECT_TRUE(Find(builder).tables.empty()) << at;
  }
}

TEST(GetP, EndsATableByEachRule) {
  const std::array<std::uint8_t, 4> ends[] = {{8, 0, 1, 0}, {255, 8, 1, 0}, {8, 8, 1, 1}, {4, 4, 1, 0}};
  for (const auto& end : ends) {
    ImageBuilder builder(mebi);
    const std::size_t at = PutTable(builder, 0x1000, 1, 2);
    builder.Data(at, end);
    builder.Fill(at + 4, 4, 0);
    Entry(builder, at + 8, 8, 8, 1);
    EXPECT_EQ(Find(builder).pictures.size(), 3u) << int{end[0]} << int{end[1]};
    const Dump dump = DumpOf(builder);
    const Offset size = end[0] == 255 || end[1] == 0 ? 32 : 24;  // of the table, with an entry that ends it
    picturesExplorer.claim(dump, picturesExplorer.search(dump, noProgress), [&](const Claim& claim) {
      EXPECT_EQ(claim.size, claim.offset == 0x1000 ? size : claim.size) << int{end[0]} << int{end[1]};
    });
  }
  ImageBuilder compressed(mebi);  // a 4 x 4 picture of type 81 does not end a table
  Entry(compressed, PutTable(compressed, 0x1000, 1, 2), 4, 4, 0x81);
  EXPECT_EQ(Find(compressed).pictures.size(), 4u);
}

TEST(GetP, ReadsATableToTheEndOfTheImage) {
  for (const auto& [size, others, found] : {std::tuple(24, 2, 3u), {20, 1, 2u}, {16, 1, 0u}}) {
    ImageBuilder builder(mebi);
    PutTable(builder, mebi - static_cast<std::size_t>(size), 1, others);
    EXPECT_EQ(Find(builder).pictures.size(), found) << size;  // four bytes remain after a table of two
  }
}

TEST(GetP, LooksForFurtherTablesOnceColourWasSeen) {
  constexpr std::tuple<std::uint8_t, std::size_t, std::size_t> cases[] = {
      {3, 0x50000, 2}, {8, 0x50002, 1}, {1, 0x4000, 1}, {0x81, 0x4000, 1}, {2, 0x4000, 1}};
  for (const auto& [type, distance, tables] : cases) {
    ImageBuilder builder(mebi);
    PutTable(builder, 0x1000, type);
    PutTable(builder, 0x1000 + distance, 1);
    EXPECT_EQ(Find(builder).tables.size(), tables) << int{type} << ' ' << distance;
  }
  ImageBuilder adjacent(mebi);  // a table right after another
  PutTable(adjacent, PutTable(adjacent, 0x1000, 5), 5);
  const PictureList list = Find(adjacent);
  EXPECT_EQ(list.tables.size(), 2u);
  ASSERT_EQ(list.pictures.size(), 4u);
  EXPECT_EQ(list.pictures[3].table, 2);
  EXPECT_EQ(list.pictures[3].index, 1);
  EXPECT_EQ(list.pictures[3].number, 3);
}

TEST(GetP, StopsAfterNinetyNineTables) {
  ImageBuilder builder(mebi);
  for (std::size_t i = 0, at = 0x1000; i < 120; ++i) at = PutTable(builder, at, 5);
  EXPECT_EQ(Find(builder).tables.size(), 99u);
}

TEST(GetP, WrapsAddressesBelowTheBase) {
  ImageBuilder builder(mebi);
  const std::size_t second = Entry(builder, 0x1000, 4, 4, 1) + 4;
  Entry(builder, 0x1008, 8, 8, 1);
  builder.Word(builder.Word(second, 0x0123), 0xF00000 / 0x4000 - 1);  // 0x4000 - 0x123 below the base
  EXPECT_EQ(Find(builder).pictures[1].data, 0x200000 - 0x4000 + 0x123);
}

TEST(GetP, ListsStandAloneHeadersAfterAMonochromeTable) {
  ImageBuilder builder(mebi);
  Entry(builder, 0x800, 8, 8, 0x81);  // before the table: not found
  PutTable(builder, 0x1000, 1);
  Entry(builder, 0x3002, 101, 80, 0x81, 1);
  Entry(builder, 0x300A, 1, 1, 0x81, mebi - 1);
  Entry(builder, 0x4000, 102, 1, 0x81);   // too wide
  Entry(builder, 0x4008, 1, 81, 0x81);    // too high
  Entry(builder, 0x4010, 1, 1, 0x81, 0);  // data at offset 0
  Entry(builder, 0x4018, 1, 1, 0x80);
  Entry(builder, 0x4020, 0, 1, 0x81);
  Entry(builder, 0x4028, 1, 0, 0x81);
  builder.DWord(Entry(builder, 0x4030, 1, 1, 0x81) - 4, 0x04000000);  // behind the image
  builder.Byte(Entry(builder, 0x4038, 1, 1, 0x81) - 5, 1);            // no 0 behind the type
  Entry(builder, mebi - 8, 9, 9, 0x81, 0x80000);
  const PictureList list = Find(builder);
  EXPECT_EQ(list.outsideCount, 3);
  ASSERT_EQ(list.pictures.size(), 5u);
  EXPECT_EQ(PictureRows(list).row(3).cells,
            (Cells{"9", "001", "   3", "  1", "  1", " 1", "0FFFFF", "    1", "    1", "00300A"}));
  EXPECT_EQ(list.pictures[4].entry, Offset{mebi - 8});
  EXPECT_EQ(PictureInformation(list, Messages()),
            "1: Address of PIT-table 1000\nNumber of pictures: 5\nPictures outside of PIT-area: 3\n");
  builder.Byte(0x1008 + 2, 5);  // one picture in colour hides them
  EXPECT_EQ(Find(builder).outsideCount, 0);
}

}  // namespace
}  // namespace tarvelo
