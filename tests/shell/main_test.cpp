#include <wx/panel.h>

#include "shell/desk.h"
#include "shell/panel.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

// A panel with a list, as explorers have.
class ListPanel final : public Panel {
 public:
  ListPanel(Main& main, int& builds, int& clears)
      : Panel({.menuEntry = Files, .name = 89}), main_(main), window_(new wxPanel(&main)), builds_(builds), clears_(clears) {}

  [[nodiscard]] wxWindow& Window() override { return *window_; }
  void Build() override { ++builds_; }
  void Save() override { main_.SaveList({{"Block", "Size"}, {{{"   1", "20"}}}}, 'F'); }
  void Clear() override { ++clears_; }
  void Recaption(const Messages&) override {}

 private:
  Main& main_;
  wxWindow* window_;
  int& builds_;
  int& clears_;
};

constexpr int documentEntries[] = {Save, SaveAs, SaveText, Info};

TEST_F(Desk, StartsEmpty) {
  EXPECT_EQ(InfoText(), "");
  EXPECT_TRUE(main->InfoText().Window().IsShown());
  EXPECT_TRUE(Enabled(OpenFF));
  for (const int id : documentEntries) EXPECT_FALSE(Enabled(id)) << Caption(id);
  for (int panel = 1; panel <= StatusBar::panels; ++panel) EXPECT_EQ(Status(panel), "");
}

TEST_F(Desk, OpensADump) {
  script.file = WriteDump("dump.bin");
  Choose(OpenFF);
  EXPECT_EQ(script.TakeSaid(), "open Fullflash (*.bin,*.fls)|*.bin;*.fls|All files|*.*");
  EXPECT_TRUE(script.said.empty());
  EXPECT_EQ(Title(), "Tarvelo - Info");
  EXPECT_EQ(Status(1), PathText(*script.file));
  EXPECT_EQ(Status(2), "C55 v24 FD-02");
  EXPECT_NE(InfoText().find("Mobile: C55\n"), std::string::npos) << InfoText();
  EXPECT_EQ(main->Open().FileName, ToUpper(PathText(*script.file)));
  EXPECT_EQ(main->Open().FileStem, folder / "dump");
  for (const int id : documentEntries) EXPECT_TRUE(Enabled(id)) << Caption(id);
  EXPECT_EQ(Caption(SaveText), "Save info-file");
}

TEST_F(Desk, KeepsTheDocumentWhenTheDialogIsCancelled) {
  main->OpenF(WriteDump("dump.bin"));
  Choose(OpenFF);
  EXPECT_TRUE(main->Open().IsOpen());
  Choose(SaveAs);
  EXPECT_TRUE(script.beeps.empty());
}

TEST_F(Desk, RefusesWhatIsNoDump) {
  const auto path = [&](const char* name) { return PathText(folder / name); };
  folder.Write("empty.bin", std::string());
  folder.Write("one.bin", std::string("x"));
  std::filesystem::create_directory(folder / "folder.bin");
  struct {
    const char* name;
    const char* text;
    std::string advice;
  } const cases[] = {{"missing.bin", "!Can't open file !\n\n", ReadAdvice()},
                     {"folder.bin", "!Can't open file !\n\n", ReadAdvice()},
                     {"empty.bin", "!The file is empty.\n\n", ""},
                     {"one.bin", "!The file is empty.\n\n", ""}};
  for (const auto& [name, text, advice] : cases) {
    main->OpenF(WriteDump("good.bin"));
    main->OpenF(folder / name);
    EXPECT_EQ(script.TakeSaid(), text + path(name) + advice);
    EXPECT_FALSE(main->Open().IsOpen());
    EXPECT_EQ(InfoText(), "");
    EXPECT_EQ(Status(2), "");
    for (const int id : documentEntries) EXPECT_FALSE(Enabled(id)) << Caption(id);
  }
  main->OpenF(WriteDump("good.bin"));
  EXPECT_TRUE(main->Open().IsOpen());
}

