#include "eeprom/block_store.h"

#include <algorithm>
#include <array>
#include <random>
#include <set>

#include "images.h"
#include "on_each_unit.h"

namespace tarvelo {
namespace {

using Header = std::array<std::uint8_t, 12>;

// A live header of block 654: V 5, 0x1234 bytes at phone address 0xF65678.
constexpr Header good{0xFC, 0x05, 0x34, 0x12, 0x78, 0x56, 0xF6, 0x00, 0x8E, 0x02, 0x77, 0xFC};

struct OtherByte {
  std::size_t at;
  int value;
};

Header GoodWith(std::initializer_list<OtherByte> changes) {
  Header header = good;
  for (const auto& [at, value] : changes) header[at] = static_cast<std::uint8_t>(value);
  return header;
}

Header Numbered(int number) { return GoodWith({{8, number}, {9, number >> 8}}); }

Header Deleted(Header header) {
  header[0] = header[11] = 0xF0;
  return header;
}

BlockStore ScanBytes(Bytes bytes, std::string_view model = "") {
  return GetEE(Fullflash(bytes), model, noProgress);
}

// Scans an image that holds the headers one right after the other, followed by 600 erased bytes, so that none
// lies at the very end, which is searched differently.
BlockStore ScanHeaders(const std::vector<Header>& headers) {
  Data bytes;
  for (const Header& header : headers) bytes.insert(bytes.end(), header.begin(), header.end());
  bytes.resize(bytes.size() + 600, 0xFF);
  return ScanBytes(bytes);
}

std::vector<int> Positions(const BlockStore& store) {
  std::vector<int> positions;
  for (const EepromBlockRecord& record : store.records) positions.push_back(record.HeaderPos);
  return positions;
}

// Scans an image of `size` bytes with a header at each of the positions.
BlockStore ScanAt(std::size_t size, std::initializer_list<std::size_t> headers, std::string_view model = "") {
  ImageBuilder builder(size);
  for (const std::size_t p : headers) builder.Data(p, good);
  return ScanBytes(std::move(builder).Take(), model);
}

TEST(GetEE, SearchesTheEndOfLongImages) {
  const auto scan = [](std::size_t size, std::string_view model) {
    return Positions(ScanAt(size, {0, 0x75FFF6, 0x760002, 0x760010, size - 12}, model));
  };
  EXPECT_EQ(scan(0x800000, "S55"), (std::vector{0, 0x760010, 0x7FFFF4}));
  EXPECT_EQ(scan(0x800001, "S55"), (std::vector{0, 0x760010}));
  // One byte more, and the scan starts at 0x760002, which decides on the positions too.
  for (const char* model : {"S55", "c60", ""})
    EXPECT_EQ(scan(0x800002, model), (std::vector{0x760002, 0x7FFFF6})) << model;
  EXPECT_EQ(scan(0x800002, "C60"), (std::vector{0, 0x760010}));
}

TEST(GetEE, KeepsTheLastLiveGeneration) {
  const BlockStore store =
      ScanHeaders({GoodWith({{1, 1}, {2, 0x10}}), GoodWith({{1, 2}, {2, 0x20}, {4, 0x00}}),
                   Deleted(GoodWith({{1, 3}, {2, 0x30}, {4, 0x88}}))});
  EXPECT_EQ(store.LiveCount(), 2);
  EXPECT_EQ(store.DeletedCount, 1);
  EXPECT_EQ(store.BlockV[654], 2);
  EXPECT_EQ(store.BlockSize[654], 0x1220);
  EXPECT_EQ(store.BlockOffset[654], 0xF65600 - (0x1000000 - 636));

  const BlockStore gone = ScanHeaders({Deleted(good)});
  EXPECT_EQ(gone.BlockCount(), 1);
  EXPECT_EQ(gone.BlockSize, std::vector<std::uint16_t>(6001));
}

TEST(Viewers, BelongToLiveBlocks) {
  std::set<int> numbers{5079, 5076, 5124, 5166, 280,  5206, 71,   5209, 5168,
                        5262, 5136, 5274, 5275, 5276, 5277, 5278, 67};
  for (const auto& [first, last] : {std::pair{5098, 5107}, {5170, 5179}, {5237, 5241}})
    for (int number = first; number <= last; ++number) numbers.insert(number);
  std::vector<Header> headers;
  for (int number = 1; number < 6000; ++number) {
    EXPECT_EQ(ViewerOf(number).has_value(), numbers.contains(number)) << number;
    if (numbers.contains(number)) headers.push_back(Numbered(number));
  }
  EXPECT_TRUE(ScanHeaders(headers).viewers.all());
  EXPECT_TRUE(ScanHeaders({Deleted(Numbered(67))}).viewers.none());
  EXPECT_EQ(ViewerOf(5098), ViewerEntry::x509x);
  EXPECT_EQ(ViewerOf(5179), ViewerEntry::x517x);
  EXPECT_EQ(ViewerOf(5241), ViewerEntry::x5136);

  // The next image, with a block 67 alone: x5275 .. x5278 stay enabled.
  ViewerSet expected;
  for (const int number : {67, 5275, 5276, 5277, 5278})
    expected.set(static_cast<std::size_t>(*ViewerOf(number)));
  EXPECT_EQ(EnabledViewers(ViewerSet().set(), ScanHeaders({Numbered(67)}).viewers), expected);
}

TEST(GetEE, RefusesMoreThanItsLimit) {
  std::vector<Header> headers(1999, good);
  headers.push_back(Deleted(good));
  headers.push_back(Numbered(1000));  // is not counted
  EXPECT_EQ(ScanHeaders(headers).BlockCount(), 2000);
  headers.push_back(Deleted(good));
  EXPECT_THROW((void)ScanHeaders(headers), std::length_error);
}

TEST(GetEE, ShowsProgress) {
  struct : Progress {
    void Start(std::int64_t first, std::int64_t last) override { calls = {first, last}; }
    void At(std::int64_t position) override { calls.push_back(position); }
    void Finish() override { calls.push_back(-1); }
    std::vector<std::int64_t> calls;
  } progress;
  (void)GetEE(Fullflash(ImageBuilder(0x2800).Take()), "", progress);
  EXPECT_EQ(progress.calls, (std::vector<std::int64_t>{0, 0x27FF, 0, 0x1000, 0x2000, -1}));
}

// The plain definition: every fourth position, rule by rule, without shortcuts.
std::vector<EepromBlockRecord> PlainScan(const Data& image) {
  std::vector<EepromBlockRecord> records;
  for (std::size_t p = 0; p + 12 <= image.size(); p += 4) {
    const std::uint8_t* h = image.data() + p;
    if (h[0] != 0xFC && h[0] != 0xF0) continue;
    if (h[11] != h[0] || h[1] > 0x21 || h[3] > 0x14 || h[7] != 0 || h[9] >= 0x19) continue;
    if (h[6] != 0xBF && !(h[6] >= 0x7C && h[6] <= 0x7F) && h[6] < 0xF6) continue;
    const int number = h[8] + 256 * h[9];
    if (number < 1 || number > 5999 || (number > 999 && number < 5001)) continue;
    const int data = h[4] + 256 * h[5] + 65536 * h[6] - (0x1000000 - static_cast<int>(image.size()));
    const bool hasViewer = h[0] == 0xFC && ViewerOf(number);
    records.push_back({static_cast<std::uint16_t>(number), h[1], data,
                       static_cast<std::uint16_t>(h[2] + 256 * h[3]), hasViewer, h[0], static_cast<int>(p)});
    p += 8;
  }
  return records;
}

class GetEEOnEachUnit : public OnEachUnit {};
INSTANTIATE_TEST_SUITE_P(Units, GetEEOnEachUnit, eachUnit);

TEST_P(GetEEOnEachUnit, AgreesWithThePlainDefinition) {
  // The values on both sides of each rule's bounds.
  constexpr std::uint8_t usual[] = {0x00, 0x01, 0xF0, 0xF4, 0xF8, 0xFC, 0xFF, 0x21, 0x22, 0x14, 0x15,
                                    0x18, 0x19, 0x7B, 0x7C, 0x7F, 0x80, 0xBE, 0xBF, 0xC0, 0xF5, 0xF6};
  constexpr int numbers[] = {0, 1, 654, 999, 1000, 1001, 5000, 5001, 5999, 6000, 6001};
  std::mt19937 random(4);
  std::size_t found = 0;
  for (int round = 0; round < 3000; ++round) {
    Data image(random() % 4000);
    for (std::uint8_t& byte : image) byte = usual[random() % std::size(usual)];
    for (std::size_t p = random() % 4; p + 12 <= image.size(); p += 12 + random() % 2 * (random() % 500)) {
      Header header = Numbered(numbers[random() % std::size(numbers)]);
      if (random() % 3 == 0) header = Deleted(header);
      if (random() % 3 == 0) header[random() % 12] = usual[random() % std::size(usual)];
      if (random() % 9 == 0) header[0] = header[11] = usual[random() % std::size(usual)];
      std::ranges::copy(header, image.begin() + static_cast<std::ptrdiff_t>(p));
    }
    const std::vector<EepromBlockRecord> expected = PlainScan(image);
    EXPECT_EQ(ScanBytes(image).records, expected) << round;
    found += expected.size();
  }
  EXPECT_GT(found, 4000);
}

}  // namespace
}  // namespace tarvelo
