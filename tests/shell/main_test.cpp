#include <array>
#include <sstream>

#include <wx/display.h>

#include "shell/desk.h"
#include "shell/services/panel.h"
#include "shell/services/panel_commands.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

constexpr int documentEntries[] = {Id::Save, Id::SaveAs, Id::SaveText, Id::Info};

TEST_F(Desk, OpensADump) {
  for (const int id : documentEntries) EXPECT_FALSE(Enabled(id)) << Caption(id);
  script.file = WriteDump("dump.bin");
  Choose(Id::OpenFF);
  EXPECT_EQ(script.TakeSaid(), "open Fullflash (*.bin,*.fls)|*.bin;*.fls|All files|*.*");
  EXPECT_TRUE(script.said.empty());
  EXPECT_EQ(Title(), "Tarvelo - Info");
  EXPECT_EQ(Status(1), PathText(*script.file));
  EXPECT_EQ(Status(2), "C55 v24 FD-02");
  EXPECT_NE(InfoText().find("Mobile: C55\n"), std::string::npos) << InfoText();
  EXPECT_EQ(Open().FileName(), ToUpper(PathText(*script.file)));
  EXPECT_EQ(Open().FileStem(), folder / "dump");
  for (const int id : documentEntries) EXPECT_TRUE(Enabled(id)) << Caption(id);
  EXPECT_FALSE(Enabled(Id::Langpack));  // not built yet
  EXPECT_EQ(Caption(Id::SaveText), "Save info-file");

  script.file.reset();
  for (const int id : {Id::OpenFF, Id::SaveAs}) Choose(id);  // cancelled
  EXPECT_TRUE(Open().IsOpen());
  EXPECT_TRUE(script.beeps.empty());
}

TEST_F(Desk, RefusesFilesThatAreNotDumps) {
  const auto path = [&](const char* name) { return PathText(folder / name); };
  folder.Write("one.bin", std::string("x"));
  const std::pair<const char*, std::string> cases[] = {
      {"missing.bin", "!Can't open file !\n\n" + path("missing.bin") + ReadAdvice()},
      {"one.bin", "!The file is empty.\n\n" + path("one.bin")}};
  for (const auto& [name, text] : cases) {
    main->Dumps().OpenF(WriteDump("good.bin"));
    EXPECT_TRUE(Open().IsOpen());
    main->Dumps().OpenF(folder / name);
    EXPECT_EQ(script.TakeSaid(), text);
    EXPECT_FALSE(Open().IsOpen());
    EXPECT_EQ(InfoText(), "");
    EXPECT_EQ(Status(2), "");
    for (const int id : documentEntries) EXPECT_FALSE(Enabled(id)) << Caption(id);
  }
}

TEST_F(Desk, SavesTheImageWithABeep) {
  const auto dump = WriteDump("dump.bin");
  const std::string bytes = ReadAll(dump);
  main->Dumps().OpenF(dump);
  main->Bench().status.SetPanel(StatusBar::imagePanel, "F");

  script.file = folder / "copy.fls";
  EXPECT_EQ(Said(Id::SaveAs), "save dump.bin");
  EXPECT_EQ(ReadAll(*script.file), bytes);
  EXPECT_EQ(script.beeps, std::deque<std::string>{"12000 Hz 300 ms"});
  EXPECT_EQ(Status(1), PathText(*script.file));
  EXPECT_EQ(Status(10), "F");  // saving does not clear it
  EXPECT_EQ(Open().FileStem(), folder / "copy");

  folder.Write("copy.fls", std::string("something else"));
  Choose(Id::Save);  // writes to the last chosen file
  EXPECT_EQ(ReadAll(*script.file), bytes);
  EXPECT_EQ(script.beeps.size(), 2u);
}

