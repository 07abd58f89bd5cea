#include "document/difference_table.h"

#include <gtest/gtest.h>

#include "document/map_kinds.h"
#include "images.h"

namespace tarvelo {
namespace {

// 64 KiB, offset 0 at 0xFF0000; the length column is as wide as "65536".
TEST(DifferenceTable, ShowsTheBytesOfBothAndTheirLabel) {
  const Fullflash image{Bytes(Data(0x10000, 0))};
  Data other(0x10000, 0);
  other[0x20] = 1;
  std::fill_n(other.begin() + 0x8000, 12, std::uint8_t{0xAB});
  const std::vector<Difference> differences{{0x20, 1}, {0x8000, 12}};
  const DumpMap map{{{0, 0x8000, &map::unknown}, {0x8000, 0x8000, &map::erased, Sureness::Likely}}};

  EXPECT_EQ(TabSeparated(DifferenceRows(image, other, differences, &map).All(), "\n"),
            "Offset\tAddress\tLength\tOld\tNew\tWhat lies there\n"
            "000020\t3FC:0020\t    1\t00\t01\tunknown\n"
            "008000\t3FE:0000\t   12\t0000000000000000...\tABABABABABABABAB...\terased\n");
  EXPECT_EQ(DifferenceRows(image, other, differences, nullptr).row(0).cells[5], "");
  EXPECT_EQ(DifferenceRows(image, other, differences, nullptr, Messages(), -1).row(0).cells[4], "00");
  EXPECT_THROW((void)DifferenceRows(image, Data(0x20, 0), differences, nullptr).row(0), std::out_of_range);
}

}  // namespace
}  // namespace tarvelo
