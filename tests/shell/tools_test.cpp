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
  EXPECT_EQ(Fields(), "3C1 4001 F04001 4001 ");
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

// Typed key by key.
TEST_F(CalculatorDesk, TypedFieldIsNeverRewritten) {
  const auto typeKeys = [&](wxTextCtrl* field, const std::string& keys) {
    for (std::size_t i = 1; i <= keys.size(); ++i) Type(field, keys.substr(0, i).c_str());
  };
  typeKeys(Calc().Addr, "A0123456");
  EXPECT_EQ(Fields(), "48 3456 A0123456 123456 ");
  typeKeys(Calc().Page, "3FFFFFF");  // FFFFFFC000
  EXPECT_EQ(Fields(), "3FFFFFF 3456 FFF456 FFF456 ");
  typeKeys(Calc().Page, "10");
  typeKeys(Calc().Offs, "40010");  // 10 pages and 10 bytes, not more with every key
  EXPECT_EQ(Fields(), "20 40010 80010 80010 ");
  typeKeys(Calc().Offs, "400");
  EXPECT_EQ(Fields(), "10 400 40400 40400 ");
  typeKeys(Calc().Offs, "4001");
  typeKeys(Calc().Page, "12");  // the carry does not count again
  EXPECT_EQ(Fields(), "12 1 48001 48001 ");
  typeKeys(Calc().AdFF, "80000001");
  EXPECT_EQ(Fields(), "0 1 1 80000001 ");
}

TEST_F(CalculatorDesk, MarksTheFieldThatIsWrong) {
  Type(Calc().Offs, "H");
  const wxColour marked = Calc().Offs->GetForegroundColour();
  for (const auto& [field, text] : {std::pair(Calc().Page, "12"), {Calc().L16, "FF"}}) {
    Type(field, text);
    EXPECT_EQ(Utf8(Calc().Error()), "Not a number: \"H\"");
    EXPECT_EQ(Calc().Offs->GetForegroundColour(), marked);
    EXPECT_NE(field->GetForegroundColour(), marked);
  }
  Type(Calc().Addr, "1");  // replaces it
  EXPECT_EQ(Calc().Error(), "");
  EXPECT_NE(Calc().Offs->GetForegroundColour(), marked);
}

TEST_F(CalculatorDesk, TakesHexadecimalDigitsAlone) {
  const auto type = [&](wxChar character, int code) {
    wxKeyEvent event(wxEVT_CHAR);
    event.m_uniChar = character;
    event.m_keyCode = code;
    event.SetEventObject(Calc().Page);
    return Calc().Page->ProcessWindowEvent(event);  // true: the field does not get it
  };
  for (const wxChar character : {L'я', L'é', L'α', L'z', L'.'}) {
    EXPECT_TRUE(type(character, 0));
    EXPECT_TRUE(type(character, static_cast<int>(character)));
  }
  EXPECT_EQ(Calc().Page->GetValue(), "");
  for (const wxChar character : {L'1', L'F'}) EXPECT_FALSE(type(character, static_cast<int>(character)));
  EXPECT_FALSE(type(WXK_NONE, WXK_LEFT));
  type(L'b', 'b');
  EXPECT_EQ(Calc().Page->GetValue(), "B");
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