TEST_F(Desk, SavesTheInformation) {
  main->Dumps().OpenF(WriteDump("dump.v1.bin"));
  const auto file = folder / "dump.v1.info";
  EXPECT_EQ(Said(Id::SaveText), "iInformation was saved in file\n\n" + PathText(file));
  wxString expected = Wx(InfoText());
  expected.Replace("\n", "\r\n");
  EXPECT_EQ(ReadAll(file), Utf8(expected));
  main->Panels().UnVis();
  EXPECT_EQ(Said(Id::SaveText), "!No data for saving !");
}

// The panels with lists, and the letters in the names of their saved files.
const std::pair<int, char> lists[] = {{eeprom, 'E'},   {pictures, 'P'}, {ringtones, 'R'},
                                      {Id::Dump, 'D'}, {Id::Hits, 'S'}, {Id::ComparePanel, 'C'}};

TEST_F(Desk, EveryListIsSavedAndClearedWithTheDump) {
  OpenDemo(Id::Info);
  std::vector<std::uint8_t> second = AllBytes();
  second[0x700] ^= 1;
  script.file = folder.Write("second.bin", second);
  Said(Id::CompareWith);
  Said(Id::Search, "5349454D454E53");
  std::vector<ListView*> views;
  for (const auto& [panel, letter] : lists) {
    Choose(panel);
    EXPECT_EQ(Title(), "Tarvelo - " + Caption(panel));
    EXPECT_EQ(Caption(Id::SaveText), "Save list as text");
    views.push_back(&List());
    const auto rows = static_cast<long>(List().RowCount());
    ASSERT_GT(rows, 0);
    std::string last = RowOf(List(), List().RowCount() - 1);
    last.replace(last.size() - 1, 1, "\r\n");
    const auto file = folder / (std::string("demo_") + letter + ".txt");
    EXPECT_EQ(Said(Id::SaveText), "iList was saved in file\n\n" + PathText(file));
    const std::string saved = ReadAll(file);
    EXPECT_EQ(std::ranges::count(saved, '\n'), 1 + rows) << Title();
    EXPECT_TRUE(saved.ends_with(last)) << last;
    EXPECT_EQ(Open().FileName(), PathText(file));
  }
  const std::string found = InfoText();
  for (const char* line : {"Number of EEPROM-blocks: 241\nNumber of deleted blocks: 126\n",
                           "1: Address of PIT-table 200000\n", "Address of RIT-table: 330000\n"})
    EXPECT_NE(found.find(line), found.npos) << found;
  for (const auto& [panel, letter] : lists) {
    Choose(panel);
    for (const auto& [other, letterOfOther] : lists) EXPECT_EQ(Item(other)->IsChecked(), other == panel);
    List().Select(List().RowCount() - 1);
    Choose(panel);  // already visible: nothing happens
    EXPECT_EQ(List().Selected(), List().RowCount() - 1);
  }
  EXPECT_EQ(InfoText(), found);  // no second search

  main->Dumps().OpenF(WriteDump("other.bin"));
  EXPECT_EQ(Title(), "Tarvelo - Info");
  for (const ListView* view : views) EXPECT_EQ(view->RowCount(), 0u);
  for (int figure = 3; figure <= StatusBar::panels; ++figure) EXPECT_EQ(Status(figure), "");
}

TEST_F(Desk, ListIsSavedAsItStandsOnTheScreen) {
  OpenBytes("blocks.bin", ImageOfBlocks({1, 2, 12, 3}), eeprom);
  const auto numbers = [&] {
    std::istringstream lines(ReadAll(folder / "blocks_E.txt"));
    std::string all, line;
    for (std::getline(lines, line); std::getline(lines, line);) all += std::to_string(std::stoi(line)) + " ";
    return all;
  };
  const std::string saved = "List was saved in file\n\n" + PathText(folder / "blocks_E.txt");
  List().SortBy(0);
  List().SortBy(0);  // descending
  EXPECT_EQ(Said(Id::SaveText), "i" + saved);
  EXPECT_EQ(numbers(), "12 3 2 1 ");
  List().Filter("2");
  const std::string rows = TabSeparated(List().ShownRows().All(), "\n");
  EXPECT_TRUE(Said(Id::SaveText).ends_with(" / 4\n" + saved));
  EXPECT_EQ(std::ranges::count(ReadAll(folder / "blocks_E.txt"), '\n'), std::ranges::count(rows, '\n'));
  List().Filter("nowhere");
  EXPECT_EQ(Said(Id::SaveText), "!No data for saving !");
  OpenBytes("two.bin", {0xFC, 0xFC}, Id::Info);
  for (const auto& [panel, letter] : lists) {
    if (panel == Id::Dump) continue;
    Choose(panel);
    EXPECT_EQ(Said(Id::SaveText), "!No data for saving !") << Title();
  }
}