TEST_F(Desk, OpensADumpThatMeansNothing) {
  main->OpenF(folder.Write("erased.bin", std::string(0x20000, '\xFF')));
  EXPECT_TRUE(main->Open().IsOpen());
  EXPECT_TRUE(script.said.empty());
  EXPECT_NE(InfoText().find("Empty blocks: , 00 - 01\n"), std::string::npos) << InfoText();
}

TEST_F(Desk, SavesTheImageWithABeep) {
  const auto dump = WriteDump("dump.bin");
  const std::string bytes = ReadAll(dump);
  main->OpenF(dump);
  main->Status().SetPanel(StatusBar::imagePanel, "F");

  script.file = folder / "copy.fls";
  Choose(SaveAs);
  EXPECT_EQ(script.TakeSaid(), "save dump.bin");
  EXPECT_EQ(ReadAll(*script.file), bytes);
  EXPECT_EQ(script.beeps, std::deque<std::string>{"12000 Hz 300 ms"});
  EXPECT_EQ(Status(1), PathText(*script.file));
  EXPECT_EQ(Status(10), "F");  // saving does not clear it
  EXPECT_EQ(main->Open().FileStem, folder / "copy");

  folder.Write("copy.fls", std::string("something else"));
  Choose(Save);  // goes to the file chosen last
  EXPECT_EQ(ReadAll(*script.file), bytes);
  EXPECT_EQ(script.beeps.size(), 2u);
}

TEST_F(Desk, TellsThatTheImageCannotBeSaved) {
  main->OpenF(WriteDump("dump.bin"));
  script.file = folder / "no folder" / "copy.bin";
  Choose(SaveAs);
  (void)script.TakeSaid();
  EXPECT_EQ(script.TakeSaid(), "!Can't open file !\n\n" + PathText(*script.file) + WriteAdvice());
  EXPECT_TRUE(script.beeps.empty());
  EXPECT_TRUE(main->Open().IsOpen());
  EXPECT_EQ(main->Open().FileStem, folder / "dump");  // still the old names
}

TEST_F(Desk, SavesTheInformation) {
  main->OpenF(WriteDump("dump.v1.bin"));
  Choose(SaveText);
  const auto file = folder / "dump.v1.info";
  EXPECT_EQ(script.TakeSaid(), "iInformation was saved in file\n\n" + PathText(file));
  std::string expected = InfoText();
  for (auto at = expected.find('\n'); at != expected.npos; at = expected.find('\n', at + 2))
    expected.replace(at, 1, "\r\n");
  EXPECT_EQ(ReadAll(file), expected);
}

TEST_F(Desk, RoutesPanels) {
  int builds = 0, clears = 0;
  EXPECT_FALSE(Enabled(Files));
  main->AddPanel(std::make_unique<ListPanel>(*main, builds, clears));
  main->OpenF(WriteDump("dump.bin"));
  EXPECT_EQ(clears, 1);

  Choose(Files);
  Choose(Files);  // is shown already: nothing happens
  EXPECT_EQ(builds, 1);
  EXPECT_TRUE(Item(Files)->IsChecked());
  EXPECT_FALSE(Item(Info)->IsChecked());
  EXPECT_EQ(Title(), "Tarvelo - Files");
  EXPECT_EQ(Caption(SaveText), "Save list as text");
  EXPECT_FALSE(main->InfoText().Window().IsShown());

  Choose(SaveText);
  EXPECT_EQ(script.TakeSaid(), "iList was saved in file\n\n" + PathText(folder / "dump_F.txt"));
  EXPECT_EQ(ReadAll(folder / "dump_F.txt"), "Block\tSize\r\n   1\t20\r\n");
  EXPECT_EQ(main->Open().FileName, PathText(folder / "dump_F.txt"));

  main->UnVis();
  Choose(SaveText);
  EXPECT_EQ(script.TakeSaid(), "!No data for saving !");

  Choose(Files);
  EXPECT_EQ(builds, 2);
  main->OpenF(WriteDump("other.bin"));
  EXPECT_EQ(clears, 2);
  EXPECT_EQ(Title(), "Tarvelo - Info");
}

