#include <wx/app.h>
#include <wx/display.h>

#include "shell/desk.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

constexpr int documentEntries[] = {Id::Save, Id::SaveAs, Id::SaveText, Id::Info};

TEST_F(Desk, OpensADump) {
  for (const int id : documentEntries) EXPECT_FALSE(Enabled(id)) << Caption(id);
  script.file = WriteDump("dump.bin");
  EXPECT_EQ(Said(Id::OpenFF), "open Fullflash (*.bin,*.fls)|*.bin;*.fls|All files|*.*");
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
}

TEST_F(Desk, RefusesFilesThatAreNotDumps) {
  const auto missing = folder / "missing.bin", empty = folder.Write("one.bin", std::string("x"));
  for (const auto& [file, text] : {std::pair(missing, "!Can't open file !" + At(missing) + ReadAdvice()),
                                   {empty, "!The file is empty." + At(empty)}}) {
    const auto good = WriteDump("good.bin");
    main->Dumps().OpenF(good);
    EXPECT_TRUE(Open().IsOpen());
    main->Dumps().OpenF(file);
    EXPECT_EQ(script.TakeSaid(), text);
    EXPECT_FALSE(Open().IsOpen());
    EXPECT_EQ(InfoText(), "");
    EXPECT_EQ(Status(1), PathText(good));
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
  EXPECT_EQ(Said(Id::SaveText), "iInformation was saved in file" + At(file));
  wxString expected = Wx(InfoText());
  expected.Replace("\n", "\r\n");
  EXPECT_EQ(ReadAll(file), Utf8(expected));
  main->Panels().UnVis();
  EXPECT_EQ(Said(Id::SaveText), "!No data for saving !");
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
  const auto mayEndTheSession = [] {
    wxCloseEvent query(wxEVT_QUERY_END_SESSION);
    query.SetCanVeto(true);
    wxTheApp->ProcessEvent(query);
    return !query.GetVeto();
  };
  main->Dumps().OpenF(dump);
  EXPECT_TRUE(mayEndTheSession());
  main->Bench().status.SetPanel(StatusBar::patchPanel, "P");
  const std::function<void()> ways[] = {
      [&] { Choose(Id::OpenFF); }, [&] { Choose(Id::File1); }, [&] { main->Close(); },
      [&] { Choose(Id::ExitM); },  [&] { Drop(dump); },        [&] { EXPECT_FALSE(mayEndTheSession()); }};
  for (const auto& way : ways) {
    way();
    EXPECT_EQ(script.TakeSaid(), question);
    EXPECT_TRUE(script.said.empty());
    EXPECT_EQ(Status(9), "P");
  }
  script.confirm = true;
  EXPECT_TRUE(mayEndTheSession());
  wxCloseEvent end(wxEVT_END_SESSION);
  wxTheApp->ProcessEvent(end);
  EXPECT_EQ(Settings(SettingsFile()).GetRaw("History", "File1"), PathText(dump));
  script.said.clear();
  main->Close();
  EXPECT_EQ(script.TakeSaid(), question);
  EXPECT_TRUE(script.said.empty());
  main = nullptr;  // it destroys itself
}

TEST_F(Desk, OpensWhatTheCommandLineNames) {
  for (const auto& [name, said] :
       {std::pair<std::string, std::string>("my.adr", "!Address books can't be opened.\n\nmy.adr"),
        {"", "!Can't open file !\n\n" + ReadAdvice()},
        {PathText(WriteDump("dump.bin")), ""}}) {
    main->Dumps().OpenNamed(name);
    EXPECT_EQ(script.TakeSaid(), said);
  }
  EXPECT_TRUE(Open().IsOpen());
}

TEST_F(Desk, SaysThatNoProgramOpensAFile) {
  script.opensWithSystem = false;
  EXPECT_TRUE(Said(Id::Help).starts_with("!"));  // here without the pages, or without a program
  OpenDemo(ringtones);
  List().Select(5);
  EXPECT_TRUE(Said(Id::Play).starts_with("!No program could be started for this file.\n\n"));
}

TEST_F(Desk, RemembersFiveFilesOverARestart) {
  const std::filesystem::path files[] = {folder / "x=y.bin", folder / "Дамп.bin", folder / "3 & 4.bin",
                                         folder / "a b.bin", folder / "5.bin",    folder / "oldest.bin"};
  for (std::size_t i = std::size(files); i-- > 0;) main->Dumps().OpenF(WriteDump(files[i]));
  main->Dumps().OpenF(files[2]);  // already in the list: stays where it is
  Restart();
  Choose(Id::OpenFF);
  EXPECT_EQ(script.offered, folder.Path() / "");  // beside the last dump
  for (int i = 0; i < 5; ++i)
    EXPECT_EQ(Caption(Id::File1 + i), std::to_string(i + 1) + " " + PathText(files[i]));
  Choose(Id::File1 + 2);
  EXPECT_EQ(Status(1), PathText(files[2]));
}

TEST_F(Desk, RestoresItsPlace) {
  const wxSize size = main->GetSize() + wxSize(-40, 30);
  Resize(size);  // at once: the program is still waiting for the window manager
  for (const wxStopWatch since; since.Time() < 700; Settle()) wxMilliSleep(20);
  EXPECT_EQ(main->GetSize(), size);
  Restart();
  EXPECT_EQ(main->GetSize(), size);
  // A place on a larger screen.
  Choose(Id::ExitM);
  for (const auto& [key, value] :
       {std::pair("Left", "0"), {"Top", "0"}, {"Width", "2000"}, {"Height", "7000"}})
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
