#include "document/difference_table.h"

#include <gtest/gtest.h>

#include "document/map_kinds.h"
#include "images.h"

namespace tarvelo {
namespace {

using Cells = std::vector<std::string>;

// 64 KiB, offset 0 at 0xFF0000; the length column is as wide as "65536".
TEST(DifferenceTable, ShowsTheBytesOfBothAndTheirLabel) {
  const Fullflash image{Bytes(Data(0x10000, 0))};
  Data other(0x10000, 0);
  other[0x20] = 1;
  std::fill_n(other.begin() + 0x8000, 12, std::uint8_t{0xAB});
  const std::vector<Difference> differences{{0x20, 1}, {0x8000, 12}};
  const DumpMap map{{{0, 0x8000, &map::unknown}, {0x8000, 0x8000, &map::erased, Sureness::Likely}}};

  const Table table = DifferenceRows(image, other, differences, &map).All();
  EXPECT_EQ(table.captions, (Cells{"Offset", "Address", "Length", "Old", "New", "What lies there"}));
  ASSERT_EQ(table.rows.size(), 2u);
  EXPECT_EQ(table.rows[0].cells, (Cells{"000020", "3FC:0020", "    1", "00", "01", "unknown"}));
  EXPECT_EQ(table.rows[1].cells,
            (Cells{"008000", "3FE:0000", "   12", "0000000000000000...", "ABABABABABABABAB...", "erased"}));
  EXPECT_EQ(DifferenceRows(image, other, differences, nullptr).row(0).cells[5], "");
  EXPECT_EQ(DifferenceRows(image, other, differences, nullptr, Messages(), -1).row(0).cells[4], "00");
  EXPECT_THROW((void)DifferenceRows(image, Data(0x20, 0), differences, nullptr).row(0), std::out_of_range);
}

}  // namespace
}  // namespace tarvelo
