#include <wx/dataview.h>
#include <wx/textctrl.h>

#include "demo/demo_image.h"
#include "shell/block_view.h"
#include "shell/desk.h"
#include "shell/eeprom_panel.h"
#include "shell/list_view.h"

namespace tarvelo {
namespace {

constexpr int Entry(ViewerEntry entry) { return FirstViewer + static_cast<int>(entry); }

// The demonstration fullflash with its EEPROM panel open.
class EepromDesk : public Desk {
 protected:
  EepromDesk() { OpenImage("demo.bin", DemoImage()); }

  void OpenImage(const char* name, const std::vector<std::uint8_t>& bytes) {
    main->OpenF(folder.Write(name, bytes));
    Choose(EEPROM);
  }

  // Selects the row of a header.
  void SelectHeader(const std::string& position) { ASSERT_TRUE(List().Find(position, false, 2)); }

  [[nodiscard]] EepromPanel& Panel() { return dynamic_cast<EepromPanel&>(*main->Visible()); }
  [[nodiscard]] ListView& List() { return Panel().ListE(); }
  [[nodiscard]] const std::vector<std::string>& SelectedCells() {
    return List().GetTable().rows[List().Selected().value()].cells;
  }
  [[nodiscard]] bool CanRun(ViewerEntry entry) { return Panel().Commands()->CanRun(Entry(entry)); }
};

std::string Cell(wxDataViewListCtrl& list, unsigned row, unsigned column) {
  return Utf8(list.GetTextValue(row, column));
}

// A 64 KiB image with a header at each multiple of 12, for the numbers; data of 16 bytes at 0xF000.
std::vector<std::uint8_t> ImageOf(const std::vector<int>& numbers) {
  ImageBuilder builder(0x10000);
  std::size_t p = 0;
  for (const int number : numbers) {
    p = builder.Word(p, 0x00FC);
    p = builder.Word(p, 16);
    p = builder.DWord(p, 0xFFF000);
    p = builder.Word(p, static_cast<std::uint16_t>(number));
    p = builder.Word(p, 0xFC00);
  }
  return std::move(builder).Take();
}

TEST_F(EepromDesk, ListsTheLiveBlocks) {
  EXPECT_EQ(Title(), "Tarvelo - EEPROM");
  EXPECT_EQ(Status(4), "241 / 126");
  EXPECT_EQ(main->Status().Tooltip(4), "EEPROM blocks: live / deleted");
  const std::string lines = "Number of EEPROM-blocks: 241\nNumber of deleted blocks: 126\n";
  EXPECT_TRUE(InfoText().ends_with(lines)) << InfoText();
  EXPECT_EQ(List().RowCount(), 241u);
  EXPECT_EQ(List().Selected(), 0u);
  Choose(Info);
  Choose(EEPROM);  // without another scan
  EXPECT_EQ(InfoText().find(lines), InfoText().rfind(lines));
}

TEST_F(EepromDesk, ShowsDeletedBlocksToo) {
  SelectHeader("76C00C");
  main->Run(ShowDel);
  EXPECT_EQ(List().RowCount(), 367u);
  EXPECT_TRUE(List().GetTable().rows[0].marked);
  EXPECT_EQ(SelectedCells()[2], "76C00C");  // the same block in another row
  EXPECT_TRUE(Panel().Commands()->Find(ShowDel)->checked());

  SelectHeader("76C024");  // deleted: its neighbour takes its place
  main->Run(ShowDel);
  EXPECT_EQ(List().RowCount(), 241u);
  EXPECT_EQ(SelectedCells()[2], "76C030");
}

TEST_F(EepromDesk, IsSavedAsItIsShown) {
  for (const int lines : {242, 368}) {
    Choose(SaveText);
    EXPECT_EQ(script.TakeSaid(), "iList was saved in file\n\n" + PathText(folder / "demo_E.txt"));
    std::ifstream file(folder / "demo_E.txt", std::ios::binary);
    EXPECT_EQ(std::count(std::istreambuf_iterator(file), {}, '\n'), lines);
    main->Run(ShowDel);
  }
}

TEST_F(EepromDesk, OpensBlocksInTheHexEditor) {
  main->Destroy();
  Settle();
  Settings(SettingsFile()).SetIni("Integration", "HexEditor", "editor %1");
  StartProgram();
  OpenImage("demo.bin", DemoImage());
  SelectHeader("7CC384");
  main->Run(OffsetE);
  EXPECT_EQ(ClipboardText(), "7C0AC4");
  List().onActivate(*List().Selected());
  main->Run(OpenDescE);
  ASSERT_EQ(script.started.size(), 2u);
  EXPECT_TRUE(script.started[0].ends_with(" /GOTO:0x7C0AC4 /SELECT:66")) << script.started[0];
  EXPECT_TRUE(script.started[1].ends_with(" /GOTO:0x7CC384 /SELECT:12")) << script.started[1];
}

TEST_F(EepromDesk, SearchesDescriptions) {
  main->Run(ShowDel);
  script.answer = "GREETING";
  main->Run(FindE);
  EXPECT_EQ(script.TakeSaid(), "ask Enter the string for search: ");
  for (const char* header : {"78C2DC", "7CC0C0", "7CC384"}) {  // deleted ones, then the live one
    EXPECT_EQ(SelectedCells()[2], header);
    main->Run(FindMoreE);
  }
  EXPECT_EQ(script.TakeSaid(), "!String \"GREETING\" wasn't found");
  EXPECT_EQ(SelectedCells()[2], "7CC384");

  script.answer = "5076";  // a number, which no description holds
  main->Run(FindE);
  EXPECT_EQ(script.TakeSaid(), "ask Enter the string for search: GREETING");
  EXPECT_EQ(script.TakeSaid(), "!String \"5076\" wasn't found");
  script.answer = "";  // cancelled: the last one is kept
  main->Run(FindE);
  EXPECT_EQ(script.TakeSaid(), "ask Enter the string for search: 5076");
  EXPECT_TRUE(script.said.empty());
}

TEST_F(EepromDesk, UsersDescriptionsGoOverTheBuiltInOnes) {
  EXPECT_EQ(List().GetTable().rows[0].cells[1], "");
  folder.Write("eeprom_blocks.tsv", std::string("1\tМой блок\n"));
  OpenImage("demo.bin", DemoImage());
  EXPECT_EQ(List().GetTable().rows[0].cells[1], "Мой блок");
  folder.Write("eeprom_blocks.tsv", "1\tno\n" + std::string(1 << 20, '#'));
  OpenImage("demo.bin", DemoImage());
  EXPECT_EQ(List().GetTable().rows[0].cells[1], "");
}

TEST_F(EepromDesk, KnownBlocksAreThoseOfTheImage) {
  for (int id = FirstViewer; id <= LastViewer; ++id) EXPECT_TRUE(Panel().Commands()->CanRun(id)) << id;
  main->Run(Entry(ViewerEntry::x5136));
  EXPECT_EQ(Panel().View()->GetTitle(), "Tarvelo - 5136 :  Info about block");
  main->Run(Entry(ViewerEntry::x0280));
  EXPECT_EQ(Panel().View()->FactText(BlockView::HeaderPosition), "7CC300");

  OpenImage("other.bin", ImageOf({67, 5240, 5238}));
  EXPECT_TRUE(CanRun(ViewerEntry::x0067));
  EXPECT_FALSE(CanRun(ViewerEntry::x0280));
  EXPECT_FALSE(CanRun(ViewerEntry::x5274));
  main->Run(Entry(ViewerEntry::x5136));
  EXPECT_EQ(Panel().View()->GetTitle(), "Tarvelo - 5238 :  Info about block");
  for (const int number : {5275, 5276, 5277, 5278}) {  // these stay
    const int id = Entry(*ViewerOf(number));
    EXPECT_EQ(Caption(id), "Blocks 5275 - 5278: " + std::to_string(number));
    main->Run(id);
    EXPECT_EQ(script.TakeSaid(), "!Error ! Block \"" + std::to_string(number) + "\" wasn't found !");
  }
}

TEST_F(EepromDesk, InfoShowsAnyBlock) {
  SelectHeader("7CC384");
  main->Run(InfoE);
  BlockView& view = *Panel().View();
  EXPECT_TRUE(view.IsShown());
  const std::string facts[] = {"Greeting text", "live", "FC0AC4", "66", "0", "7C0AC4", "7CC384"};
  for (std::size_t i = 0; i < BlockView::facts; ++i)
    EXPECT_EQ(Utf8(view.FactText(static_cast<BlockView::Fact>(i))), facts[i]);
  ASSERT_EQ(view.Generations().GetItemCount(), 2);
  EXPECT_EQ(Cell(view.Generations(), 0, 5), "Differing bytes: 19, Offset 0000");
  EXPECT_EQ(Cell(view.Generations(), 1, 5), "Differing bytes: 11, Offset 0002");
  EXPECT_EQ(Cell(view.Readings(), 3, 1), "Tarvelo demo");

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
  SelectHeader("7CC384");
  main->Run(InfoE);
  BlockView& view = *Panel().View();
  view.Dump().SetInsertionPoint(view.Dump().XYToPosition(6 + 3 * 4, 1));  // byte 14: "e", UTF-16LE
  view.ReadFromCaret();
  EXPECT_EQ(Cell(view.Readings(), 0, 1), "e");
  EXPECT_EQ(Cell(view.Readings(), 5, 1), "emo");
  view.Dump().SetInsertionPoint(view.Dump().GetLastPosition());
  wxMouseEvent click(wxEVT_LEFT_UP);
  view.Dump().GetEventHandler()->ProcessEvent(click);
  Settle();
  EXPECT_EQ(Cell(view.Readings(), 5, 1), "");
}

TEST_F(EepromDesk, InfoGoesWithTheDocument) {
  main->Run(InfoE);
  BlockView& view = *Panel().View();
  main->ApplyLang(*FindLanguage("RU"));
  EXPECT_EQ(view.GetTitle(), wxString::FromUTF8("Tarvelo - 1 :  Информация о блоке"));
  main->CloseFF();
  EXPECT_FALSE(view.IsShown());
  view.Next_Click();  // a click that came late
  view.HexView_Click();
  view.ReadFromCaret();
  EXPECT_EQ(view.Shown(), std::nullopt);
  EXPECT_TRUE(script.said.empty());
}

TEST_F(EepromDesk, ImagesWithoutBlocks) {
  OpenImage("tiny.bin", {0xFC, 0xFC});
  EXPECT_EQ(List().RowCount(), 0u);
  EXPECT_EQ(Status(4), "");
  EXPECT_EQ(InfoText().find("Number of EEPROM"), std::string::npos);
  for (const int id : {OpenE, OpenDescE, InfoE, OffsetE, FindE, FindMoreE, ShowDel})
    main->Run(id);  // nothing is chosen: nothing happens
  EXPECT_TRUE(script.said.empty());
  EXPECT_FALSE(Panel().View());
}

TEST_F(EepromDesk, BlocksWithoutData) {
  std::vector<std::uint8_t> bytes = ImageOf({1, 2});
  bytes[4 + 2] = 0xBF;  // in front of the image
  bytes[12 + 2] = 0;    // empty
  OpenImage("outside.bin", bytes);
  main->Run(OpenE);
  EXPECT_EQ(script.TakeSaid(), "!The data lies outside the image.");
  main->Run(InfoE);
  BlockView& view = *Panel().View();
  EXPECT_EQ(view.Dump().GetValue(), "The block has no data in the image.");
  EXPECT_EQ(view.FactText(BlockView::DataOffset), "FFC0F000 - The data lies outside the image.");
  view.ReadFromCaret();
  view.Next_Click();
  EXPECT_EQ(view.Dump().GetValue(), "The block has no data in the image.");
  EXPECT_EQ(view.FactText(BlockView::DataOffset), "00F000");
}

TEST_F(EepromDesk, TooManyBlocksAreRefused) {
  OpenImage("many.bin", ImageOf(std::vector<int>(2001, 5)));
  EXPECT_EQ(script.TakeSaid(), "!The command \"EEPROM\" failed.\n\nThere are more than 2000 EEPROM blocks.");
  EXPECT_EQ(Title(), "Tarvelo - EEPROM");
  EXPECT_EQ(List().RowCount(), 0u);
  EXPECT_EQ(Status(4), "");
  OpenImage("most.bin", ImageOf(std::vector<int>(2000, 5)));
  EXPECT_EQ(List().RowCount(), 2000u);
  EXPECT_TRUE(script.said.empty());
}

}  // namespace
}  // namespace tarvelo
