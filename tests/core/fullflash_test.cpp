#include "core/fullflash.h"

#include <gtest/gtest.h>

#include "images.h"

namespace tarvelo {
namespace {

TEST(Fullflash, TakesItsBaseFromItsSize) {
  constexpr std::pair<std::size_t, std::uint32_t> bases[] = {
      {2, 0xFFFFFE}, {0x600000, 0xA00000}, {0x1000000, 0}, {0x1000001, 0xA0000000}};
  for (const auto& [size, base] : bases) {
    const Fullflash image = Erased(size);
    const int unit = size > 0x1000000 ? 2 : 1;  // of pointers
    EXPECT_EQ(image.LoadBase(), static_cast<std::int32_t>(base)) << size;
    EXPECT_EQ(image.CorrBase(), image.LoadBase()) << size;
    EXPECT_EQ(image.PtrUnit2(), 2 * unit) << size;
    EXPECT_EQ(image.BlkDigits(), unit + 1) << size;
    EXPECT_EQ(image.OffDigits(), unit + 5) << size;
  }
}

TEST(Fullflash, FaultsOutsideTheImage) {
  const Fullflash image{Bytes(Data{0, 0, 0, 0x80, 0})};
  EXPECT_THROW((void)image.DWord(0), std::overflow_error);
  for (const Offset outside : {4, -1}) EXPECT_THROW((void)image.Word(outside), std::out_of_range) << outside;
  EXPECT_THROW((void)image.DWord(2), std::out_of_range);
  EXPECT_THROW((void)image.GetAdr(2), std::out_of_range);
  EXPECT_EQ(image.Word(3), 0x80);
}

TEST(GetAdr, AddsAPagePointersOffsetWhole) {
  // The offset word FFFF is not masked to 14 bits.
  const Fullflash image{Bytes(Data{0x45, 0x23, 0x84, 0x02, 0xFF, 0xFF, 0xFF, 0xFF})};
  EXPECT_EQ(image.GetAdr(0), 0xA12345);
  EXPECT_EQ(image.GetAdr(4), 0xFFFF + 0xFFFF * 0x4000);
}

}  // namespace
}  // namespace tarvelo
