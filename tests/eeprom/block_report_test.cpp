#include "eeprom/block_report.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>

#include "demo/image_builder.h"

namespace tarvelo {
namespace {

using Kind = BlockDifference::Kind;

constexpr std::int32_t base = 0xFF0000;  // of an image of 64 KiB

BlockStore StoreOf(std::vector<EepromBlockRecord> records) {
  BlockStore store;
  store.records = std::move(records);
  return store;
}

// Generations of block 5079, among another one, in an image of 64 KiB.
class Generations : public testing::Test {
 protected:
  Generations() {
    ImageBuilder builder(0x10000);
    builder.Text(0x1000, "ABC");
    builder.Text(0x1010, "AXC");
    builder.Byte(0x1014, 'E');
    builder.Text(0x1020, "AXC");
    builder.Byte(0x1024, 'E');
    builder.Byte(0, 'b');
    image_ = Fullflash(std::move(builder).Take());
  }

  [[nodiscard]] BlockReport Report(std::size_t record) const { return ReportOf(store_, record, image_); }

  [[nodiscard]] std::vector<std::pair<std::size_t, BlockDifference>> Others(std::size_t record) const {
    std::vector<std::pair<std::size_t, BlockDifference>> others;
    for (const BlockGeneration& other : Report(record).others)
      others.emplace_back(other.record, other.difference);
    return others;
  }

