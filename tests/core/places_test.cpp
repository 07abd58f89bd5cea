#include "core/places.h"

#include <gtest/gtest.h>

#include "images.h"

namespace tarvelo {
namespace {

TEST(Places, WritePlaces) {
  const Fullflash paged = Erased(0x800000);  // offset 0 is at 800000
  EXPECT_EQ(OffsetText(paged, 0x1A2B4), "01A2B4");
  EXPECT_EQ(AddressText(paged, 0x212345), "284:2345");
  const Fullflash large = Erased(0x1000001);
  EXPECT_EQ(OffsetText(large, 0x1A2B4), "001A2B4");
  EXPECT_EQ(AddressText(large, 0x1A2B4), "A001A2B4");
  Fullflash shifted = Erased(0x1000000);
  shifted.SetCorrBase(0x800000);
  EXPECT_EQ(AddressText(shifted, 0xFFFFFF), "5FF:3FFF");
}

TEST(Places, ReadPlaces) {
  const Fullflash paged = Erased(0x800000);
  const Fullflash large = Erased(0x1000001);
  const Fullflash none;
  constexpr Offset outside = -1;
  const std::tuple<const char*, PlaceKind, const Fullflash&, Offset> cases[] = {
      {"212345", PlaceKind::AsOffset, paged, 0x212345},
      {" 0x7fffff ", PlaceKind::AsOffset, paged, 0x7FFFFF},
      {"A12345", PlaceKind::AsOffset, paged, 0x212345},
      {"212345", PlaceKind::AsAddress, paged, outside},
      {"284:2345", PlaceKind::AsOffset, paged, 0x212345},
      {"283 : 0x6345", PlaceKind::AsOffset, paged, 0x212345},
      {"400:0", PlaceKind::AsOffset, paged, outside},
      {"FFFFFFFF:FFFFFFFF", PlaceKind::AsOffset, paged, outside},
      {"FFFFFFFF", PlaceKind::AsAddress, paged, outside},
      {"A0000010", PlaceKind::AsAddress, large, 0x10},
      {"1000000", PlaceKind::AsOffset, large, 0x1000000},
      {"0", PlaceKind::AsOffset, none, outside},
  };
  for (const auto& [text, kind, image, offset] : cases)
    EXPECT_EQ(ReadPlace(text, kind, image).value_or(outside), offset) << text;
  for (const char* text : {"", "  ", "0x", "12G", ":", "284:", ":10", "1:2:3", "-1"})
    EXPECT_THROW((void)ReadPlace(text, PlaceKind::AsOffset, paged), std::invalid_argument) << text;
  EXPECT_THROW((void)ReadPlace("123456789", PlaceKind::AsOffset, paged), std::overflow_error);
}

TEST(Places, ReadRegions) {
  const Dump dump{Erased(0x800000), {}, {}, Names("800020\tStart\n")};
  constexpr Region none;
  const std::pair<const char*, Region> cases[] = {
      {"10-1F", {0x10, 0x10}},
      {" 10 + 10 ", {0x10, 0x10}},
      {"7-7", {7, 1}},
      {"start+0x2", {0x20, 2}},
      {"7FFFFF+1", {0x7FFFFF, 1}},
      {"7FFFFF+2", none},
      {"200:0010-200:0011", {0x10, 2}},
      {"20-1F", none},
      {"10+0", none},
      {"10-FFFFFFF", none},
  };
  for (const auto& [text, region] : cases) EXPECT_EQ(ReadRegion(text, dump).value_or(none), region) << text;
  for (const char* text : {"", "10", "10-", "-10", "10+x"})
    EXPECT_THROW((void)ReadRegion(text, dump), std::invalid_argument) << text;
  EXPECT_EQ(RegionText(dump.image, {0x10, 0x10}), "000010-00001F");
}

TEST(Places, ReadValuesInTheImage) {
  ImageBuilder builder(0x800000);
  builder.Pointer(0x10, 0x212345);
  builder.DWord(0x20, 0x12345678);  // points outside the image
  builder.Fill(0x30, 4, 0);
  const std::vector<std::uint8_t> bytes = std::move(builder).Take();
  const Fullflash image{Bytes(bytes)};
  EXPECT_EQ(Reading(image, 0x10), "45 / 2345 / 02842345  -> 212345");
  EXPECT_EQ(Reading(image, 0x20), "78 / 5678 / 12345678");
  EXPECT_EQ(Reading(image, 0x30), "00 / 0000 / 00000000");
  EXPECT_EQ(Reading(image, 0x7FFFFD), "FF / FFFF");
  EXPECT_EQ(Reading(image, 0x7FFFFF), "FF");
}

TEST(Places, AreFoundByNameSegmentOrPage) {
  Dump dump;
  dump.image = Erased(0x800000);  // 800000 is segment 80 and page 200
  dump.names = Names("812345\tAbc\n812346\tbad\n100\tRam");
  using enum ColonForm;
  const std::tuple<const char*, ColonForm, std::optional<Offset>> cases[] = {
      {"81:2345", Segment, 0x12345}, {"204:2345", Segment, 0x12345}, {"81:2345", Page, 0x12345},
      {"204:2345", Page, 0x12345},   {" abc ", Page, 0x12345},       {"0xABC", Page, 0xABC},
      {"BAD", Segment, 0x12346},     {"12345", Segment, 0x12345},    {"ram", Page, {}},
      {"100000:0", Segment, {}},     {"7F:FFFF", Segment, {}},
  };
  for (const auto& [text, form, offset] : cases)
    EXPECT_EQ(FindPlace(text, PlaceKind::AsOffset, form, dump), offset) << text;
  for (const auto& [text, offset] : std::initializer_list<std::pair<const char*, std::optional<Offset>>>{
           {"+10", 0x1010}, {" -20h", 0xFE0}, {"-2000", {}}, {"+800000", {}}, {"12Ah", 0x12A}})
    EXPECT_EQ(FindPlace(text, PlaceKind::AsOffset, Page, dump, 0x1000), offset) << text;
  EXPECT_THROW((void)FindPlace("+", PlaceKind::AsOffset, Page, dump), std::invalid_argument);
  EXPECT_THROW((void)FindPlace("x:1", PlaceKind::AsOffset, Page, dump), std::invalid_argument);
  EXPECT_EQ(SegmentText(dump.image, 0x12345), "81:2345");
  dump.image = Erased(0x1000000);  // both forms are in the image
  dump.names = Names();
  EXPECT_EQ(FindPlace("80:1", PlaceKind::AsOffset, Segment, dump), 0x800001);
  EXPECT_EQ(FindPlace("80:1", PlaceKind::AsOffset, Page, dump), 0x200001);
}

}  // namespace
}  // namespace tarvelo
