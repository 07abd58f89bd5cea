#include "core/identification.h"

#include <gtest/gtest.h>

#include "demo/image_builder.h"

namespace tarvelo {
namespace {

constexpr std::size_t mebi = 0x100000;

// An erased image with a firmware header at the first place where one is looked for.
ImageBuilder WithHeader(std::size_t size, std::string_view model) {
  ImageBuilder builder(size);
  const std::size_t signature = builder.PageMode() ? 0x7FF80 : 0x8FC80;
  const std::size_t header = signature & ~std::size_t{0xFF};
  builder.Byte(header + 0x50, 0x24);
  builder.Text(header + 0x60, "FD-02");
  builder.Text(header + 0x70, model);
  builder.Text(signature, "SIEMENS");
  return builder;
}

struct Identified {
  explicit Identified(ImageBuilder builder)
      : image(Bytes(std::move(builder).Take())), info(Identify(image)) {}
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
  ImageBuilder page(8 * mebi);
  page.Text(0x67FF80, "SIEMENS");
  EXPECT_EQ(Identified(page).info.SigPos, 0x67FF00);

  ImageBuilder between(8 * mebi);
  between.Text(0x17FF80, "SIEMENS");
  EXPECT_EQ(Identified(between).info.SigPos, std::nullopt);

  // Above 16 MiB the position keeps its low 24 bits only.
  ImageBuilder high(32 * mebi);
  high.Text(0x128FC80, "SIEMENS");
  EXPECT_EQ(Identified(high).info.SigPos, 0x28FC00);
}

TEST(Identify, WantsTheSignatureWhole) {
  for (const char* text : {"SIEMEN", "SIEMENS ", "siemens", "xSIEMENS"}) {
    ImageBuilder builder(mebi);
    builder.Text(0x7FF80, text);
    EXPECT_EQ(Identified(builder).info.SigPos, std::nullopt) << text;
  }
  ImageBuilder cut(0x7FF87);  // ends before the stop byte
  cut.Data(0x7FF80, std::vector<std::uint8_t>{'S', 'I', 'E', 'M', 'E', 'N', 'S'});
  EXPECT_EQ(Identified(cut).info.SigPos, std::nullopt);
  ImageBuilder stopped(0x7FF88);  // any stop byte will do
  stopped.Data(0x7FF80, std::vector<std::uint8_t>{'S', 'I', 'E', 'M', 'E', 'N', 'S', 0x01});
  EXPECT_EQ(Identified(stopped).info.SigPos, 0x7FF00);
}

TEST(Identify, IsQuickWhereNoStringEnds) {
  ImageBuilder endless(0x4000000);
  endless.Fill(0, 0x4000000, 'A');
  endless.Text(0x108FC80, "SIEMENS");  // its header lies at 0x08FC00, amid the letters
  const Identified phone(std::move(endless));
  EXPECT_EQ(phone.info.SigPos, 0x08FC00);
  EXPECT_EQ(phone.info.Model, "");
  EXPECT_EQ(phone.info.headerText, "");
}

TEST(Identify, WithoutASignatureKnowsNothingButTheBlocks) {
  const Identified phone(ImageBuilder(8 * mebi));
  EXPECT_EQ(phone.info.Model, "");
  EXPECT_EQ(phone.info.Family, 7);
  EXPECT_EQ(phone.info.version, "");
  EXPECT_EQ(phone.info.StatusText(), "");
  EXPECT_EQ(phone.info.EmptyBlocks, ", 00 - 7F");
  EXPECT_EQ(phone.image.CorrBase(), 0x800000);
}

TEST(Identify, CorrectsTheBaseOfSomeModels) {
  struct {
    const char* model;
    std::size_t size;
    std::int32_t base;
  } const cases[] = {
      {"S45", 6 * mebi, 0x800000},  {"ME45", 6 * mebi, 0x800000}, {"S45i", 8 * mebi, 0x800000},
      {"S45", 4 * mebi, 0xC00000},  {"C45", 6 * mebi, 0xA00000},  {"A52", 4 * mebi, 0x800000},
      {"A52", 32 * mebi, 0x800000}, {"s45", 6 * mebi, 0xA00000},
  };
  for (const auto& [model, size, base] : cases)
    EXPECT_EQ(Identified(WithHeader(size, model)).image.CorrBase(), base) << model << ' ' << size;
}

TEST(Identify, KnowsTheFamilies) {
  for (const auto& [model, family] : std::initializer_list<std::pair<const char*, int>>{{"C35", 0},
                                                                                        {"A40", 1},
                                                                                        {"C45", 2},
                                                                                        {"2118", 2},
                                                                                        {"S45i", 3},
                                                                                        {"6688", 4},
                                                                                        {"C30", 5},
                                                                                        {"S40", 6},
                                                                                        {"C55", 7},
                                                                                        {"c35", 7},
                                                                                        {"C35 ", 7},
                                                                                        {"", 7}})
    EXPECT_EQ(FamilyOf(model), family) << model;
}

TEST(EmptyBlocks, AreListedAsRuns) {
  const auto list = [](std::size_t size, std::initializer_list<std::size_t> used) {
    ImageBuilder builder(size);
    for (const std::size_t offset : used) builder.Byte(offset, 0);
    return Identified(std::move(builder)).info.EmptyBlocks;
  };
  EXPECT_EQ(list(mebi, {0, 0x10000, 0x20000, 0x30000, 0x40000}), ", 05 - 0F");
  // one byte at either edge of a block is enough
  EXPECT_EQ(list(0x50000, {0x0FFFF, 0x20000, 0x4FFFF}), ", 01, 03");
  EXPECT_EQ(list(0x10000, {}), ", 00");
  EXPECT_EQ(list(0x1FFFF, {0}), "");  // a block that is cut off is never empty
  EXPECT_EQ(list(0x1FFFF, {}), ", 00");
  EXPECT_EQ(list(0x1010000, {0}), ", 001 - 100");  // three digits in a large image
}

// A T9 area at the start of the second block.
ImageBuilder WithT9(std::size_t imageSize, std::uint32_t exact, std::size_t used) {
  ImageBuilder builder(imageSize);
  builder.Fill(0x10000, used, 0x11);
  builder.Byte(0x10000, 'T');
  builder.Byte(0x10001, '9');
  builder.DWord(0x10004, exact);
  builder.Byte(0x10008, 4);
  return builder;
}

TEST(T9, IsMeasuredToItsLastUsedByte) {
  const Identified phone(WithT9(mebi, 0x12345, 0x12345));
  ASSERT_TRUE(phone.info.t9);
  EXPECT_EQ(phone.info.t9->T9Base, 0x10000);
  EXPECT_EQ(phone.info.t9->T9Size, 0x12345);
  EXPECT_EQ(phone.info.t9->T9Full, 0x20000);
  EXPECT_EQ(phone.info.t9->T9Free, 0x22345);
  EXPECT_EQ(phone.info.t9->Empty(), 0x10000 + 0x20000 - 0x22345);
  EXPECT_EQ(phone.info.StatusText(), " T9lg4");
}

TEST(T9, FreeAreaEndsAtUsedBytesAndAtTheExactSize) {
  EXPECT_EQ(Identified(WithT9(mebi, 0x12345, 0x20000)).info.t9->Empty(), 0);  // used to the end
  EXPECT_EQ(Identified(WithT9(mebi, 0x12345, 0x1FFFF)).info.t9->Empty(), 1);
  EXPECT_EQ(Identified(WithT9(mebi, 0x12345, 0x100)).info.t9->T9Free, 0x22345);  // not below the size
  // A size beyond the full size: 0x212345 AND 0x1F0000 is 0x10000.
  EXPECT_EQ(Identified(WithT9(mebi, 0x212345, 0x100)).info.t9->Empty(), 0);
}

TEST(T9, IsAbsentWhereItCannotBeRead) {
  EXPECT_FALSE(Identified(WithT9(0x2FFFF, 0x12345, 0x100)).info.t9);  // full size is cut off
  EXPECT_TRUE(Identified(WithT9(0x30000, 0x12345, 0x100)).info.t9);
  EXPECT_FALSE(Identified(WithT9(mebi, 0x80000000, 0x100)).info.t9);    // no signed double word
  EXPECT_FALSE(Identified(WithT9(17 * mebi, 0x12345, 0x100)).info.t9);  // a large image
  ImageBuilder last(0x10001);
  last.Byte(0x10000, 'T');
  EXPECT_FALSE(Identified(last).info.t9);
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
  EXPECT_EQ(date({{0x10, "2002-11-14"}}), "2002-11-14");
  EXPECT_EQ(date({{0xF8, "14.11.2002"}}), "");  // would be cut to 14.11.20
  EXPECT_EQ(date({{0xA0, "10:22"}}), "");       // a time alone says nothing
  EXPECT_EQ(date({{0x60, "01.02.2003"}}), "");  // the second header string is no date
  for (const char* text : {"32.01.2002", "14.13.2002", "14.11.1066", "14.11", "1.2.3", "14.11.2002x"})
    EXPECT_EQ(date({{0x90, text}}), "") << text;
}

TEST(Identify, SurvivesAnyCutOfAFullImage) {
  ImageBuilder whole = WithT9(mebi, 0x12345, 0x100);
  whole.Text(0x7FF80, "SIEMENS");
  const std::vector<std::uint8_t> bytes = std::move(whole).Take();
  for (std::size_t size = 2; size < bytes.size(); size += size < 0x20 ? 1 : 0x3FF) {
    Fullflash image(Bytes(bytes).first(size));
    const Identification info = Identify(image);
    EXPECT_EQ(info.SigPos.has_value(), size >= 0x7FF88) << size;
  }
}

}  // namespace
}  // namespace tarvelo
