// The programs that open the dump, and the address calculator.
#include <wx/app.h>
#include <wx/textctrl.h>

#include <array>

#include "shell/calculator/calc166.h"
#include "shell/desk.h"
#include "shell/services/external_tools.h"

namespace tarvelo {
namespace {

TEST(ExternalTools, MakesCommandLines) {
  const std::array<const char*, 3> cases[] = {
      {"hw.exe \"%1\"", "my dumps/a.bin", "hw.exe \"my dumps/a.bin\" /GOTO:0x01A2B4 /SELECT:20"},
      {"hw.exe %1", "my dumps/a.bin", "hw.exe \"my dumps/a.bin\" /GOTO:0x01A2B4 /SELECT:20"},
      {"hw.exe %1", "a.bin", "hw.exe a.bin /GOTO:0x01A2B4 /SELECT:20"},
      {"hex --at=%2 --select %3 %1", "%2.bin", "hex --at=0x01A2B4 --select 20 %2.bin"}};
  for (const auto& [command, dump, expected] : cases)
    EXPECT_EQ(EditorCommand(command, dump, 0x1A2B4, 20), expected);
  EXPECT_EQ(EditorScript("a b.bin", 0x1A2B4, 0x10),
            "CloseAll\r\nOpen \"a b.bin\"\r\nGoto 0x01A2B4\r\nBlock 0x01A2B4 0x1A2C3\r\n");
  EXPECT_EQ(EditorScript("a.bin", 0x1234567, 0), "CloseAll\r\nOpen \"a.bin\"\r\nGoto 0x1234567\r\n");
}

class ToolsDesk : public Desk {
 protected:
  // Restarts the program with this hex editor and opens a dump.
  void StartWith(const std::string& hexEditor) {
    Restart(hexEditor);
    script.started.clear();
    main->Dumps().OpenF(WriteDump("my dump.bin"));
  }

  [[nodiscard]] std::string Dump() const { return PathText(folder / "my dump.bin"); }
};

TEST_F(ToolsDesk, HexEditorIsACommand) {
  script.registry["HKCR\\HexWorkshop\\shell\\open\\command\\"] = "hw.exe \"%1\"";
  StartWith("HexWorkshop");
  ShowBl(0x1234, 12);
  Choose(Id::View);
  const std::string command = "run hw.exe \"" + Dump() + "\"";
  EXPECT_EQ(script.started, (std::deque{command + " /GOTO:0x001234 /SELECT:12", command}));
  EXPECT_EQ(Title(), "Tarvelo - Info");
}

TEST_F(ToolsDesk, HexEditorReadsAScript) {
  StartWith("C:\\my tools\\WinHex.exe");
  const auto file = folder / "Tarvelo.whs";
  ShowBl(0x1234, 12);
  EXPECT_EQ(script.started.at(0), "run \"C:\\my tools\\WinHex.exe\" " + quot(PathText(file)));
  EXPECT_EQ(ReadAll(file), EditorScript(folder / "my dump.bin", 0x1234, 12));
  Restart();
  EXPECT_FALSE(FileExist(file));
}

TEST_F(ToolsDesk, WithoutAHexEditorTheHexViewIsShown) {
  for (const char* editor : {"", "HEXWORKSHOP", "WinHex"}) {
    StartWith(editor);
    ShowBl(0x1234, 12);
    EXPECT_EQ(Title(), "Tarvelo - Hex view");
    Choose(Id::Info);
    Choose(Id::View);
    EXPECT_EQ(Title(), "Tarvelo - Hex view");
    EXPECT_TRUE(script.started.empty());
  }
  Choose(Id::Calculator);
  EXPECT_EQ(script.started.at(0), "run calc");
}

TEST_F(Desk, EndOfTheSessionAsksToo) {
  main->Dumps().OpenF(WriteDump("dump.bin"));
  const auto mayEnd = [] {
    wxCloseEvent query(wxEVT_QUERY_END_SESSION);
    query.SetCanVeto(true);
    wxTheApp->ProcessEvent(query);
    return !query.GetVeto();
  };
  EXPECT_TRUE(mayEnd());
  main->Bench().status.SetPanel(StatusBar::patchPanel, "P");
  EXPECT_FALSE(mayEnd());
  EXPECT_NE(script.TakeSaid(), "");
  script.confirm = true;
  EXPECT_TRUE(mayEnd());
  wxCloseEvent end(wxEVT_END_SESSION);
  wxTheApp->ProcessEvent(end);
  EXPECT_EQ(Settings(SettingsFile()).GetRaw("History", "File1"), PathText(folder / "dump.bin"));
}

class CalculatorDesk : public Desk {
 protected:
  CalculatorDesk() { Choose(Id::Calc166_Menu); }