TEST_F(Desk, TellsWhatEndedACommand) {
  main->OpenF(WriteDump("dump.bin"));
  const std::pair<std::function<void()>, std::string> faults[] = {
      {[] { throw std::out_of_range("at 5"); }, "It read past the end of the image.\nat 5"},
      {[] { throw std::overflow_error("at 6"); }, "A number in the image is too large.\nat 6"},
      {[] { throw std::bad_alloc(); }, "There is not enough memory."},
      {[] { throw std::length_error("too many"); }, "too many"}};
  for (const auto& [fault, text] : faults) {
    main->RunGuarded("Search", fault);
    EXPECT_EQ(script.TakeSaid(), "!The command \"Search\" failed.\n\n" + text);
    EXPECT_TRUE(main->Open().IsOpen());
  }
}

TEST_F(Desk, TellsAFaultAndGoesOn) {
  int builds = 0, clears = 0;
  main->AddPanel(std::make_unique<ListPanel>(*main, builds, clears));
  main->OpenF(WriteDump("dump.bin"));
  Choose(Files);
  std::filesystem::create_directory(folder / "dump_F.txt");  // cannot be written
  Choose(SaveText);
  EXPECT_EQ(script.TakeSaid(), "!Can't open file !\n\n" + PathText(folder / "dump_F.txt") + WriteAdvice());
  EXPECT_TRUE(main->Open().IsOpen());
}

TEST_F(Desk, AsksOnceAboutUnsavedData) {
  const std::string question = "?Exist unsaved data in patch !\nAre you sure to continue ?";
  const auto dump = WriteDump("dump.bin");
  main->OpenF(dump);
  main->Status().SetPanel(StatusBar::patchPanel, "P");
  const std::function<void()> ways[] = {[&] { Choose(OpenFF); }, [&] { Choose(File1); },
                                        [&] { main->Close(); }, [&] { Choose(ExitM); }, [&] { Drop(dump); }};
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

TEST_F(Desk, OpensADroppedDump) {
  Drop(WriteDump("dropped.bin"));
  EXPECT_TRUE(main->Open().IsOpen());
}

TEST_F(Desk, OpensWhatTheCommandLineNames) {
  main->OpenNamed("my.adr");
  EXPECT_EQ(script.TakeSaid(), "!Address books can't be opened.\n\nmy.adr");
  main->OpenNamed("");
  EXPECT_EQ(script.TakeSaid(), "!Can't open file !\n\n" + ReadAdvice());
  main->OpenNamed(PathText(WriteDump("dump.bin")));
  EXPECT_TRUE(main->Open().IsOpen());
}

TEST_F(Desk, RemembersFiveFilesOverARestart) {
  for (const char* name : {"1.bin", "2.bin", "3.bin", "4.bin", "5.bin", "6.bin"})
    main->OpenF(WriteDump(name));
  main->OpenF(folder / "4.bin");  // is in the list: stays where it is
  const auto expect = [&] {
    for (int i = 0; i < 5; ++i)
      EXPECT_EQ(Caption(File1 + i),
                std::to_string(i + 1) + " " + PathText(folder / (std::to_string(6 - i) + ".bin")));
  };
  expect();
  Choose(ExitM);
  StartProgram();
  expect();
  Choose(File1 + 2);
  EXPECT_EQ(Status(1), PathText(folder / "4.bin"));
}

TEST_F(Desk, ComesBackWhereItStood) {
  const wxSize size = main->GetSize() + wxSize(-40, 30);
  main->SetSize(size);
  Settle();
  Choose(ExitM);
  StartProgram();
  EXPECT_EQ(main->GetSize(), size);
}

TEST_F(Desk, ShowsProgressWhileItReads) {
  main->Status().Start(0, 100);
  main->Status().At(50);
  const wxWindow* bar = main->Status().GetChildren().GetFirst()->GetData();
  EXPECT_TRUE(bar->IsShown());
  EXPECT_GT(bar->GetSize().x, 50);
  main->Status().Finish();
  EXPECT_FALSE(bar->IsShown());
}

}  // namespace
}  // namespace tarvelo
