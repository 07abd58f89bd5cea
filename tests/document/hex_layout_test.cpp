#include "document/hex_columns.h"
#include "document/row_cursor.h"

#include <gtest/gtest.h>

#include "images.h"

namespace tarvelo {
namespace {

TEST(HexColumns, FindTheByteAtEachColumn) {
  const HexColumns columns(Erased(2));
  for (int i = 0; i < columns.Bytes(); ++i) {
    EXPECT_EQ(columns.ByteAt(columns.Hex(i)), i);
    EXPECT_EQ(columns.ByteAt(columns.Hex(i) + 1), i);
    EXPECT_EQ(columns.ByteAt(columns.Text(i)), i);
    EXPECT_FALSE(columns.IsInText(columns.Hex(i) + 1));
  }
  EXPECT_EQ(columns.ByteAt(-100), 0);
  EXPECT_EQ(columns.ByteAt(1000), 15);
  const HexColumns wide(Erased(2), 32);  // a gap after every 8
  EXPECT_EQ(wide.Hex(24) - wide.Hex(0), 24 * 3 + 3);
  EXPECT_EQ(wide.ByteAt(wide.Hex(24) - 1), 24);
  EXPECT_EQ(HexColumns::FittingBytes(Erased(2), wide.End()), 32);
  EXPECT_EQ(HexColumns::FittingBytes(Erased(2), wide.End() - 1), 28);
  EXPECT_EQ(HexColumns::FittingBytes(Erased(2), 0), 4);
  EXPECT_EQ(HexColumns(Erased(0x1000001)).Address(), columns.Address() + 1);  // offsets of seven digits
}

TEST(RowCursor, StaysInTheImage) {
  using enum CursorStep;
  // 3 rows, the last one of 5 bytes; a page is 2 rows.
  const std::tuple<Offset, CursorStep, Offset> cases[] = {
      {0, Left, 0},       {36, Right, 36},    {3, Up, 3},       {20, Up, 4},      {18, Down, 34},
      {31, Down, 36},     {33, Down, 33},     {33, PageUp, 1},  {5, PageUp, 5},   {1, PageDown, 33},
      {15, PageDown, 36}, {20, RowStart, 16}, {20, RowEnd, 31}, {33, RowEnd, 36}, {20, ImageStart, 0},
      {20, ImageEnd, 36}, {2, Down, 18},
  };
  for (const auto& [from, step, to] : cases) {
    RowCursor cursor(37, 16);
    cursor.MoveTo(from, false);
    cursor.Move(step, 2, true);
    EXPECT_EQ(cursor.At(), to) << from;
    EXPECT_EQ(cursor.Selection(), (Region{std::min(from, to), std::abs(from - to) + 1})) << from;
  }
  RowCursor full(32, 16);
  for (const auto& [selected, taken] : {std::pair(Region{5, 5}, Region{5, 5}), {{30, 9}, {30, 2}}}) {
    full.Select(selected);
    EXPECT_EQ(full.Selection(), taken);
  }
  full.Move(Down, 2, false);
  EXPECT_EQ(full.At(), 30);
  RowCursor none;
  none.Select({5, 5});
  none.Move(ImageEnd, 2, true);
  EXPECT_EQ(none.Selection(), Region());
}

}  // namespace
}  // namespace tarvelo