TEST_F(Desk, EditsAreUndoneInEveryPanel) {
  OpenDemo(Id::Info);
  const std::uint8_t before = Image().Byte(0x700), other = before ^ 0xFF;
  Open().Write(0x700, Bytes(&other, 1));
  std::vector<int> panels{Id::Info, Id::HexView};
  for (const auto& [panel, letter] : lists) panels.push_back(panel);
  for (const int panel : panels) {
    if (main->Panels().Visible() != main->Panels().Of(panel)) Choose(panel);
    Choose(Id::Undo);
    EXPECT_EQ(Image().Byte(0x700), before) << Title();
    Choose(Id::Redo);
    EXPECT_EQ(Image().Byte(0x700), other) << Title();
  }
}

TEST_F(Desk, CommandsDoNothingIfNothingIsChosen) {
  OpenBytes("two.bin", {0xFC, 0xFC}, Id::Info);
  for (const auto& [panel, letter] : lists) {
    if (panel == Id::Dump) continue;  // always has a region
    Choose(panel);
    EXPECT_EQ(List().RowCount(), 0u);
    for (int id = Id::ShowPic; id <= Id::DifferencesToPatch; ++id) {
      if (!main->Panels().Visible()->Commands()->Find(id)) continue;
      const std::string said = Said(id);
      EXPECT_TRUE(said.empty() || said.starts_with("ask ") || said.starts_with("!Error ! Block ")) << said;
      EXPECT_EQ(Title(), "Tarvelo - " + Caption(panel));
    }
  }
  EXPECT_EQ(Status(4) + Status(7), "");
  EXPECT_EQ(InfoText().find("Number of EEPROM"), std::string::npos);
  EXPECT_EQ(InfoText().find("RIT"), std::string::npos);
}

TEST_F(Desk, ReportsTheFaultThatEndedACommand) {
  main->Dumps().OpenF(WriteDump("dump.bin"));
  const std::pair<std::function<void()>, std::string> faults[] = {
      {[] { throw std::out_of_range("at 5"); }, "It read past the end of the image.\nat 5"},
      {[] { throw std::overflow_error("at 6"); }, "A number in the image is too large.\nat 6"},
      {[] { throw std::bad_alloc(); }, "There is not enough memory."},
      {[] { throw std::length_error("too many"); }, "too many"}};
  for (const auto& [fault, text] : faults) {
    main->Bench().talk.Guard("Search", fault);
    EXPECT_EQ(script.TakeSaid(), "!The command \"Search\" failed.\n\n" + text);
    EXPECT_TRUE(Open().IsOpen());
  }
}

TEST_F(Desk, AsksOnceAboutUnsavedData) {
  const std::string question = "?Exist unsaved data in patch !\nAre you sure to continue ?";
  const auto dump = WriteDump("dump.bin");
  main->Dumps().OpenF(dump);
  main->Bench().status.SetPanel(StatusBar::patchPanel, "P");
  const std::function<void()> ways[] = {[&] { Choose(Id::OpenFF); }, [&] { Choose(Id::File1); },
                                        [&] { main->Close(); }, [&] { Choose(Id::ExitM); },
                                        [&] { Drop(dump); }};
  for (const auto& way : ways) {
    way();
    EXPECT_EQ(script.TakeSaid(), question);
    EXPECT_TRUE(script.said.empty());
    EXPECT_EQ(Status(9), "P");
  }
  script.confirm = true;
  main->Close();
  EXPECT_EQ(script.TakeSaid(), question);
  EXPECT_TRUE(script.said.empty());
  main = nullptr;  // it destroys itself
}

