#include "core/fullflash.h"

#include <gtest/gtest.h>

#include "demo/image_builder.h"

namespace tarvelo {
namespace {

using Data = std::vector<std::uint8_t>;

Fullflash Image(std::size_t size) { return Fullflash(Bytes(Data(size, 0xFF))); }

// A large image that begins with these bytes.
Fullflash LargeImage(const Data& start) {
  ImageBuilder builder(0x1000001);
  builder.Data(0, start);
  return Fullflash(Bytes(std::move(builder).Take()));
}

TEST(Fullflash, TakesItsBaseFromItsSize) {
  struct {
    std::size_t size;
    std::int32_t base;
    bool pageMode;
  } const cases[] = {
      {2, 0xFFFFFE, true},
      {0x600000, 0xA00000, true},
      {0x800000, 0x800000, true},
      {0x1000000, 0, true},
      {0x1000001, static_cast<std::int32_t>(0xA0000000), false},
  };
  for (const auto& [size, base, pageMode] : cases) {
    const Fullflash image = Image(size);
    EXPECT_EQ(image.LoadBase(), base) << size;
    EXPECT_EQ(image.CorrBase(), base) << size;
    EXPECT_EQ(image.PageMode(), pageMode) << size;
    EXPECT_EQ(image.PtrUnit(), pageMode ? 1 : 2);
    EXPECT_EQ(image.PtrUnit2(), pageMode ? 2 : 4);
    EXPECT_EQ(image.BlkDigits(), pageMode ? 2 : 3);
    EXPECT_EQ(image.OffDigits(), pageMode ? 6 : 7);
  }
}

TEST(Fullflash, IsNoDocumentWithoutASecondByte) {
  EXPECT_FALSE(Fullflash().IsOpen());
  EXPECT_EQ(Fullflash().ffEnd(), 0);
  EXPECT_FALSE(Image(1).IsOpen());
  EXPECT_TRUE(Image(2).IsOpen());
}

TEST(Fullflash, ReadsLittleEndian) {
  const Fullflash image{Bytes(Data{0x34, 0x12, 0x01, 0x7F, 0x80})};
  EXPECT_EQ(image.Word(0), 0x1234);
  EXPECT_EQ(image.DWord(0), 0x7F011234);
  EXPECT_EQ(image.ByteHex(3), "7F");
  EXPECT_EQ(image.ByteDec(3), "27");
}

TEST(Fullflash, FaultsOutsideTheImage) {
  const Fullflash image{Bytes(Data{0, 0, 0, 0x80, 0})};
  EXPECT_THROW((void)image.DWord(0), std::overflow_error);
  EXPECT_THROW((void)image.DWord(2), std::out_of_range);
  EXPECT_THROW((void)image.Word(4), std::out_of_range);
  EXPECT_THROW((void)image.Word(-1), std::out_of_range);
  EXPECT_THROW((void)image.GetAdr(2), std::out_of_range);
  EXPECT_EQ(image.Word(3), 0x80);
}

TEST(GetAdr, AddsAPagePointersOffsetWhole) {
  // offset word FFFF is not masked to 14 bits
  const Fullflash image{Bytes(Data{0x45, 0x23, 0x84, 0x02, 0xFF, 0xFF, 0xFF, 0xFF})};
  EXPECT_EQ(image.GetAdr(0), 0xA12345);
  EXPECT_EQ(image.GetAdr(4), 0xFFFF + 0xFFFF * 0x4000);
}

TEST(GetAdr, KeepsTheLow25BitsOfALinearPointer) {
  Fullflash image = LargeImage({0x34, 0x12, 0x01, 0xA1});
  EXPECT_EQ(image.GetAdr(0), static_cast<std::int32_t>(0xA0000000 + 0x1011234));
  image.SetCorrBase(0x800000);
  EXPECT_EQ(image.GetAdr(0), 0x800000 + 0x1011234);
}

TEST(ImageBuilder, WritesPointersThatGetAdrReads) {
  for (const std::size_t size : {0x600000, 0x1800000}) {
    ImageBuilder builder(size);
    builder.Pointer(0x100, 0x12345);
    const Fullflash image{Bytes(std::move(builder).Take())};
    EXPECT_EQ(image.GetAdr(0x100) - image.CorrBase(), 0x12345) << size;
  }
}

}  // namespace
}  // namespace tarvelo
