// The programs that open the dump, and the address calculator.
#include <wx/textctrl.h>

#include "shell/calculator/calc166.h"
#include "shell/desk.h"
#include "shell/services/external_tools.h"

namespace tarvelo {
namespace {

TEST(ExternalTools, MakesCommandLines) {
  for (const auto& [command, dump, expected] :
       {std::tuple{"hw.exe \"%1\"", "my dumps/a.bin", "hw.exe \"my dumps/a.bin\" /GOTO:0x01A2B4 /SELECT:20"},
        {"hw.exe %1", "my dumps/a.bin", "hw.exe \"my dumps/a.bin\" /GOTO:0x01A2B4 /SELECT:20"},
        {"hw.exe %1", "a.bin", "hw.exe a.bin /GOTO:0x01A2B4 /SELECT:20"},
        {"hex --at=%2 --select %3 %1", "%2.bin", "hex --at=0x01A2B4 --select 20 %2.bin"}})
    EXPECT_EQ(EditorCommand(command, dump, 0x1A2B4, 20), expected);
  EXPECT_EQ(EditorScript("a b.bin", 0x1A2B4, 0x10),
            "CloseAll\r\nOpen \"a b.bin\"\r\nGoto 0x01A2B4\r\nBlock 0x01A2B4 0x1A2C3\r\n");
  EXPECT_EQ(EditorScript("a.bin", 0x1234567, 0), "CloseAll\r\nOpen \"a.bin\"\r\nGoto 0x1234567\r\n");
}

class ToolsDesk : public Desk {
 protected:
  // Restarts the program with this hex editor and opens a dump of 1 MiB.
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
  for (const Offset outside : {-1, 0x100000}) {
    ShowBl(outside, 1);
    EXPECT_EQ(script.TakeSaid(), "!The data lies outside the image.");
  }
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

class CalculatorDesk : public Desk {
 protected:
  Calc166& OpenCalculator() {
    Choose(Id::Calc166_Menu);
    return *main->AddressCalculator();
  }
  // Types a text key by key.
  static void Type(wxTextCtrl* field, const std::string& text) {
    field->SetFocus();
    if (text.empty()) field->SetValue("");
    for (std::size_t i = 1; i <= text.size(); ++i) field->SetValue(text.substr(0, i));
  }
  // Page, offset, address, address in the fullflash.
  [[nodiscard]] std::string Fields() const {
    std::string all;
    for (wxTextCtrl* field : {calc.Page, calc.Offs, calc.Addr, calc.AdFF})
      all += Utf8(field->GetValue()) + " ";
    return all;
  }

