#include "shell/eeprom/eeprom_panel.h"

#include <wx/textctrl.h>

#include "shell/desk.h"
#include "shell/eeprom/block_view.h"

namespace tarvelo {
namespace {

constexpr int Entry(ViewerEntry entry) { return Id::FirstViewer + static_cast<int>(entry); }

std::string CellText(wxDataViewListCtrl& list, unsigned row, unsigned column) {
  return Utf8(list.GetTextValue(row, column));
}

constexpr char greeting[] = "7CC384";  // the header of the live block 5076
constexpr char unknown[] = "76C00C";

// The demonstration fullflash with its EEPROM panel open.
class EepromDesk : public Desk {
 protected:
  EepromDesk() { OpenDemo(eeprom); }

  // The window of the selected block.
  BlockView& Info() {
    main->Run(Id::ShowBlock);
    return *Panel().View();
  }
  BlockView& InfoOf(const std::string& position) {
    SelectHeader(position);
    return Info();
  }

  [[nodiscard]] EepromPanel& Panel() { return Shown<EepromPanel>(); }
  [[nodiscard]] std::string SelectedHeader() { return Cell(List().Selected().value(), 2); }
  [[nodiscard]] bool CanRun(ViewerEntry entry) { return Panel().Commands()->CanRun(Entry(entry)); }
};

TEST_F(EepromDesk, ShowsDeletedBlocksToo) {
  EXPECT_EQ(Status(4), "241 / 126");
  EXPECT_EQ(List().RowCount(), 241u);
  SelectHeader(unknown);
  main->Run(Id::ShowDel);
  EXPECT_EQ(List().RowCount(), 367u);
  EXPECT_TRUE(List().Row(0).marked);
  EXPECT_EQ(SelectedHeader(), unknown);  // the same block in a different row
  EXPECT_TRUE(Panel().Commands()->Find(Id::ShowDel)->checked());
  SelectHeader("76C024");  // deleted: its neighbour is selected instead
  main->Run(Id::ShowDel);
  EXPECT_EQ(List().RowCount(), 241u);
  EXPECT_EQ(SelectedHeader(), "76C030");

  SortDown(2);
  List().Filter("greeting");
  ASSERT_EQ(List().ShownRows().count, 1u);
  main->Run(Id::ShowDel);  // keeps filter and order
  const Table shown = List().ShownRows().All();
  ASSERT_EQ(shown.rows.size(), 3u);
  EXPECT_EQ(shown.rows[0].cells[2], greeting);
  EXPECT_EQ(shown.rows[2].cells[2], "78C2DC");
}

TEST_F(EepromDesk, SearchesDescriptions) {
  main->Run(Id::ShowDel);
  EXPECT_EQ(Said(Id::Next, "GREETING"), "ask Enter the string for search: ");  // no search yet
  for (const int id : {Id::FindMore, Id::Previous, Id::Next}) {
    EXPECT_EQ(SelectedHeader(), id == Id::Previous ? "7CC0C0" : "78C2DC");
    EXPECT_EQ(Said(id), "");
  }
  EXPECT_EQ(SelectedHeader(), "7CC0C0");
  EXPECT_EQ(Said(Id::FindMore), "");
  EXPECT_EQ(Said(Id::FindMore), "!String \"GREETING\" wasn't found");
  EXPECT_EQ(SelectedHeader(), greeting);
  EXPECT_EQ(Said(Id::Find, "greeting"), "ask Enter the string for search: GREETING");
  EXPECT_EQ(SelectedHeader(), "78C2DC");                                     // from the top
  EXPECT_EQ(SaidAtLast(Id::Find, "5076"), "!String \"5076\" wasn't found");  // no description contains it
  EXPECT_EQ(Said(Id::Find), "ask Enter the string for search: 5076");        // cancelled: keeps the last text
}

TEST_F(EepromDesk, UsersDescriptionsGoOverTheBuiltInOnes) {
  EXPECT_EQ(Cell(0, 1), "");
  folder.Write("eeprom_blocks.tsv", std::string("1\tМой блок\n"));
  OpenDemo(eeprom);
  EXPECT_EQ(Cell(0, 1), "Мой блок");
}

TEST_F(EepromDesk, OpensBlocksInTheHexEditor) {
  Restart("editor %1");
  OpenDemo(eeprom);
  SelectHeader(greeting);
  List().onActivate(*List().Selected());
  main->Run(Id::OpenEntry);
  ASSERT_EQ(script.started.size(), 2u);
  EXPECT_TRUE(script.started[0].ends_with(" /GOTO:0x7C0AC4 /SELECT:66")) << script.started[0];
  EXPECT_TRUE(script.started[1].ends_with(" /GOTO:0x7CC384 /SELECT:12")) << script.started[1];
}

TEST_F(EepromDesk, KnownBlocksAreThoseOfTheImage) {
  for (const auto& [position, isKnown] : {std::pair(greeting, true), {unknown, false}}) {
    SelectHeader(position);
    EXPECT_EQ(Cell(*List().Selected(), 6) == "*", isKnown) << RowOf(List(), *List().Selected());
    EXPECT_EQ(Panel().Commands()->CanRun(Id::InfoE), isKnown);
    EXPECT_EQ(Utf8(Info().FactText(BlockView::HeaderPosition)), position);  // of any block
  }
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

TEST_F(EepromDesk, InfoShowsABlockAndItsGenerations) {
  BlockView& view = InfoOf(greeting);
  const std::string facts[] = {"Greeting text", "live", "FC0AC4", "66", "0", "7C0AC4", greeting};
  for (std::size_t i = 0; i < BlockView::facts; ++i)
    EXPECT_EQ(Utf8(view.FactText(static_cast<BlockView::Fact>(i))), facts[i]);
  ASSERT_EQ(view.Generations().GetItemCount(), 2);
  EXPECT_EQ(CellText(view.Generations(), 1, 5), "Differing bytes: 11, Offset 0002");
  EXPECT_EQ(CellText(view.Readings(), 3, 1), "Tarvelo demo");
  view.Readings().SelectRow(3);
  EXPECT_TRUE(Key(view.Readings(), 'C', wxMOD_CONTROL));
  EXPECT_EQ(ClipboardText(), "Tarvelo demo");

  // Its text is read from the caret on.
  view.Dump().SetInsertionPoint(view.Dump().XYToPosition(6 + 3 * 4, 1));  // byte 14: "e", UTF-16LE
  view.ReadFromCaret();
  EXPECT_EQ(CellText(view.Readings(), 0, 1), "e");
  EXPECT_EQ(CellText(view.Readings(), 5, 1), "emo");
  view.Dump().SetInsertionPoint(view.Dump().GetLastPosition());
  Mouse(view.Dump(), wxEVT_LEFT_UP);
  Settle();
  EXPECT_EQ(CellText(view.Readings(), 5, 1), "");

  view.Generation_Click(1);
  EXPECT_EQ(view.FactText(BlockView::State), "deleted");
  EXPECT_EQ(view.FactText(BlockView::HeaderPosition), "7CC0C0");
  view.Next_Click();
  EXPECT_EQ(view.GetTitle(), "Tarvelo - 5077 :  Info about block");
  view.Previous_Click();
  EXPECT_EQ(view.FactText(BlockView::HeaderPosition), greeting);
  view.HexView_Click();
  EXPECT_EQ(Title(), "Tarvelo - Hex view");
  EXPECT_FALSE(view.IsShown());
}

TEST_F(EepromDesk, InfoGoesWithTheDocument) {
  BlockView& view = InfoOf(unknown);
  Open().Write(0x76C00C, std::vector<std::uint8_t>(12, 0xFF));  // its header
  EXPECT_FALSE(view.IsShown());
  Open().Undo();
  List().Select(0);
  Info();
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
  BlockView& view = Info();
  for (const char* place : {"FFC0F000 - The data lies outside the image.", "00F000"}) {
    EXPECT_EQ(view.Dump().GetValue(), "The block has no data in the image.");
    EXPECT_EQ(view.FactText(BlockView::DataOffset), place);
    view.ReadFromCaret();
    view.Next_Click();
  }
}

}  // namespace
}  // namespace tarvelo
