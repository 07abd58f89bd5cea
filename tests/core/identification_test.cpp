#include "core/identification.h"

#include <gtest/gtest.h>

#include "images.h"

namespace tarvelo {
namespace {

ImageBuilder WithHeader(std::size_t size, std::string_view model) {
  ImageBuilder builder(size);
  PutHeader(builder, model);
  return builder;
}

struct Identified {
  explicit Identified(ImageBuilder builder) : image(ImageOf(std::move(builder))), info(Identify(image)) {}
  Fullflash image;
  Identification info;
};

TEST(Identify, ReadsTheHeader) {
  for (const std::size_t size : {8 * mebi, 32 * mebi}) {
    const Identified phone(WithHeader(size, "S55"));
    EXPECT_EQ(phone.info.SigPos, size == 8 * mebi ? 0x7FF00 : 0x8FC00);
    EXPECT_EQ(phone.info.Model, "S55");
    EXPECT_EQ(phone.info.StatusText(), "S55 v24 FD-02");
  }
}

TEST(Identify, LooksForTheSignatureEveryTwoMebibytes) {
  const auto position = [](std::size_t size, std::size_t signature) {
    ImageBuilder builder(size);
    builder.Text(signature, "SIEMENS");
    return Identified(std::move(builder)).info.SigPos;
  };
  EXPECT_EQ(position(8 * mebi, 0x67FF80), 0x67FF00);
  EXPECT_EQ(position(8 * mebi, 0x17FF80), std::nullopt);
  EXPECT_EQ(position(32 * mebi, 0x128FC80), 0x28FC00);  // above 16 MiB only the low 24 bits count
}

TEST(Identify, RequiresTheWholeSignature) {
  for (const char* text : {"SIEMEN", "SIEMENS ", "siemens", "xSIEMENS", "SIEMENS\x01"}) {
    ImageBuilder builder(mebi);
    builder.Text(0x7FF80, text);
    const bool isWhole = text == std::string_view("SIEMENS\x01");  // any stop byte is accepted
    EXPECT_EQ(Identified(std::move(builder)).info.SigPos.has_value(), isWhole) << text;
  }
}

TEST(Identify, CorrectsTheBaseOfSomeModels) {
  constexpr std::tuple<const char*, std::size_t, std::int32_t> cases[] = {
      {"S45", 6 * mebi, 0x800000},  {"ME45", 6 * mebi, 0x800000}, {"S45i", 8 * mebi, 0x800000},
      {"S45", 4 * mebi, 0xC00000},  {"C45", 6 * mebi, 0xA00000},  {"A52", 4 * mebi, 0x800000},
      {"A52", 32 * mebi, 0x800000}, {"s45", 6 * mebi, 0xA00000},
  };
  for (const auto& [model, size, base] : cases)
    EXPECT_EQ(Identified(WithHeader(size, model)).image.CorrBase(), base) << model << ' ' << size;
}

TEST(Identify, KnowsTheFamilies) {
  constexpr std::pair<const char*, int> families[] = {
      {"C35", 0},  {"M35", 0},  {"S35", 0},  {"A35", 1}, {"A36", 1},  {"A40", 1},  {"C45", 2},  {"2118", 2},
      {"MT50", 2}, {"M50", 2},  {"3118", 2}, {"S45", 3}, {"S45i", 3}, {"ME45", 3}, {"SL42", 4}, {"SL45", 4},
      {"6688", 4}, {"C30", 5},  {"S40", 6},  {"A50", 7}, {"A55", 7},  {"1168", 7}, {"C55", 7},  {"2128", 7},
      {"S55", 7},  {"SL55", 7}, {"A52", 7},  {"c35", 7}, {"C35 ", 7}, {"C3", 7},   {"S45I", 7}, {"", 7}};
  for (const auto& [model, family] : families) EXPECT_EQ(FamilyOf(model), family) << model;
}

TEST(EmptyBlocks, AreListedAsRuns) {
  const auto list = [](std::size_t size, std::initializer_list<std::size_t> used) {
    ImageBuilder builder(size);
    for (const std::size_t offset : used) builder.Byte(offset, 0);
    return Identified(std::move(builder)).info.EmptyBlocks;
  };
  EXPECT_EQ(list(mebi, {0, 0x10000, 0x20000, 0x30000, 0x40000}), ", 05 - 0F");
  // One used byte at either edge of a block is enough.
  EXPECT_EQ(list(0x50000, {0x0FFFF, 0x20000, 0x4FFFF}), ", 01, 03");
  EXPECT_EQ(list(0x1FFFF, {0}), "");               // never empty: it is cut off
  EXPECT_EQ(list(0x1010000, {0}), ", 001 - 100");  // three digits in a large image
}

// A T9 area at the start of the second block.
ImageBuilder WithT9(std::size_t imageSize, std::uint32_t exact, std::size_t used) {
  ImageBuilder builder(imageSize);
  builder.Fill(0x10000, used, 0x11);
  builder.Text(0x10000, "T9");
  builder.DWord(0x10004, exact);
  builder.Byte(0x10008, 4);
  return builder;
}

TEST(T9, IsMeasuredToItsLastUsedByte) {
  const struct {
    std::uint32_t exact;
    std::size_t used;
    std::int32_t full;
    std::int64_t empty;
  } cases[] = {
      {0x12345, 0x12345, 0x20000, 0xDCBB},
      {0x12345, 0x20000, 0x20000, 0},  // used up to the end
      {0x12345, 0x1FFFF, 0x20000, 1},
      {0x12345, 0x100, 0x20000, 0xDCBB},  // the free area begins after the exact size
      {0x212345, 0x100, 0x20000, 0},      // a size beyond the full size
      {0, 0x100, 0x10000, 0xFF00},
      {0xFFFF, 0x100, 0x10000, 1},
      {0x10000, 0x100, 0x20000, 0x10000},
      {0x100000, 0x100, 0x110000, 0x10000},
      {0x1FFFFF, 0x100, 0x200000, 1},
      {0x200000, 0x100, 0x10000, 0},
      {0x7FE0FFFF, 0x100, 0x10000, 0},
  };
  for (const auto& [exact, used, full, empty] : cases) {
    const Identified phone(WithT9(4 * mebi, exact, used));
    ASSERT_TRUE(phone.info.t9) << exact;
    EXPECT_EQ(phone.info.t9->T9Base, 0x10000);
    EXPECT_EQ(phone.info.t9->T9Size, static_cast<std::int32_t>(exact));
    EXPECT_EQ(phone.info.t9->T9Full, full) << exact;
    EXPECT_EQ(phone.info.t9->Empty(), empty) << exact << ' ' << used;
    EXPECT_EQ(phone.info.StatusText(), " T9lg4");
  }
}

TEST(T9, IsTheFirstAreaThatCanBeReadOrNone) {
  EXPECT_FALSE(Identified(WithT9(0x2FFFF, 0x12345, 0x100)).info.t9);  // cut off by the end
  EXPECT_TRUE(Identified(WithT9(0x30000, 0x12345, 0x100)).info.t9);
  EXPECT_FALSE(Identified(WithT9(mebi, 0x80000000, 0x100)).info.t9);    // negative as a signed double word
  EXPECT_FALSE(Identified(WithT9(17 * mebi, 0x12345, 0x100)).info.t9);  // a large image
  ImageBuilder image = WithT9(mebi, 0x12345, 0x100);
  image.Text(0, "T9");  // its size is negative
  EXPECT_FALSE(Identified(image).info.t9);
  image.DWord(4, 0x100);
  EXPECT_EQ(Identified(image).info.t9->T9Base, 0);
  ImageBuilder shifted(mebi);
  shifted.Text(0x10001, "T9");
  EXPECT_FALSE(Identified(shifted).info.t9);
}

TEST(BuildDate, IsFoundNextToTheSignature) {
  const auto date = [](std::initializer_list<std::pair<std::size_t, const char*>> texts) {
    ImageBuilder builder = WithHeader(mebi, "C55");
    builder.Fill(0x7FF88, 0x78, 0);
    for (const auto& [offset, text] : texts) builder.Text(0x7FF00 + offset, text);
    return Identified(std::move(builder)).info.buildDate;
  };
  EXPECT_EQ(date({{0x90, "14.11.2002"}, {0xA0, "10:22:31"}}), "14.11.2002 / 10:22:31");
  EXPECT_EQ(date({{0xA0, "Nov 14 2002"}}), "Nov 14 2002");
  EXPECT_EQ(date({{0xA0, "14-Nov-02"}}), "14-Nov-02");
  EXPECT_EQ(date({{0xA0, "1.2.03"}}), "1.2.03");
  EXPECT_EQ(date({{0x10, "2002-11-14"}}), "2002-11-14");
  EXPECT_EQ(date({{0xF8, "14.11.2002"}}), "");  // would be cut off after 14.11.20
  EXPECT_EQ(date({{0xA0, "10:22"}}), "");       // a time alone is not a date
  EXPECT_EQ(date({{0x60, "01.02.2003"}}), "");  // the second header string is not a date
  for (const char* text : {"32.01.2002", "14.13.2002", "14.11.1066", "14.011.2002", "1.2.3", "14.11.2002x"})
    EXPECT_EQ(date({{0x90, text}}), "") << text;
}

TEST(Identify, NeedsTheSignatureWithItsStopByte) {
  ImageBuilder whole = WithT9(mebi, 0x12345, 0x100);
  whole.Text(0x7FF80, "SIEMENS");
  const Data bytes = std::move(whole).Take();
  for (const std::size_t size : {2, 0x10001, 0x7FF81, 0x7FF87, 0x7FF88}) {
    Fullflash image(Bytes(bytes).first(size));
    EXPECT_EQ(Identify(image).SigPos.has_value(), size == 0x7FF88) << size;
  }
}

}  // namespace
}  // namespace tarvelo