  [[nodiscard]] Calc166& Calc() { return *main->AddressCalculator(); }
  void Type(wxTextCtrl* field, const char* text) {
    field->SetFocus();
    field->SetValue(text);
  }
  // Page, offset, address, address in the fullflash.
  [[nodiscard]] std::string Fields() {
    std::string all;
    for (wxTextCtrl* field : {Calc().Page, Calc().Offs, Calc().Addr, Calc().AdFF})
      all += Utf8(field->GetValue()) + " ";
    return all;
  }
};

TEST_F(CalculatorDesk, FieldsFollowEachOther) {
  Type(Calc().Page, "284");
  EXPECT_EQ(Fields(), "284 0 A10000 A10000 ");
  Type(Calc().Offs, "2345");
  EXPECT_EQ(Fields(), "284 2345 A12345 A12345 ");
  main->Dumps().OpenF(WriteDump("dump.bin"));  // 1 MiB: from F00000 on
  EXPECT_EQ(Fields(), "284 2345 A12345 B12345 ");
  Type(Calc().AdFF, "1234");
  EXPECT_EQ(Fields(), "3C0 1234 F01234 1234 ");
  Type(Calc().Offs, "4001");
  EXPECT_EQ(Fields(), "3C1 1 F04001 4001 ");
  Type(Calc().Addr, "");
  EXPECT_EQ(Fields(), "0 0  100000 ");
  Type(Calc().L16, "FF");
  EXPECT_EQ(Calc().L10->GetValue(), "255");
  Type(Calc().L10, "16777217");
  EXPECT_EQ(Calc().L16->GetValue(), "1");

  Type(Calc().Page, "28G");
  EXPECT_EQ(Utf8(Calc().Error()), "Not a number: \"28G\"");
  EXPECT_EQ(Fields(), "28G 0  100000 ");
  Type(Calc().Page, "284");
  EXPECT_EQ(Calc().Error(), "");
  Type(Calc().L10, "9999999999");
  EXPECT_EQ(Utf8(Calc().Error()), "Number too large: \"9999999999\"");
}

TEST_F(CalculatorDesk, ShowsTheAddressInTheHexView) {
  const auto doubleClick = [&] { Mouse(*Calc().AdFF, wxEVT_LEFT_DCLICK); };
  Type(Calc().AdFF, "1234");
  doubleClick();  // no dump is open
  EXPECT_EQ(Title(), "Tarvelo - Info");
  main->Dumps().OpenF(WriteDump("dump.bin"));
  Type(Calc().AdFF, "1234");
  doubleClick();
  EXPECT_EQ(Title(), "Tarvelo - Hex view");
  Type(Calc().AdFF, "100000");
  doubleClick();
  EXPECT_EQ(script.TakeSaid(), "!The data lies outside the image.");
}

TEST_F(CalculatorDesk, TickOfItsMenuEntryFollowsIt) {
  EXPECT_TRUE(Item(Id::Calc166_Menu)->IsChecked());
  Choose(Id::Calc166_Menu);
  EXPECT_EQ(main->AddressCalculator(), nullptr);
  EXPECT_FALSE(Item(Id::Calc166_Menu)->IsChecked());
  Choose(Id::Calc166_Menu);
  Choose(Id::ExitM);  // with the calculator open
  main = nullptr;
}

}  // namespace
}  // namespace tarvelo