TEST_F(Desk, OpensWhatTheCommandLineNames) {
  main->Dumps().OpenNamed("my.adr");
  EXPECT_EQ(script.TakeSaid(), "!Address books can't be opened.\n\nmy.adr");
  main->Dumps().OpenNamed("");
  EXPECT_EQ(script.TakeSaid(), "!Can't open file !\n\n" + ReadAdvice());
  main->Dumps().OpenNamed("--help");
  EXPECT_EQ(script.TakeSaid(), "itarvelo FILE opens a fullflash, tarvelo 166 the address calculator alone.");
  main->Dumps().OpenNamed(PathText(WriteDump("dump.bin")));
  EXPECT_TRUE(Open().IsOpen());
}

TEST_F(Desk, OpenDialogBeginsBesideTheLastDump) {
  main->Dumps().OpenF(WriteDump("dump.bin"));
  Restart();
  Choose(Id::OpenFF);
  EXPECT_EQ(script.offered, folder.Path() / "");
}

TEST_F(Desk, SaysThatNoProgramOpensAFile) {
  script.opensWithSystem = false;
  EXPECT_TRUE(Said(Id::Help).starts_with("!"));  // here without the pages, or without a program
  OpenDemo(ringtones);
  List().Select(5);
  EXPECT_TRUE(Said(Id::Play).starts_with("!No program could be started for this file.\n\n"));
}

TEST_F(Desk, RemembersFiveFilesOverARestart) {
  const std::array<std::filesystem::path, 6> files{folder / "x=y.bin",   folder / "Дамп.bin",
                                                   folder / "3 & 4.bin", folder / "a b.bin",
                                                   folder / "5.bin",     folder / "oldest.bin"};
  for (std::size_t i = files.size(); i-- > 0;) main->Dumps().OpenF(WriteDump(files[i]));
  main->Dumps().OpenF(files[2]);  // already in the list: stays where it is
  Restart();
  for (int i = 0; i < 5; ++i)
    EXPECT_EQ(Caption(Id::File1 + i),
              std::to_string(i + 1) + " " + PathText(files[static_cast<std::size_t>(i)]));
  Choose(Id::File1 + 2);
  EXPECT_EQ(Status(1), PathText(files[2]));
}

TEST_F(Desk, RestoresItsPlace) {
  const wxSize size = main->GetSize() + wxSize(-40, 30);
  main->SetSize(size);
  Settle();
  Restart();
  EXPECT_EQ(main->GetSize(), size);
  // A place on a larger screen.
  Choose(Id::ExitM);
  for (const auto& [key, value] :
       {std::pair("Left", "0"), {"Top", "0"}, {"Width", "9000"}, {"Height", "7000"}})
    Settings(SettingsFile()).SetIni("Window", key, value);
  StartProgram();
  const wxSize screen = wxDisplay(main).GetClientArea().GetSize();
  EXPECT_LE(main->GetSize().x, screen.x);
  EXPECT_LE(main->GetSize().y, screen.y);
}

TEST_F(Desk, ShowsProgressWhileItReads) {
  const wxWindow* bar = main->Bench().status.GetChildren().GetFirst()->GetData();
  main->Bench().status.Start(0, 100);
  EXPECT_TRUE(bar->IsShown());
  EXPECT_GT(bar->GetSize().x, 50);
  main->Bench().status.Finish();
  EXPECT_FALSE(bar->IsShown());
}

}  // namespace
}  // namespace tarvelo
