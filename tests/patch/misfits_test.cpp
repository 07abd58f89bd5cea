#include "patch/misfits.h"

#include <gtest/gtest.h>

#include "images.h"
#include "patch/misfit_table.h"

namespace tarvelo {
namespace {

// 64 KiB of zeros, offset 0 at 0xFF0000, and a patch: line 1 fits, line 6 is already applied.
class Misfits : public testing::Test {
 protected:
  Fullflash image{Bytes(Data(0x10000, 0))};
  ReadPatch patch = ReadPatchText(
      "10: 00 01\nrub\x1B"
      "bish\n20: 01 02\n10000: 00 01\n\n30: 01 00\nmore\n");
  PatchCheck check = CheckPatch(patch.changes, image);
};

TEST_F(Misfits, StandInTheOrderOfTheirLines) {
  EXPECT_EQ(CountMisfits(patch, check), 4u);
  for (const std::size_t most : {0u, 1u, 2u, 3u, 4u, 9u}) {
    const std::vector<std::size_t> lines{2, 3, 4, 7};
    const std::vector<Misfit> misfits = MisfitsOf(patch, check, most);
    ASSERT_EQ(misfits.size(), std::min<std::size_t>(most, 4)) << most;
    for (std::size_t i = 0; i < misfits.size(); ++i) {
      EXPECT_EQ(misfits[i].line, lines[i]);
      EXPECT_EQ(misfits[i].isInvalid, i == 0 || i == 3);
    }
  }
}

TEST_F(Misfits, HaveRowsForTheUser) {
  const MisfitTable misfits(patch, check, image, Messages());
  EXPECT_EQ(misfits.Summary(),
            "Lines of the patch that don't fit the fullflash: 4\nLines that fit: 1\n"
            "Lines that were applied already: 1");
  EXPECT_EQ(TabSeparated(misfits.Rows().All(), "\n"),
            "Line\tOffset\tPhone address\tExpected\tFound\n"
            "2\t\t\t\tThis is not a line of a patch. \"rub bish\"\n"
            "3\t000020\t3FC:0020\t01\t00\n"
            "4\t010000\t\t00\tThe data lies outside the image.\n"
            "7\t\t\t\tThis is not a line of a patch. \"more\"\n");
  EXPECT_EQ(misfits.Rows().row(0).cells[4], "This is not a line of a patch. \"rub bish\"");
}

TEST(MisfitTable, GivesTheHeaderOfThePatch) {
  const std::pair<std::string, std::string> rows[] = {
      {"10: 00 01\n;behind\n", ""},
      {";C55 24\r\n\r\n ;Greeting\tby me\r\n10: 00 01 ;here\r\n;behind\r\n", ";C55 24\n ;Greeting by me"},
      {";one\nrubbish\n;two\n10: 00 01\n", ";one"},
      {";" + std::string(300, 'x'), ";" + std::string(199, 'x')},
  };
  const Fullflash image{Bytes(Data(0x10000, 0))};
  for (const auto& [text, header] : rows) {
    const ReadPatch patch = ReadPatchText(text);
    EXPECT_EQ(MisfitTable(patch, CheckPatch(patch.changes, image), image, Messages()).Header(), header);
  }
  std::string lines;
  for (int i = 0; i < 60; ++i) lines += ";\n";
  EXPECT_EQ(ReadPatchText(lines).header.size(), 50u);
}

}  // namespace
}  // namespace tarvelo
