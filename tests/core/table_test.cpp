#include "core/table.h"

#include <gtest/gtest.h>

namespace tarvelo {
namespace {

TEST(Table, IsSavedWithTabsBetweenCells) {
  const Table table{{"N", "Text"}, {{{"1", "a"}}, {{"2", ""}}}};
  EXPECT_EQ(TabSeparated(table, "\r\n"), "N\tText\r\n1\ta\r\n2\t\r\n");
  EXPECT_EQ(TabSeparated({{"N"}, {{{"1"}}}}, "\n"), "N\n1\n");
  EXPECT_EQ(TabSeparated({{"A", "B"}, {}}, "\n"), "A\tB\n");
}

TEST(Table, KeepsItsColumnsWhateverACellHolds) {
  EXPECT_EQ(TabSeparated({{"A"}, {{{"x\ty\r\nz"}}}}, "\n"), "A\nx y  z\n");
}

}  // namespace
}  // namespace tarvelo
