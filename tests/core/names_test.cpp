#include "core/names.h"

#include <gtest/gtest.h>

#include "temporary_folder.h"

namespace tarvelo {
namespace {

TEST(Names, LinesAreNamesOrBadOrForTheReader) {
  const Names names(
      "\xEF\xBB\xBF# my phone\r\n"
      "\r\n"
      "80006A\tMain\tstarts the phone\r\n"  // 3
      " 0x00f000 \tLcd\r\n"
      "800000\t\tonly a comment\twith a tab\r\n"
      "80006a\tSecond\r\n"     // 6: named already
      "Main\t80006A\r\n"       // 7: no address
      "80006A Main\r\n"        // 8: no tab
      "123\t\r\n"              // 9: neither name nor comment
      "123456789\tTooFar\r\n"  // 10: more than 32 bits
      "ffffffff\tLast");
  EXPECT_EQ(names.BadCount(), 5u);
  EXPECT_EQ(names.BadLines(), (std::vector<std::size_t>{6, 7, 8, 9, 10}));
  ASSERT_EQ(names.Count(), 4u);
  EXPECT_EQ(names[0].address, 0xF000u);
  EXPECT_EQ(names[1].comment, "only a comment\twith a tab");
  EXPECT_EQ(names.At(0x80006A)->name, "Main");
  EXPECT_EQ(names.At(0x80006A)->comment, "starts the phone");
  EXPECT_EQ(names.NameAt(0x800000), "");
  EXPECT_FALSE(names.At(0x80006B));
  EXPECT_EQ(names.NameAt(0xFFFFFFFF), "Last");
  EXPECT_EQ(names.From(0x800001), 2u);
  EXPECT_EQ(names.Find("mAIN"), 0x80006Au);
  EXPECT_FALSE(names.Find("only a comment"));
  EXPECT_FALSE(names.Find(""));
}

// Every line that the user did not ask to change stays as it is.
TEST(Names, SetReplacesAddsAndRemovesOneLine) {
  Names names("# head\nnonsense\n100\tA\tfirst\n200\tB");
  names.Set(0x100, " New ", "");
  EXPECT_EQ(names.Text(), "# head\nnonsense\n000100\tNew\n200\tB");
  names.Set(0x300, "C\tD", "line\nbreak");
  EXPECT_EQ(names.Text(), "# head\nnonsense\n000100\tNew\n200\tB\n000300\tC D\tline break\n");
  names.Set(0x200, "", " ");
  names.Set(0x400, "", "");
  EXPECT_EQ(names.Text(), "# head\nnonsense\n000100\tNew\n000300\tC D\tline break\n");
  names.Set(0x100, "", "why");
  EXPECT_EQ(names.At(0x100)->comment, "why");
  names.Set(0x300, "", "");
  names.Set(0x100, "", "");
  EXPECT_EQ(names.Text(), "# head\nnonsense\n");
  EXPECT_EQ(names.BadCount(), 1u);

  Names windows("100\tA\r\n200\tB\r\n");
  windows.Set(0x100, "", "");
  windows.Set(0x300, "C", "");
  EXPECT_EQ(windows.Text(), "200\tB\r\n000300\tC\r\n");
}

TEST(Names, SetTakesSeveralAtOnce) {
  Names names("# mine\n30\tc\n10\ta\n20\tb\nbad");
  const Name changes[] = {{0x40, "d", ""}, {0x10, "A", "first"}, {0x20, "", ""}, {0x05, "", "five"}};
  names.Set(changes);
  EXPECT_EQ(names.Text(), "# mine\n30\tc\n000010\tA\tfirst\nbad\n000040\td\n000005\t\tfive\n");
  EXPECT_EQ(names.Count(), 4u);
}

TEST(Names, RemarksStandInLinesForTheReader) {
  Names names(
      "\xEF\xBB\xBF"
      "10\tTen # Key: no\n# Keys: 1\n# Key:  old \n# Key: second");
  EXPECT_EQ(names.Remark("Key"), "old");
  names.SetRemark("Key", "new");
  EXPECT_EQ(names.Text(),
            "\xEF\xBB\xBF"
            "10\tTen # Key: no\n# Keys: 1\n# Key: new\n# Key: second");
  names.SetRemark("Key", "");
  names.SetRemark("Key", "");
  EXPECT_EQ(names.Remark("Key"), "");
  names.SetRemark("Key", "first");
  EXPECT_EQ(names.Text(), "\xEF\xBB\xBF# Key: first\n10\tTen # Key: no\n# Keys: 1\n");
  EXPECT_EQ(names.NameAt(0x10), "Ten # Key: no");
}

TEST(Names, LargeAndHostileFilesAreRead) {
  std::string many;
  for (int i = 0; i < 400000; ++i) many += std::to_string(10000000 + i) + "\tname of a place\n";
  EXPECT_EQ(Names(many).Count(), 400000u);  // 10 MB
  const Names bad(std::string(1000000, '\n') + std::string(1000000, 'x') + "\n" + std::string(500, '\t') +
                  "\nx\nx\n" + std::string("\0\t\0\n", 4));
  EXPECT_EQ(bad.Count(), 0u);
  EXPECT_EQ(bad.BadCount(), 4u);  // a line of tabs is empty
  EXPECT_EQ(bad.BadLines().front(), 1000001u);
}

TEST(Names, FileStandsBesideTheDump) {
  const TemporaryFolder folder;
  EXPECT_EQ(ReadNames(folder / "dump.bin").Count(), 0u);
  folder.Write("dump.names.tsv", std::string("10\tTen\n"));
  EXPECT_EQ(ReadNames(folder / "dump.bin").NameAt(0x10), "Ten");
  std::filesystem::create_directory(folder / "other.names.tsv");
  EXPECT_EQ(ReadNames(folder / "other.bin").Count(), 0u);
}

}  // namespace
}  // namespace tarvelo