  Calc166& calc = OpenCalculator();
};

TEST_F(CalculatorDesk, FieldsFollowEachOther) {
  struct Case {
    wxTextCtrl* field;
    const char* text;
    const char* fields;
  };
  const auto expect = [this](std::initializer_list<Case> cases) {
    for (const Case& step : cases) {
      Type(step.field, step.text);
      EXPECT_EQ(Fields(), step.fields) << step.text;
    }
  };
  expect({{calc.Page, "284", "284 0 A10000 A10000 "},
          {calc.Offs, "2345", "284 2345 A12345 A12345 "},
          {calc.Addr, "A0123456", "48 3456 A0123456 123456 "},
          {calc.Page, "3FFFFFF", "3FFFFFF 3456 FFF456 FFF456 "},  // FFFFFFC000
          {calc.Page, "10", "10 3456 43456 43456 "},
          {calc.Offs, "40010", "20 40010 80010 80010 "},  // 10 pages and 10 bytes, not more with every key
          {calc.Offs, "400", "10 400 40400 40400 "},
          {calc.Offs, "4001", "11 4001 44001 44001 "},
          {calc.Page, "2", "2 1 8001 8001 "},  // the carry does not count again
          {calc.AdFF, "80000001", "0 1 1 80000001 "}});
  Type(calc.AdFF, "A12345");
  main->Dumps().OpenF(WriteDump("dump.bin"));  // 1 MiB: from F00000 on
  EXPECT_EQ(Fields(), "284 2345 A12345 B12345 ");
  expect({{calc.AdFF, "1234", "3C0 1234 F01234 1234 "},
          {calc.Offs, "4001", "3C1 4001 F04001 4001 "},
          {calc.Addr, "", "0 0  100000 "},
          {calc.Page, "28G", "28G 0 A0000 1A0000 "}});  // as it was at 28
  EXPECT_EQ(Utf8(calc.Error()), "Not a number: \"28G\"");
  Type(calc.Page, "284");
  EXPECT_EQ(calc.Error(), "");
  Type(calc.L16, "FF");
  EXPECT_EQ(calc.L10->GetValue(), "255");
  Type(calc.L10, "16777217");
  EXPECT_EQ(calc.L16->GetValue(), "1");
  Type(calc.L10, "9999999999");
  EXPECT_EQ(Utf8(calc.Error()), "Number too large: \"9999999999\"");
}

TEST_F(CalculatorDesk, MarksTheFieldThatIsWrong) {
  Type(calc.Offs, "H");
  const wxColour marked = calc.Offs->GetForegroundColour();
  for (const auto& [field, text] : {std::pair(calc.Page, "12"), {calc.L16, "FF"}}) {
    Type(field, text);
    EXPECT_EQ(Utf8(calc.Error()), "Not a number: \"H\"");
    EXPECT_EQ(calc.Offs->GetForegroundColour(), marked);
    EXPECT_NE(field->GetForegroundColour(), marked);
  }
  Type(calc.Addr, "1");  // replaces it
  EXPECT_EQ(calc.Error(), "");
  EXPECT_NE(calc.Offs->GetForegroundColour(), marked);
}

TEST_F(CalculatorDesk, TakesHexadecimalDigitsAlone) {
  const auto type = [&](wxChar character, int code) {
    wxKeyEvent event(wxEVT_CHAR);
    event.m_uniChar = character;
    event.m_keyCode = code;
    event.SetEventObject(calc.Page);
    return calc.Page->ProcessWindowEvent(event);  // true: the field does not get it
  };
  for (const wxChar character : {L'я', L'é', L'α', L'z', L'Z', L'.'})
    for (const int code : {0, static_cast<int>(character)}) EXPECT_TRUE(type(character, code));
  EXPECT_EQ(calc.Page->GetValue(), "");
  for (const wxChar character : {L'1', L'F'}) EXPECT_FALSE(type(character, static_cast<int>(character)));
  EXPECT_FALSE(type(WXK_NONE, WXK_LEFT));
  type(L'b', 'b');
  EXPECT_EQ(calc.Page->GetValue(), "B");
}

TEST_F(CalculatorDesk, ShowsTheAddressInTheHexView) {
  const auto doubleClick = [&](const char* address) {
    Type(calc.AdFF, address);
    Mouse(*calc.AdFF, wxEVT_LEFT_DCLICK);
  };
  doubleClick("1234");  // no dump is open
  EXPECT_EQ(Title(), "Tarvelo - Info");
  main->Dumps().OpenF(WriteDump("dump.bin"));
  doubleClick("1234");
  EXPECT_EQ(Title(), "Tarvelo - Hex view");
  doubleClick("100000");
  EXPECT_EQ(script.TakeSaid(), "!The data lies outside the image.");

  for (const bool isOpen : {true, false}) {
    EXPECT_EQ(Item(Id::Calc166_Menu)->IsChecked(), isOpen);
    EXPECT_EQ(main->AddressCalculator() != nullptr, isOpen);
    Choose(Id::Calc166_Menu);
  }
  Choose(Id::ExitM);  // with the calculator open
  main = nullptr;
}

}  // namespace
}  // namespace tarvelo
