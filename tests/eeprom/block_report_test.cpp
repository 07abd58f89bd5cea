#include "eeprom/block_report.h"

#include <gtest/gtest.h>

#include "eeprom/blocks.h"
#include "images.h"

namespace tarvelo {
namespace {

// Generations of block 5079 and one of another block, in an image of 64 KiB.
class Generations : public testing::Test {
 protected:
  Generations() {
    ImageBuilder builder(0x10000);
    builder.Text(0x1000, "ABC");
    for (const std::size_t p : {0x1010, 0x1020}) builder.Byte(builder.Text(p, "AXC"), 'E');
    builder.Byte(0, 'b');
    image_ = ImageOf(std::move(builder));
  }

  [[nodiscard]] BlockReport Report(std::size_t record) const { return ReportOf(store_, record, image_); }

  using Others = std::vector<std::pair<std::size_t, BlockDifference>>;

  [[nodiscard]] Others OthersOf(std::size_t record) const {
    Others others;
    for (const auto& [other, difference] : Report(record).others) others.emplace_back(other, difference);
    return others;
  }

  Fullflash image_;
  BlockStore store_ = StoreOf({
      {5079, 1, 0x1000, 4, false, deletedBlockState, 0x40},
      {5080, 1, 0x1000, 4, false, liveBlockState, 0x4C},
      {5079, 2, 0x1010, 5, true, liveBlockState, 0x58},
      {5079, 2, 0x1020, 5, false, deletedBlockState, 0x64},
      {5079, 3, 0xFFFE, 4, false, deletedBlockState, 0x70},     // two bytes past the end
      {5079, 3, -2, 3, false, deletedBlockState, 0x7C},         // two bytes before the start
      {5079, 3, -0x400000, 8, false, deletedBlockState, 0x88},  // all bytes outside
      {5079, 3, -0x400000, 0, false, deletedBlockState, 0x94},  // no bytes, so none are outside
  });
};

TEST_F(Generations, AreComparedWithTheOneShown) {
  using enum BlockDifference::Kind;
  EXPECT_EQ(Report(2).record, store_.records[2]);
  EXPECT_EQ(Report(2).address, 0xFF1010u);
  EXPECT_EQ(Report(5).address, 0xFEFFFEu);
  EXPECT_EQ(OthersOf(2), (Others{{0, {Differing, 2, 1}},  // one byte differs, and one is extra
                                 {3, {Same}},
                                 {4, {Outside}},
                                 {5, {Outside}},
                                 {6, {Outside}},
                                 {7, {Differing, 5, 0}}}));
  EXPECT_EQ(OthersOf(4)[0].second.kind, Unknown);
  EXPECT_EQ(OthersOf(4)[3].second.kind, Outside);
  EXPECT_TRUE(OthersOf(1).empty());
}

TEST_F(Generations, HaveTheDataThatLiesInTheImage) {
  const std::tuple<std::size_t, std::string, Offset, bool> cases[] = {
      {2, "0000  41 58 43 00 45                                   AXC.E", 0x1010, true},
      {4, "0000  FF FF                                            яя", 0xFFFE, false},
      {5, "0002  62                                               b", 0, false},
      {6, "", -0x400000, false},
      {7, "", -0x400000, true},
  };
  for (const auto& [record, dump, offset, whole] : cases) {
    const BlockData data = Report(record).data;
    EXPECT_EQ(HexDump(data), dump);
    EXPECT_EQ(data.offset, offset);
    EXPECT_EQ(data.whole, whole) << record;
  }
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

  // A menu entry of several blocks shows the lowest, and the later one of two live ones.
  const BlockStore store = StoreOf({{5241, 0, 0, 4, true, liveBlockState, 0},
                                    {5237, 0, 0, 4, true, liveBlockState, 12},
                                    {5136, 0, 0, 4, false, deletedBlockState, 24},
                                    {5237, 0, 0, 4, true, liveBlockState, 36}});
  EXPECT_EQ(LiveBlock(store, ViewerEntry::x5136), 3u);
}

TEST(HexDump, HasARowForEachSixteenBytes) {
  Data bytes;
  for (int i = 0; i < 18; ++i) bytes.push_back(static_cast<std::uint8_t>(0x30 + i));
  bytes[1] = 0x98;  // without a character
  bytes[2] = 0xA0;  // blank
  bytes[3] = 0xAD;  // invisible
  const BlockData data{bytes, 0x500, 0, true};
  EXPECT_EQ(HexDump(data),
            "0000  30 98 A0 AD 34 35 36 37 38 39 3A 3B 3C 3D 3E 3F  0...456789:;<=>?\n"
            "0010  40 41                                            @A");

  constexpr std::tuple<std::size_t, std::size_t, std::size_t> places[] = {
      {0, 0, 0},  {0, 5, 0},   {0, 6, 0},   {0, 8, 0},    {0, 9, 1}, {0, 52, 15}, {0, 54, 15},  // digits
      {0, 55, 0}, {0, 58, 3},  {0, 71, 15}, {0, 999, 15},                                       // text
      {1, 9, 17}, {1, 12, 17}, {1, 56, 17}, {2, 0, 17},                                         // the end
  };
  for (const auto& [line, column, byte] : places)
    EXPECT_EQ(DumpByte(data, line, column), byte) << line << ' ' << column;
  for (std::size_t i = 0; i < bytes.size(); ++i) EXPECT_EQ(DumpByte(data, i / 16, DumpColumn(i)), i);
}

TEST(ReadAsText, AsksEveryDecoder) {
  using Readings = std::vector<std::string>;
  const auto texts = [](const Data& bytes, std::size_t start) {
    Readings readings;
    for (const BlockReading& reading : ReadAsText(bytes, start)) readings.push_back(reading.text);
    return readings;
  };
  const Data bytes{0x02, 0x00, 'A', 0x00, 0x42, 0x04, 0xFF, 0xFF};
  // To a stop byte, counted, shifted; 16 bits in either order and to the stop; 7 bits; paged.
  EXPECT_EQ(texts(bytes, 0),
            (Readings{"<0002>", "<0000>A", "<0002>", "Aт", "A", "<0002>Aт", "<0000><0002>", "<02>"}));
  EXPECT_EQ(texts(bytes, 2), (Readings{"A", "", "A", "", "Bӿ", "Aт", "", "A"}));
  EXPECT_EQ(texts(bytes, 8), Readings(8));
  // A change of writing direction, an unpaired surrogate, a surrogate pair, a byte order mark.
  const Data hidden{0x2E, 0x20, 0x3D, 0xD8, 0x3D, 0xD8, 0x00, 0xDE, 0xFF, 0xFE, 0xFF, 0xFF};
  EXPECT_EQ(texts(hidden, 0)[5], "<202E><D83D>\U0001F600<FEFF>");
}

}  // namespace
}  // namespace tarvelo
