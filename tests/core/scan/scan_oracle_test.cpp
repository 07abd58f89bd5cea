// Compares the scans for tables and headers with their plain definitions: every second position, rule by
// rule, with every kind of vector unit that this machine has.
#include <algorithm>
#include <array>
#include <random>

#include "images.h"
#include "on_each_unit.h"
#include "pictures/picture_search.h"
#include "ringtones/ringtone_search.h"

namespace tarvelo {
namespace {

class ScanOracle : public OnEachUnit {};
INSTANTIATE_TEST_SUITE_P(Units, ScanOracle, eachUnit);

Offset PlainPictureTable(const Fullflash& image, Offset from) {
  const auto byte = [&](Offset p) { return image.Byte(p); };
  for (Offset p = from; p <= image.ffEnd() + 1 - 20; p += 2) {
    const bool starts = image.PageMode() ? byte(p) == 4 && byte(p + 1) == 4 && (byte(p + 2) | 0x80) == 0x81
                                         : byte(p) == 0x34 && byte(p + 1) == 0x34 && byte(p + 2) == 0x88;
    if (starts && byte(p + 3) == 0 && byte(p + 8) != 0 && byte(p + 9) != 0 && byte(p + 11) == 0) return p;
  }
  return -1;
}

std::vector<Offset> PlainOutside(const Fullflash& image, Offset from) {
  std::vector<Offset> headers;
  const Offset size = image.ffEnd() + 1;
  for (Offset p = from; p <= size - 8; p += 2) {
    const int width = image.Byte(p), height = image.Byte(p + 1);
    if (width < 1 || width > 101 || height < 1 || height > 80) continue;
    if (image.Byte(p + 2) != 0x81 || image.Byte(p + 3) != 0) continue;
    const Offset data = Offset{image.GetAdr(p + 4)} - image.LoadBase();
    if (data >= 1 && data < size) headers.push_back(p);
  }
  return headers;
}

Offset PlainRingtoneTable(const Fullflash& image) {
  for (Offset p = 0; p <= image.ffEnd() + 1 - 41; p += 2) {
    bool starts = image.Byte(p + 40) == 5;
    for (Offset k = 0; starts && k < 5; ++k)
      starts = image.Byte(p + 8 * k) == k && image.Byte(p + 8 * k + 1) == 0 &&
               image.Byte(p + 8 * k + 2) < 16 && image.Byte(p + 8 * k + 3) == 0;
    if (starts) return p;
  }
  return -1;
}

// Bytes common in tables and headers, and now and then the start of one, complete or nearly so.
Data RandomImage(std::mt19937& random, std::size_t size, std::span<const std::uint8_t> start) {
  constexpr std::array<std::uint8_t, 12> usual{0, 0, 0, 1, 2, 4, 4, 5, 0x81, 0x34, 0xFF, 0x40};
  Data image(size);
  for (std::uint8_t& byte : image) byte = usual[random() % usual.size()];
  for (std::size_t p = random() % 500; p + start.size() <= size; p += 40 + random() % 600) {
    const auto at = image.begin() + static_cast<std::ptrdiff_t>(p);
    std::ranges::copy(start, at);
    if (random() % 2)
      at[static_cast<std::ptrdiff_t>(random() % start.size())] = usual[random() % usual.size()];
  }
  return image;
}

TEST_P(ScanOracle, FindsPictures) {
  // Two entries, the end of the table, and a header outside it. Their data is the image's last byte.
  constexpr std::uint8_t start[] = {4, 4, 1, 0, 0xFF, 0x3F, 0xFF, 3, 9, 9, 1,    0, 0xFF, 0x3F, 0xFF, 3,
                                    8, 0, 0, 0, 0,    0,    0,    0, 9, 9, 0x81, 0, 0xFF, 0x3F, 0xFF, 3};
  std::mt19937 random(5);
  std::size_t tables = 0, outside = 0;
  for (int round = 0; round < 1500; ++round) {
    const Fullflash image(RandomImage(random, 2 + random() % 3000, start));
    const PictureList list = GetP(image, noProgress);
    const Offset first = PlainPictureTable(image, 0);
    ASSERT_EQ(list.tables.empty() ? -1 : list.tables[0], first) << round;
    if (first < 0) continue;
    ++tables;
    std::vector<Offset> headers;
    Offset end = first;
    for (const Picture& picture : list.pictures)
      if (picture.outside)
        headers.push_back(picture.entry);
      else
        end = picture.entry + 8;
    if (list.colourSeen) continue;
    ASSERT_EQ(headers, PlainOutside(image, end)) << round;
    outside += headers.size();
  }
  EXPECT_GT(tables, 500u);
  EXPECT_GT(outside, 100u);
}

TEST_P(ScanOracle, FindsRingtones) {
  Data start;
  for (std::uint8_t number = 0; number < 6; ++number)
    start.insert(start.end(), {number, 0, 2, 0, 1, 2, 3, 4});
  std::mt19937 random(6);
  std::size_t tables = 0;
  for (int round = 0; round < 1500; ++round) {
    const Fullflash image(RandomImage(random, 2 + random() % 2000, start));
    const RingtoneList list = GetRingtones(image, noProgress);
    ASSERT_EQ(list.table.value_or(-1), PlainRingtoneTable(image)) << round;
    tables += list.table.has_value();
  }
  EXPECT_GT(tables, 300u);
}

TEST_P(ScanOracle, FindsPicturesOfLargeImages) {
  constexpr std::uint8_t start[] = {0x34, 0x34, 0x88, 0, 0, 0, 0, 0, 9, 9, 1, 0, 0, 0, 0, 0, 0, 0};
  std::mt19937 random(7);
  for (int round = 0; round < 4; ++round) {
    Data bytes(0x1000001 + random() % 300, 0x34);
    const Data end = RandomImage(random, 3000, start);
    std::ranges::copy(end, bytes.end() - 3000);
    const Fullflash image(bytes);
    const PictureList list = GetP(image, noProgress);
    ASSERT_EQ(list.tables.empty() ? -1 : list.tables[0], PlainPictureTable(image, 0xFFE000)) << round;
  }
}

}  // namespace
}  // namespace tarvelo
