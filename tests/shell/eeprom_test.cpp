#include "shell/eeprom/eeprom_panel.h"

#include <wx/dataview.h>
#include <wx/textctrl.h>

#include "shell/desk.h"
#include "shell/eeprom/block_view.h"

namespace tarvelo {
namespace {

constexpr int Entry(ViewerEntry entry) { return Id::FirstViewer + static_cast<int>(entry); }

std::string CellText(wxDataViewListCtrl& list, unsigned row, unsigned column) {
  return Utf8(list.GetTextValue(row, column));
}

// The demonstration fullflash with its EEPROM panel open.
class EepromDesk : public Desk {
 protected:
  EepromDesk() { OpenDemo(eeprom); }

  // Selects the row of a header.
  void SelectHeader(const std::string& position) { ASSERT_TRUE(List().Find(position, SearchFrom::Top, 2)); }
  // The window of a header's block.
  BlockView& InfoOf(const std::string& position) {
    SelectHeader(position);
    main->Run(Id::ShowBlock);
    return *Panel().View();
  }

  [[nodiscard]] EepromPanel& Panel() { return Shown<EepromPanel>(); }
  [[nodiscard]] std::string SelectedHeader() { return Cell(List().Selected().value(), 2); }
  [[nodiscard]] bool CanRun(ViewerEntry entry) { return Panel().Commands()->CanRun(Entry(entry)); }
};

TEST_F(EepromDesk, ShowsDeletedBlocksToo) {
  EXPECT_EQ(Status(4), "241 / 126");
  EXPECT_EQ(List().RowCount(), 241u);
  SelectHeader("76C00C");
  main->Run(Id::ShowDel);
  EXPECT_EQ(List().RowCount(), 367u);
  EXPECT_TRUE(List().Row(0).marked);
  EXPECT_EQ(SelectedHeader(), "76C00C");  // the same block in a different row
  EXPECT_TRUE(Panel().Commands()->Find(Id::ShowDel)->checked());
  Said(Id::SaveText);
  EXPECT_EQ(std::ranges::count(ReadAll(folder / "demo_E.txt"), '\n'), 368);

  SelectHeader("76C024");  // deleted: its neighbour is selected instead
  main->Run(Id::ShowDel);
  EXPECT_EQ(List().RowCount(), 241u);
  EXPECT_EQ(SelectedHeader(), "76C030");
}

TEST_F(EepromDesk, DeletedBlocksKeepFilterAndOrder) {
  List().SortBy(2);
  List().SortBy(2);  // descending
  List().Filter("greeting");
  ASSERT_EQ(List().ShownRows().count, 1u);
  main->Run(Id::ShowDel);
  const Table shown = List().ShownRows().All();
  ASSERT_EQ(shown.rows.size(), 3u);
  EXPECT_EQ(shown.rows[0].cells[2], "7CC384");
  EXPECT_EQ(shown.rows[2].cells[2], "78C2DC");
}

TEST_F(EepromDesk, InfoIsForKnownBlocksAlone) {
  for (const auto& [position, isKnown] : {std::pair("7CC384", true), {"76C00C", false}}) {
    SelectHeader(position);
    EXPECT_EQ(Cell(*List().Selected(), 6) == "*", isKnown) << RowOf(List(), *List().Selected());
    EXPECT_EQ(Panel().Commands()->CanRun(Id::InfoE), isKnown);
    main->Run(Id::ShowBlock);
    EXPECT_EQ(Utf8(Panel().View()->FactText(BlockView::HeaderPosition)), position);
  }
}

TEST_F(EepromDesk, SavesAllSelectedBlocks) {
  wxDataViewCtrl& control = List().Control();
  control.SelectAll();
  EXPECT_EQ(Said(Id::SaveBlock), "iBlocks saved: 241\n\n" + PathText(folder / "EEPROM"));
  const std::filesystem::directory_iterator files(folder / "EEPROM");
  EXPECT_EQ(std::distance(begin(files), end(files)), 241);
}

TEST_F(EepromDesk, BlockWindowGivesWayAndItsTextsAreCopied) {
  BlockView& view = InfoOf("7CC384");
  view.Readings().SelectRow(3);
  EXPECT_TRUE(Key(view.Readings(), 'C', wxMOD_CONTROL));
  EXPECT_EQ(ClipboardText(), "Tarvelo demo");
  view.HexView_Click();
  EXPECT_EQ(Title(), "Tarvelo - Hex view");
  EXPECT_FALSE(view.IsShown());
}

TEST_F(EepromDesk, SearchGoesOnWithF3) {
  main->Run(Id::ShowDel);
  Said(Id::Next, "GREETING");  // asks first
  EXPECT_EQ(SelectedHeader(), "78C2DC");
  main->Run(Id::Next);
  EXPECT_EQ(SelectedHeader(), "7CC0C0");
  main->Run(Id::Previous);
  EXPECT_EQ(SelectedHeader(), "78C2DC");
}

TEST_F(EepromDesk, MenuKeyOpensTheMenuAtTheRow) {
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

TEST_F(EepromDesk, OpensBlocksInTheHexEditor) {
  Restart("editor %1");
  OpenDemo(eeprom);
  SelectHeader("7CC384");
  main->Run(Id::CopyOffset);
  EXPECT_EQ(ClipboardText(), "7C0AC4");
  List().onActivate(*List().Selected());
  main->Run(Id::OpenEntry);
  ASSERT_EQ(script.started.size(), 2u);
  EXPECT_TRUE(script.started[0].ends_with(" /GOTO:0x7C0AC4 /SELECT:66")) << script.started[0];
  EXPECT_TRUE(script.started[1].ends_with(" /GOTO:0x7CC384 /SELECT:12")) << script.started[1];
}

TEST_F(EepromDesk, SearchesDescriptions) {
  main->Run(Id::ShowDel);
  EXPECT_EQ(Said(Id::Find, "GREETING"), "ask Enter the string for search: ");
  for (const char* deleted : {"78C2DC", "7CC0C0"}) {
    EXPECT_EQ(SelectedHeader(), deleted);
    EXPECT_EQ(Said(Id::FindMore), "");
  }
  EXPECT_EQ(Said(Id::FindMore), "!String \"GREETING\" wasn't found");
  EXPECT_EQ(SelectedHeader(), "7CC384");
  EXPECT_EQ(Said(Id::Find, "5076"),  // a number that no description contains
            "ask Enter the string for search: GREETING | !String \"5076\" wasn't found");
  EXPECT_EQ(Said(Id::Find), "ask Enter the string for search: 5076");  // cancelled: keeps the last text
}

TEST_F(EepromDesk, UsersDescriptionsGoOverTheBuiltInOnes) {
  EXPECT_EQ(Cell(0, 1), "");
  folder.Write("eeprom_blocks.tsv", std::string("1\tМой блок\n"));
  OpenDemo(eeprom);
  EXPECT_EQ(Cell(0, 1), "Мой блок");
  folder.Write("eeprom_blocks.tsv", "1\tno\n" + std::string(1 << 20, '#'));
  OpenDemo(eeprom);
  EXPECT_EQ(Cell(0, 1), "");
}

TEST_F(EepromDesk, KnownBlocksAreThoseOfTheImage) {
  for (int id = Id::FirstViewer; id <= Id::LastViewer; ++id)
    EXPECT_TRUE(Panel().Commands()->CanRun(id)) << id;
  main->Run(Entry(ViewerEntry::x0280));
  EXPECT_EQ(Panel().View()->FactText(BlockView::HeaderPosition), "7CC300");

  OpenBytes("other.bin", ImageOfBlocks({67, 5240, 5238}), eeprom);
  EXPECT_TRUE(CanRun(ViewerEntry::x0067));
  EXPECT_FALSE(CanRun(ViewerEntry::x0280));
  main->Run(Entry(ViewerEntry::x5136));
  EXPECT_EQ(Panel().View()->GetTitle(), "Tarvelo - 5238 :  Info about block");
  for (const int number : {5275, 5276, 5277, 5278}) {  // these stay enabled
    const int id = Entry(*ViewerOf(number));
    EXPECT_EQ(Caption(id), "Blocks 5275 - 5278: " + std::to_string(number));
    EXPECT_EQ(Said(id), "!Error ! Block \"" + std::to_string(number) + "\" wasn't found !");
  }
}

TEST_F(EepromDesk, InfoShowsAnyBlock) {
  BlockView& view = InfoOf("7CC384");
  EXPECT_TRUE(view.IsShown());
  const std::string facts[] = {"Greeting text", "live", "FC0AC4", "66", "0", "7C0AC4", "7CC384"};
  for (std::size_t i = 0; i < BlockView::facts; ++i)
    EXPECT_EQ(Utf8(view.FactText(static_cast<BlockView::Fact>(i))), facts[i]);
  ASSERT_EQ(view.Generations().GetItemCount(), 2);
  EXPECT_EQ(CellText(view.Generations(), 1, 5), "Differing bytes: 11, Offset 0002");
  EXPECT_EQ(CellText(view.Readings(), 3, 1), "Tarvelo demo");

  view.Generation_Click(1);
  EXPECT_EQ(view.FactText(BlockView::State), "deleted");
  EXPECT_EQ(view.FactText(BlockView::HeaderPosition), "7CC0C0");
  EXPECT_EQ(view.Generations().GetItemCount(), 2);
  view.Next_Click();
  EXPECT_EQ(view.GetTitle(), "Tarvelo - 5077 :  Info about block");
  view.Previous_Click();
  EXPECT_EQ(view.FactText(BlockView::HeaderPosition), "7CC384");
}

TEST_F(EepromDesk, ReadingsFollowTheCaret) {
  BlockView& view = InfoOf("7CC384");
  view.Dump().SetInsertionPoint(view.Dump().XYToPosition(6 + 3 * 4, 1));  // byte 14: "e", UTF-16LE
  view.ReadFromCaret();
  EXPECT_EQ(CellText(view.Readings(), 0, 1), "e");
  EXPECT_EQ(CellText(view.Readings(), 5, 1), "emo");
  view.Dump().SetInsertionPoint(view.Dump().GetLastPosition());
  Mouse(view.Dump(), wxEVT_LEFT_UP);
  Settle();
  EXPECT_EQ(CellText(view.Readings(), 5, 1), "");
}

TEST_F(EepromDesk, InfoGoesWithTheDocument) {
  main->Run(Id::ShowBlock);
  BlockView& view = *Panel().View();
  main->ApplyLang(*FindLanguage("RU"));
  EXPECT_EQ(view.GetTitle(), wxString::FromUTF8("Tarvelo - 1 :  Информация о блоке"));
  main->Dumps().CloseFF();
  EXPECT_FALSE(view.IsShown());
  view.Next_Click();  // a click that arrives late
  view.HexView_Click();
  view.ReadFromCaret();
  EXPECT_EQ(view.Shown(), std::nullopt);
  EXPECT_TRUE(script.said.empty());
}

TEST_F(EepromDesk, BlocksWithoutDataAreShownToo) {
  std::vector<std::uint8_t> bytes = ImageOfBlocks({1, 2});
  bytes[4 + 2] = 0xBF;  // before the start of the image
  bytes[12 + 2] = 0;    // empty
  OpenBytes("outside.bin", bytes, eeprom);
  EXPECT_EQ(Said(Id::OpenData), "!The data lies outside the image.");
  main->Run(Id::ShowBlock);
  BlockView& view = *Panel().View();
  EXPECT_EQ(view.Dump().GetValue(), "The block has no data in the image.");
  EXPECT_EQ(view.FactText(BlockView::DataOffset), "FFC0F000 - The data lies outside the image.");
  view.ReadFromCaret();
  view.Next_Click();
  EXPECT_EQ(view.Dump().GetValue(), "The block has no data in the image.");
  EXPECT_EQ(view.FactText(BlockView::DataOffset), "00F000");
}

TEST_F(EepromDesk, RefusesTooManyBlocks) {
  OpenBytes("many.bin", ImageOfBlocks(std::vector(2001, 5)), eeprom);
  EXPECT_EQ(script.TakeSaid(), "!The command \"EEPROM\" failed.\n\nThere are more than 2000 EEPROM blocks.");
  EXPECT_EQ(Title(), "Tarvelo - EEPROM");
  EXPECT_EQ(List().RowCount(), 0u);
  EXPECT_EQ(Status(4), "");
}

}  // namespace
}  // namespace tarvelo
