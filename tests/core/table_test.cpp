#include "core/table.h"

#include <gtest/gtest.h>

namespace tarvelo {
namespace {

TEST(Table, KeepsItsColumnsWhateverACellHolds) {
  EXPECT_EQ(TabSeparated({{"A"}, {{{"x\ty\r\nz"}}}}, "\n"), "A\nx y  z\n");
}

}  // namespace
}  // namespace tarvelo
