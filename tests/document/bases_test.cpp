// Images whose loading base and corrected base differ. Explorers count from the loading base, the places that
// the user sees from the corrected one.
#include <gtest/gtest.h>

#include "core/places.h"
#include "document/dump_map.h"
#include "document/explorers.h"
#include "document/map_table.h"
#include "eeprom/block_report.h"
#include "eeprom/eeprom_explorer.h"
#include "images.h"
#include "pictures/picture.h"
#include "ringtones/ringtone.h"

namespace tarvelo {
namespace {

// A block, two pictures, five melodies and a file, with pointers that count from the loading base.
Dump DumpOf(const char* model, std::size_t size) {
  ImageBuilder image(size);
  image.Fill(0, 0x10000, 0x90);
  PutHeader(image, model);
  // Headers can name only some places; the last 640 KiB are among them.
  PutBlock(image, size - 0x10000, liveBlockState, 71, size - 0x8000, 0x20);
  PutPicture(image, PutPicture(image, 0x1000, 4, 4, 1, 0x1100), 0, 0, 0, 0);
  PutPicture(image, 0x1008, 8, 8, 1, 0x1200);
  image.Fill(0x1010, 8, 0);
  for (std::uint8_t i = 0; i < 6; ++i)
    PutRingtone(image, 0x2000 + 8u * i, i, i == 3 ? 7 : 2, 0x2100 + 0x10u * i);
  image.Fill(0x2030, 8, 0x10);  // ends the table
  for (std::size_t p = 0x2100; p < 0x2160; p += 4) image.DWord(p, p % 16 == 0 ? 0x00640064 : 0);
  image.Pointer(0x2130, 0x2200);
  image.Text(0x2200, "MThd");
  return DumpOf(std::move(image));
}

class Bases : public testing::TestWithParam<std::pair<const char*, std::size_t>> {
 protected:
  [[nodiscard]] Findings Find(const char* key) const { return FindExplorer(key)->search(dump, noProgress); }
  [[nodiscard]] Offset DataOf(const char* key, std::size_t record) const {
    return FindExplorer(key)->item(Find(key), record).data.offset;
  }

  Dump dump = DumpOf(GetParam().first, GetParam().second);
  Offset size = static_cast<Offset>(GetParam().second);
};

INSTANTIATE_TEST_SUITE_P(Models, Bases,
                         testing::Values(std::pair{"S45", std::size_t{0x600000}},
                                         std::pair{"A52", std::size_t{0x400000}},
                                         std::pair{"A52", std::size_t{0x600000}}));

TEST_P(Bases, ExplorersCountFromTheLoadingBase) {
  ASSERT_EQ(dump.image.LoadBase(), 0x1000000 - size);
  ASSERT_EQ(dump.image.CorrBase(), 0x800000);
  EXPECT_EQ(DataOf("eeprom", 0), size - 0x8000);
  EXPECT_EQ(ReportOf(Find("eeprom").As<EepromFindings>().store, 0, dump.image).address, 0x1000000u - 0x8000);
  EXPECT_EQ(DataOf("pictures", 0), 0x1100);
  EXPECT_EQ(DataOf("pictures", 1), 0x1200);
  EXPECT_EQ(DataOf("ringtones", 0), 0x2100);
  EXPECT_EQ(DataOf("ringtones", 3), 0x2200);  // the file, through its pointer
  const DumpMap map = MapDump(
      dump, [found = std::optional<Findings>(), this](const Explorer& explorer) mutable -> const Findings& {
        return found.emplace(explorer.search(dump, noProgress));
      });
  EXPECT_EQ(LabelOf(map, 0x2130), "ringtone 03 (pointer)");
}

TEST_P(Bases, PlacesCountFromTheCorrectedBase) {
  EXPECT_EQ(dump.image.PhoneAddress(0x12345), 0x812345u);
  EXPECT_EQ(AddressText(dump.image, 0x12345), "204:2345");
  EXPECT_EQ(ReadPlace("204:2345", PlaceKind::AsOffset, dump.image), 0x12345);
  EXPECT_EQ(ReadPlace("812345", PlaceKind::AsAddress, dump.image), 0x12345);
}

// A linear pointer counts from the corrected base, what it leads to from the loading base.
TEST(BasesOfALargeImage, Differ) {
  ImageBuilder image(0x1000010);
  PutHeader(image, "A52");
  PutBlock(image, 0x1000010 - 0x100, liveBlockState, 71, 0, 0x20);
  image.DWord(0x1000010 - 0x100 + 4, 0xF65678);
  const Dump dump = DumpOf(std::move(image));
  ASSERT_EQ(dump.image.CorrBase(), 0x800000);
  const Findings found = FindExplorer("eeprom")->search(dump, noProgress);
  const BlockStore& store = found.As<EepromFindings>().store;
  ASSERT_EQ(store.records.size(), 1u);
  EXPECT_EQ(store.records[0].DataOffset, 0x60F65678);
  EXPECT_EQ(ReportOf(store, 0, dump.image).address, 0xF65678u);
}

// Long images are searched whole for blocks only if they are a C60's.
TEST(EepromExplorer, SearchesAC60Whole) {
  for (const char* model : {"C60", "C55"}) {
    ImageBuilder image(0x900000);
    PutHeader(image, model);
    PutBlock(image, 0x1000, liveBlockState, 71, 0x8F0000, 0x20);
    const Dump dump = DumpOf(std::move(image));
    const Explorer& eeprom = *FindExplorer("eeprom");
    EXPECT_EQ(eeprom.count(eeprom.search(dump, noProgress)), model == std::string_view("C60") ? 1u : 0u)
        << model;
  }
}

}  // namespace
}  // namespace tarvelo
