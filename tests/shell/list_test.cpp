// What every panel with a list has in common.
#include <sstream>

#include "shell/desk.h"
#include "shell/hex/hex_canvas.h"
#include "shell/hex/hex_panel.h"

namespace tarvelo {
namespace {

// A panel, the letter in the name of its saved list, and a row: a text that finds it, its offset and address.
struct ListCase {
  int panel;
  char letter;
  const char* text;
  const char* offset;
  const char* address;
};
const ListCase lists[] = {{eeprom, 'E', "7CC384", "7C0AC4", "3F0:0AC4"},
                          {pictures, 'P', "280004", "280004", "2A0:0004"},
                          {ringtones, 'R', "330400", "330400", "2CC:0400"},
                          {Id::Dump, 'D', "07FF00", "07FF00", "87FF00"},
                          {Id::Hits, 'S', "07FF80", "07FF80", "21F:3F80"},
                          {Id::ComparePanel, 'C', "000700", "000700", "200:0700"}};

class ListDesk : public Desk {
 protected:
  // Fills every list.
  void OpenAll() {
    OpenDemo(Id::Info);
    std::vector<std::uint8_t> second = AllBytes();
    second[0x700] ^= 1;
    script.file = folder.Write("second.bin", second);
    Said(Id::CompareWith);
    Said(Id::Search, "5349454D454E53");  // "SIEMENS" in the firmware's header
  }
  [[nodiscard]] wxDataViewItem ItemAt(unsigned row) const {
    return dynamic_cast<wxDataViewVirtualListModel&>(*List().Control().GetModel()).GetItem(row);
  }
  [[nodiscard]] bool IsRed(unsigned row, unsigned column) const {
    wxDataViewItemAttr attribute;
    return List().Control().GetModel()->GetAttr(ItemAt(row), column, attribute) &&
           attribute.GetColour().Red() > 0x80;
  }
};

TEST_F(ListDesk, EachIsSavedAndClearedWithTheDump) {
  OpenAll();
  std::vector<ListView*> views;
  for (const ListCase& list : lists) {
    Choose(list.panel);
    EXPECT_EQ(Title(), "Tarvelo - " + Caption(list.panel));
    EXPECT_EQ(Caption(Id::SaveText), "Save list as text");
    views.push_back(&List());
    const auto rows = static_cast<long>(List().RowCount());
    ASSERT_GT(rows, 0);
    std::string last = RowOf(List(), List().RowCount() - 1);
    last.replace(last.size() - 1, 1, "\r\n");
    const auto file = folder / (std::string("demo_") + list.letter + ".txt");
    EXPECT_EQ(Said(Id::SaveText), "iList was saved in file" + At(file));
    const std::string saved = ReadAll(file);
    EXPECT_EQ(std::ranges::count(saved, '\n'), 1 + rows) << Title();
    EXPECT_TRUE(saved.ends_with(last)) << last;
    EXPECT_EQ(Open().FileName(), PathText(file));
  }
  const std::string found = InfoText();
  for (const char* line : {"Number of EEPROM-blocks: 241\nNumber of deleted blocks: 126\n",
                           "1: Address of PIT-table 200000\n", "Address of RIT-table: 330000\n"})
    EXPECT_NE(found.find(line), found.npos) << found;
  for (const ListCase& list : lists) {
    Choose(list.panel);
    for (const ListCase& other : lists) EXPECT_EQ(Item(other.panel)->IsChecked(), &other == &list);
    List().Select(List().RowCount() - 1);
    Choose(list.panel);  // already visible: nothing happens
    EXPECT_EQ(List().Selected(), List().RowCount() - 1);
  }
  EXPECT_EQ(InfoText(), found);  // no second search

  main->Dumps().OpenF(WriteDump("other.bin"));
  EXPECT_EQ(Title(), "Tarvelo - Info");
  for (const ListView* view : views) EXPECT_EQ(view->RowCount(), 0u);
  for (int figure = 3; figure <= StatusBar::panels; ++figure) EXPECT_EQ(Status(figure), "");
}

TEST_F(ListDesk, CommandsTakeTheChosenRow) {
  OpenAll();
  for (const ListCase& list : lists) {
    Choose(list.panel);
    SCOPED_TRACE(Title());
    ASSERT_TRUE(List().Find(list.text, SearchFrom::Top));
    const std::size_t row = *List().Selected();
    EXPECT_EQ(Copied(Id::CopyOffset), list.offset);
    EXPECT_EQ(Copied(Id::CopyAddress), list.address);
    EXPECT_TRUE(Key(List().Control(), 'C', wxMOD_CONTROL));
    EXPECT_EQ(ClipboardText(), TabSeparated(Table{List().Captions(), {List().Row(row)}}, "\n"));
    main->Run(Id::OpenHex);
    const Region shown = Shown<HexPanel>().Canvas().Selection();
    EXPECT_EQ(shown.offset, std::stol(list.offset, nullptr, 16));
    EXPECT_GT(shown.size, 0);
    Choose(list.panel);
    if (list.panel == pictures) continue;  // starts with the first again
    EXPECT_EQ(List().Selected(), row);
  }
}

TEST_F(ListDesk, IsSavedAsItStandsOnTheScreen) {
  OpenBytes("blocks.bin", ImageOfBlocks({1, 2, 12, 3}), eeprom);
  const auto numbers = [&] {
    std::istringstream lines(ReadAll(folder / "blocks_E.txt"));
    std::string all, line;
    for (std::getline(lines, line); std::getline(lines, line);) all += std::to_string(std::stoi(line)) + " ";
    return all;
  };
  const std::string saved = "List was saved in file" + At(folder / "blocks_E.txt");
  SortDown(0);
  EXPECT_EQ(Said(Id::SaveText), "i" + saved);
  EXPECT_EQ(numbers(), "12 3 2 1 ");
  List().Filter("2");
  const std::string rows = TabSeparated(List().ShownRows().All(), "\n");
  EXPECT_TRUE(Said(Id::SaveText).ends_with(" / 4\n" + saved));
  EXPECT_EQ(std::ranges::count(ReadAll(folder / "blocks_E.txt"), '\n'), std::ranges::count(rows, '\n'));
  List().Filter("nowhere");
  EXPECT_EQ(Said(Id::SaveText), "!No data for saving !");
}

// Nothing fails where nothing is found.
TEST_F(ListDesk, PanelsStandEmptyImages) {
  OpenBytes("two.bin", {0xFC, 0xFC}, Id::Info);
  for (const ListCase& list : lists) {
    Choose(list.panel);
    if (list.panel == Id::Dump) continue;
    EXPECT_EQ(Said(Id::SaveText), "!No data for saving !") << Title();
    for (int id = Id::FirstExplorer; id <= Id::DifferencesToPatch; ++id) {
      if (!main->Panels().Visible()->Commands()->Find(id)) continue;
      const std::string said = Said(id);
      EXPECT_TRUE(said.empty() || said.starts_with("ask ") || said.starts_with("!Error ! Block ")) << said;
      EXPECT_EQ(Title(), "Tarvelo - " + Caption(list.panel));
    }
  }
  EXPECT_EQ(Status(4) + Status(7), "");
  EXPECT_EQ(InfoText().find("Number of EEPROM"), std::string::npos);
  EXPECT_EQ(InfoText().find("RIT"), std::string::npos);
}

TEST_F(ListDesk, PanelsReportTooManyBlocks) {
  std::vector<std::uint8_t> bytes = ImageOfBlocks(std::vector(2001, 5));
  OpenBytes("many.bin", bytes, Id::Info);
  bytes[0xE000] = 0;
  script.file = folder.Write("changed.bin", bytes);
  const std::string tooMany = "There are more than 2000 EEPROM blocks.";
  EXPECT_EQ(SaidAtLast(Id::CompareWith), "!" + tooMany);
  EXPECT_TRUE(RowOf(List(), 0).ends_with("\tFF\t00\t\n"));        // without a label
  EXPECT_TRUE(SaidAtLast(Id::CompareWith).starts_with("open "));  // reported once
  for (const auto& [panel, name] : {std::pair(eeprom, "EEPROM"), {Id::Dump, "Dump"}}) {
    Choose(panel);
    EXPECT_EQ(script.TakeSaid(), std::string("!The command \"") + name + "\" failed.\n\n" + tooMany);
    EXPECT_EQ(Title(), std::string("Tarvelo - ") + name);
    EXPECT_EQ(List().RowCount(), 0u);
    EXPECT_EQ(Status(4), "");
    for (const int id : {Id::OpenHex, Id::CopyOffset, Id::CopyAddress, Id::Next, Id::Previous})
      EXPECT_EQ(Said(id), "");
  }
}

TEST_F(ListDesk, EditsAreUndoneInEveryPanel) {
  OpenDemo(Id::Info);
  const std::uint8_t before = Image().Byte(0x700), other = before ^ 0xFF;
  Open().Write(0x700, Bytes(&other, 1));
  std::vector<int> panels{Id::Info, Id::HexView};
  for (const ListCase& list : lists) panels.push_back(list.panel);
  for (const int panel : panels) {
    if (main->Panels().Visible() != main->Panels().Of(panel)) Choose(panel);
    Choose(Id::Undo);
    EXPECT_EQ(Image().Byte(0x700), before) << Title();
    Choose(Id::Redo);
    EXPECT_EQ(Image().Byte(0x700), other) << Title();
  }
}

TEST_F(ListDesk, IsSortedAndFiltered) {
  OpenBytes("blocks.bin", ImageOfBlocks({1, 2, 12, 3}), eeprom);
  const auto shown = [&] {
    std::string numbers;
    for (const Table::Row& row : List().ShownRows().All().rows)
      numbers += std::to_string(std::stoi(row.cells[0])) + " ";
    return numbers;
  };
  List().Select(3);
  for (const char* order : {"1 2 3 12 ", "12 3 2 1 "}) {
    wxDataViewEvent click(wxEVT_DATAVIEW_COLUMN_HEADER_CLICK, &List().Control(),
                          List().Control().GetColumn(0));
    List().Control().ProcessWindowEvent(click);
    EXPECT_EQ(shown(), order);
    EXPECT_EQ(List().Selected(), 3u);
  }
  FirstIn<wxTextEntryBase>(List(), [](wxTextEntryBase&) { return true; })->SetValue("12");
  EXPECT_EQ(shown(), "12 ");
  List().Select(0);  // hidden by the filter, which is cleared
  EXPECT_EQ(List().Selected(), 0u);
  EXPECT_EQ(shown(), "12 3 2 1 ");
  SortDown(6);  // all the same
  EXPECT_EQ(shown(), "1 2 12 3 ");
}

TEST_F(ListDesk, TwoColumnsOfDeletedBlocksAreRed) {
  OpenDemo(eeprom);
  main->Run(Id::ShowDel);
  std::size_t live = 0;
  while (List().Row(live).marked) ++live;
  ASSERT_GT(live, 0u);
  for (const unsigned column : {0u, 1u, 2u, 6u}) {
    EXPECT_EQ(IsRed(0, column), column < 2) << column;
    EXPECT_FALSE(IsRed(static_cast<unsigned>(live), column)) << column;
  }
}

TEST_F(ListDesk, DrawsItsCells) {
  OpenDemo(ringtones);
  wxVariant drawn;
  List().Control().GetModel()->GetValue(drawn, ItemAt(1), 7);
  EXPECT_EQ(Utf8(drawn.GetString()), Cell(1, 7));
  List().SetRows({{"Name"}, 1, [](std::size_t) { return Table::Row{{"a\n\4b"}}; }});
  List().Control().GetModel()->GetValue(drawn, ItemAt(0), 0);
  EXPECT_EQ(Utf8(drawn.GetString()), "a  b");
}

TEST_F(ListDesk, MenuKeyOpensTheMenuAtTheRow) {
  OpenDemo(eeprom);
  wxPoint place;
  List().onContextMenu = [&](const wxPoint& at) { place = at; };
  for (const std::size_t row : {0u, 3u}) {
    List().Select(row);
    Settle();
    EXPECT_TRUE(Key(List().Control(), WXK_F10, wxMOD_SHIFT));
    const wxRect item = List().Control().GetItemRect(List().Control().GetCurrentItem());
    EXPECT_EQ(place.y, List().Control().ClientToScreen(item.GetBottomLeft()).y);
  }
}

}  // namespace
}  // namespace tarvelo