  Fullflash image_;
  BlockStore store_ = StoreOf({
      {5079, 1, 0x1000, 4, false, deletedBlockState, 0x40},
      {5080, 1, 0x1000, 4, false, liveBlockState, 0x4C},
      {5079, 2, 0x1010, 5, true, liveBlockState, 0x58},
      {5079, 2, 0x1020, 5, false, deletedBlockState, 0x64},
      {5079, 3, 0xFFFE, 4, false, deletedBlockState, 0x70},     // two bytes lie behind the end
      {5079, 3, -2, 3, false, deletedBlockState, 0x7C},         // and two in front of the image
      {5079, 3, -0x400000, 8, false, deletedBlockState, 0x88},  // all do
      {5079, 3, -0x400000, 0, false, deletedBlockState, 0x94},  // nothing cannot lie outside
  });
};

TEST_F(Generations, AreComparedWithTheOneShown) {
  using List = std::vector<std::pair<std::size_t, BlockDifference>>;
  EXPECT_EQ(Report(2).record, store_.records[2]);
  EXPECT_EQ(Report(2).address, 0xFF1010u);
  EXPECT_EQ(Others(2), (List{{0, {Kind::Differing, 2, 1}},  // one byte, and one more
                             {3, {Kind::Same}},
                             {4, {Kind::Outside}},
                             {5, {Kind::Outside}},
                             {6, {Kind::Outside}},
                             {7, {Kind::Differing, 5, 0}}}));
  EXPECT_EQ(Others(4)[0].second.kind, Kind::Unknown);
  EXPECT_EQ(Others(4)[3].second.kind, Kind::Outside);
  EXPECT_TRUE(Others(1).empty());
}

TEST_F(Generations, HaveTheDataThatLiesInTheImage) {
  const struct {
    std::size_t record;
    std::string dump;
    Offset offset;
    bool whole;
  } cases[] = {
      {2, "0000  41 58 43 00 45                                   AXC.E", 0x1010, true},
      {4, "0000  FF FF                                            яя", 0xFFFE, false},
      {5, "0002  62                                               b", 0, false},
      {6, "", -0x400000, false},
      {7, "", -0x400000, true},
  };
  for (const auto& expected : cases) {
    const BlockData data = Report(expected.record).data;
    EXPECT_EQ(HexDump(data), expected.dump);
    EXPECT_EQ(data.offset, expected.offset);
    EXPECT_EQ(data.whole, expected.whole) << expected.record;
  }
  EXPECT_EQ(Report(5).address, 0xFEFFFEu);
}

TEST_F(Generations, AreFoundByNumber) {
  EXPECT_EQ(LiveBlock(store_, 5079), 2u);
  EXPECT_EQ(LiveBlock(store_, 5081), std::nullopt);
  EXPECT_EQ(LiveBlock(store_, ViewerEntry::x5079), 2u);
  EXPECT_EQ(LiveBlock(store_, ViewerEntry::x5076), std::nullopt);
  EXPECT_EQ(NextBlock(store_, 5079), 1u);
  EXPECT_EQ(NextBlock(store_, 5080), std::nullopt);
  EXPECT_EQ(PreviousBlock(store_, 5080), 2u);
  EXPECT_EQ(PreviousBlock(store_, 5079), std::nullopt);

  store_.records[2].State = deletedBlockState;
  EXPECT_EQ(LiveBlock(store_, ViewerEntry::x5079), std::nullopt);
  EXPECT_EQ(PreviousBlock(store_, 5080), 7u);  // the last of the deleted ones
}

TEST(BlockReport, FindsTheLowestLiveBlockOfAMenuEntry) {
  const BlockStore store = StoreOf({{5241, 0, 0, 4, true, liveBlockState, 0},
                                    {5237, 0, 0, 4, true, liveBlockState, 12},
                                    {5136, 0, 0, 4, false, deletedBlockState, 24},
                                    {5237, 0, 0, 4, true, liveBlockState, 36}});
  EXPECT_EQ(LiveBlock(store, ViewerEntry::x5136), 3u);  // of two live ones the later
}

TEST(HexDump, HasARowForEachSixteenBytes) {
  std::vector<std::uint8_t> bytes;
  for (int i = 0; i < 18; ++i) bytes.push_back(static_cast<std::uint8_t>(0x30 + i));
  bytes[1] = 0x98;  // without a character
  bytes[2] = 0xA0;  // blank
  bytes[3] = 0xAD;  // invisible
  const BlockData data{bytes, 0x500, 0, true};
  EXPECT_EQ(HexDump(data),
            "0000  30 98 A0 AD 34 35 36 37 38 39 3A 3B 3C 3D 3E 3F  0...456789:;<=>?\n"
            "0010  40 41                                            @A");

  const struct {
    std::size_t line, column, byte;
  } places[] = {
      {0, 0, 0},  {0, 5, 0},   {0, 6, 0},   {0, 8, 0},    {0, 9, 1}, {0, 52, 15}, {0, 54, 15},  // digits
      {0, 55, 0}, {0, 58, 3},  {0, 71, 15}, {0, 999, 15},                                       // text
      {1, 9, 17}, {1, 12, 17}, {1, 56, 17}, {2, 0, 17},                                         // the end
  };
  for (const auto& place : places)
    EXPECT_EQ(DumpByte(data, place.line, place.column), place.byte) << place.line << ' ' << place.column;
  for (std::size_t i = 0; i < bytes.size(); ++i) EXPECT_EQ(DumpByte(data, i / 16, DumpColumn(i)), i);
}

std::vector<std::string> Texts(std::vector<std::uint8_t> bytes, std::size_t start) {
  std::vector<std::string> texts;
  for (const BlockReading& reading : ReadAsText(bytes, start)) texts.push_back(reading.text);
  return texts;
}

TEST(ReadAsText, AsksEveryDecoder) {
  using Readings = std::vector<std::string>;
  const std::vector<std::uint8_t> bytes{0x02, 0x00, 'A', 0x00, 0x42, 0x04, 0xFF, 0xFF};
  // To a stop byte, counted, shifted; 16 bits in either order and to the stop; 7 bits; paged.
  EXPECT_EQ(Texts(bytes, 0),
            (Readings{"<0002>", "<0000>A", "<0002>", "Aт", "A", "<0002>Aт", "<0000><0002>", "<02>"}));
  EXPECT_EQ(Texts(bytes, 2), (Readings{"A", "", "A", "", "Bӿ", "Aт", "", "A"}));
  EXPECT_EQ(Texts(bytes, 6), Readings(8));
  EXPECT_EQ(Texts(bytes, 8), Readings(8));
  EXPECT_EQ(Texts({}, 0), Readings(8));
}

TEST(ReadAsText, ShowsWhatCannotBeSeen) {
  // Turned writing direction, half a surrogate pair, a whole one, a byte order mark.
  const std::vector<std::uint8_t> bytes{0x2E, 0x20, 0x3D, 0xD8, 0x3D, 0xD8,
                                        0x00, 0xDE, 0xFF, 0xFE, 0xFF, 0xFF};
  EXPECT_EQ(Texts(bytes, 0)[5], "<202E><D83D>\U0001F600<FEFF>");
}

TEST(BlockReport, SurvivesHostileStores) {
  std::mt19937 random(5);
  std::vector<std::uint8_t> bytes(0x3000);
  for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random());
  const Fullflash image(bytes);
  BlockStore store;
  for (int i = 0; i < 300; ++i) {
    const auto offset = static_cast<std::int32_t>(random() % 0x8000) - 0x2800;
    store.records.push_back({static_cast<std::uint16_t>(5001 + random() % 9), 0, offset,
                             static_cast<std::uint16_t>(random() % 0x1500), false, deletedBlockState, i});
  }
  store.records.push_back({5001, 0, INT32_MIN, 0xFFFF, false, liveBlockState, 0});
  store.records.push_back({5001, 0, INT32_MAX, 0xFFFF, false, liveBlockState, 0});
  for (std::size_t i = 0; i < store.records.size(); ++i) {
    const BlockData data = ReportOf(store, i, image).data;
    EXPECT_LE(data.bytes.size(), store.records[i].Size);
    const std::size_t rows = (data.bytes.size() + 15) / 16;
    EXPECT_EQ(std::ranges::count(HexDump(data), '\n'), rows == 0 ? 0 : static_cast<long>(rows) - 1);
    EXPECT_EQ(ReadAsText(data.bytes, random() % 0x1500).size(), 8u);
  }
}

}  // namespace
}  // namespace tarvelo
