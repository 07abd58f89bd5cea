#include "eeprom/block_table.h"

#include <gtest/gtest.h>

#include "eeprom/blocks.h"
#include "eeprom/descriptions.h"

namespace tarvelo {
namespace {

BlockStore SomeBlocks() {
  return StoreOf({
      {67, 5, 0x1234, 22, true, 0xFC, 0x7FC000},
      {5076, 1, 0x76ABCD, 5375, false, 0xF0, 0x40},
      {1, 0, -0x40000, 12345, false, 0xFC, 0x1F6000C},
      {1, 255, 0x60BF0012, 65535, false, 0xFC, 0x7FFFFFF4},
  });
}

const Descriptions known{{1, "about 1"}, {5076, "about 5076"}};

TEST(BlockTable, HasARowForEachBlock) {
  const BlockStore store = SomeBlocks();
  const Table table = ShowEE(store, known).All();
  EXPECT_EQ(TabSeparated(table, "\n"),
            "Block\tDescription\tEIT\tV\tOffset\tSize\ti\t-\n"
            "  67\t\t7FC000\t 5\t001234\t  22\t*\t\n"
            "5076\tabout 5076\t000040\t 1\t76ABCD\t5375\t\t-\n"
            "   1\tabout 1\tF6000C\t 0\tFC0000\t2345\t\t\n"  // columns keep the rightmost digits
            "   1\tabout 1\tFFFFF4\t55\tBF0012\t5535\t\t\n");
  EXPECT_FALSE(table.rows[0].marked);
  EXPECT_TRUE(table.rows[1].marked);
}

TEST(BlockTable, ReportsTheCounts) {
  const Messages messages;
  EXPECT_EQ(BlockInformation(SomeBlocks(), messages),
            "Number of EEPROM-blocks: 3\nNumber of deleted blocks: 1\n");
  EXPECT_EQ(BlockStatus(SomeBlocks()), "3 / 1");

  // Deleted blocks alone count as blocks too.
  const BlockStore deleted = StoreOf({{1, 0, 0, 0, false, 0xF0, 0}});
  EXPECT_EQ(BlockInformation(deleted, messages), "Number of EEPROM-blocks: 0\nNumber of deleted blocks: 1\n");
  EXPECT_EQ(BlockStatus(deleted), "0 / 1");

  EXPECT_EQ(BlockInformation({}, messages), "");
  EXPECT_EQ(BlockStatus({}), "");
}

TEST(Descriptions, AreReadLineByLine) {
  const Descriptions expected{{1, "one"}, {999, "two words"}, {5001, ""}};
  for (const char* file : {"1\tone\n999\ttwo words\n5001\t\n",
                           "\xEF\xBB\xBF"
                           "1\tone\r\n999\ttwo\twords\r\n5001\t\x7F\x01",
                           "# comment\n#5002\tno\n\n1\tfirst\n 999 \t two words  \n5001\t \n1\tone\n",
                           // Lines without a valid block number.
                           "1\tone\n0\tno\n1000\tno\n6000\tno\n-1\tno\n+2\tno\n4.\tno\nfive\tno\n\tno\n6 no\n"
                           "99999999999999999999\tno\n999\ttwo words\n5001\t\n7"})
    EXPECT_EQ(ParseDescriptions(file), expected) << file;
}

TEST(Descriptions, SurviveHostileFiles) {
  const std::string file("1\ta\xFFz\xC3\n2\ta\0b\n3\0\tno", 18);
  EXPECT_EQ(ParseDescriptions(file), (Descriptions{{1, "a\uFFFDz\uFFFD"}, {2, "a b"}}));
  const std::string blanks(100000, ' ');
  EXPECT_EQ(ParseDescriptions("1\t" + blanks + std::string(100000, 'x') + "\n2\t" + blanks),
            (Descriptions{{1, std::string(200, 'x')}, {2, ""}}));
  // A character of two units is never split.
  const std::string almost(199, 'x');
  EXPECT_EQ(ParseDescriptions("1\t" + almost + "\U0001F4F1"), (Descriptions{{1, almost}}));
}

TEST(Descriptions, OfTheUserGoOverTheBuiltInOnes) {
  const Descriptions builtIn = GetDescriptions();
  EXPECT_EQ(Describe(builtIn, 5076), "Greeting text");
  EXPECT_EQ(Describe(builtIn, 5999), "");  // unknown

  const Descriptions own = GetDescriptions("5999\tmine\n5076\t\n");
  EXPECT_EQ(Describe(own, 5999), "mine");
  EXPECT_EQ(Describe(own, 5076), "");
  EXPECT_EQ(Describe(GetDescriptions("5999\tmine"), 5076), "Greeting text");
}

}  // namespace
}  // namespace tarvelo
