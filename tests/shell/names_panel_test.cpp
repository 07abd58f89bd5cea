#include "shell/names/names_panel.h"
#include "shell/desk.h"

namespace tarvelo {
namespace {

TEST_F(Desk, NamesAreListed) {
  main->Dumps().OpenF(WriteDump("dump.bin"));
  Choose(Id::PlaceNames);
  EXPECT_EQ(List().EmptyHint(),
            "Name this place (Ctrl+N)\n" + std::string(Messages().Msg(Text::HelpNamePlace)));
  const Name named[] = {{0xF00020, "Table", "of texts"}, {0xF00040, "", "why?"}};
  Open().NamePlaces(named);
  EXPECT_EQ(List().EmptyHint(), "");
  List().Select(1);
  const Name variable{0x8004, "counter", ""};  // in RAM
  Open().NamePlaces({&variable, 1});
  EXPECT_EQ(List().Selected(), 2u);
  EXPECT_EQ(RowOf(List(), 0), "\t002:0004\tcounter\t\t\n");
  EXPECT_EQ(SaidAtLast(Id::OpenHex), "!" + std::string(Messages().Msg(Text::DataOutsideImage)));
  EXPECT_EQ(RowOf(List(), 2), "000040\t3C0:0040\t\twhy?\t\n");
  EXPECT_EQ(RowOf(List(), 1), "000020\t3C0:0020\tTable\tof texts\t\n");
  List().onActivate(1);
  EXPECT_EQ(Title(), "Tarvelo - Hex view");
  Choose(Id::GoBack);
  EXPECT_EQ(Said(Id::RemoveNames), "?Names and comments to remove: 1");
  EXPECT_EQ(List().RowCount(), 3u);
  script.confirm = true;
  Key(List().Control(), WXK_DELETE);
  EXPECT_EQ(List().RowCount(), 2u);
  EXPECT_EQ(List().Row(List().Selected().value()).cells[3], "why?");  // the one behind it
}

}  // namespace
}  // namespace tarvelo
