// The tools around the bytes of the hex view: values, find bar, look, the other dump.
#include <wx/button.h>
#include <wx/dataview.h>

#include "shell/compare/compare_panel.h"
#include "shell/hex/find_bar.h"
#include "shell/hex/other_pane.h"
#include "shell/hex/value_panel.h"
#include "shell/hex_desk.h"

namespace tarvelo {
namespace {

// 16 KiB of zeros at FFC000 with a pointer at 10 to 1234, and a text behind it.
class HexToolsDesk : public HexDesk {
 protected:
  HexToolsDesk() { OpenBytes("tools.bin", Content(), Id::HexView); }

  static std::vector<std::uint8_t> Content() {
    std::vector<std::uint8_t> bytes(0x4000);
    const std::uint8_t placed[] = {0x34, 0x12, 0xFF, 0x03, 'A', 'b', 'A', 'b', 'A', 'b', 0};
    std::ranges::copy(placed, bytes.begin() + 0x10);
    return bytes;
  }

  // Chooses the value with this name and returns its text.
  std::string Value(const std::string& name) {
    const auto& all = Panel().Values().Values();
    const auto found = std::ranges::find(all, name, &HexValue::name);
    Panel().Values().List().SelectRow(static_cast<unsigned>(found - all.begin()));
    return found == all.end() ? "none" : found->text;
  }
  [[nodiscard]] std::string BytesAt(Offset at, Offset count) { return AsHex(Image().Region(at, count)); }
  // Asks for bytes or a text in the find bar.
  void Ask(QueryKind kind, const std::string& text, const std::string& replacement = {}) {
    Panel().Bar().Kinds().SetSelection(static_cast<int>(kind));
    Panel().Bar().WantedField().SetValue(Wx(text));
    Panel().Bar().ReplacementField().SetValue(Wx(replacement));
  }
  // Runs a command of the bar. Returns what is said.
  std::string SaidBy(const std::function<void()>& run) {
    script.said.clear();
    run();
    return script.TakeSaid();
  }
};

TEST_F(HexToolsDesk, ShowsValuesAndChangesThem) {
  Resize(main->FromDIP(wxSize(1000, 600)));
  EXPECT_FALSE(Panel().Values().IsShown());  // they would cover a part of the rows
  main->Run(Id::ShowValues);
  EXPECT_TRUE(Panel().Values().IsShown());
  Panel().Go(0x10, 0);
  EXPECT_EQ(Value("page pointer"), "3FF:1234  -> 001234");
  EXPECT_EQ(Said(Id::EditValue, "3FF:10"), "ask New value: 3FF:1234");
  EXPECT_EQ(BytesAt(0x10, 4), "10 00 FF 03");
  EXPECT_EQ(Value("page pointer"), "3FF:0010  -> 000010");
  main->Run(Id::Undo);
  EXPECT_EQ(BytesAt(0x10, 4), "34 12 FF 03");
  Value("uint8");
  EXPECT_EQ(SaidAtLast(Id::EditValue, "256"), "!The value does not fit here: \"256\"");
  EXPECT_EQ(SaidAtLast(Id::EditValue, "x"), "!This is no value of this kind: \"x\"");
  Value("Instruction");
  EXPECT_EQ(Said(Id::EditValue), "!This value can't be changed here.");
  Value("page pointer");
  Panel().Values().Follow_Click();
  EXPECT_EQ(Selected().offset, 0x1234);
  EXPECT_EQ(Value("page pointer"), "000:0000");
  main->Run(Id::ShowValues);
  EXPECT_FALSE(Panel().Values().IsShown());
  EXPECT_FALSE(Panel().Commands()->CanRun(Id::EditValue));
  Restart();
  OpenBytes("tools.bin", Content(), Id::HexView);
  EXPECT_FALSE(Panel().Values().IsShown());  // remembered
  Resize(main->FromDIP(wxSize(1000, 600)));
  main->Run(Id::ShowValues);
  EXPECT_TRUE(Panel().Values().IsShown());
  Resize(main->GetMinSize());  // no room
  EXPECT_FALSE(Panel().Values().IsShown());
}

TEST_F(HexToolsDesk, FindsAndReplaces) {
  FindBar& bar = Panel().Bar();
  main->Run(Id::Find);
  EXPECT_TRUE(bar.IsShown());
  EXPECT_EQ(bar.Kinds().GetSelection(), 0);  // digits
  main->Run(Id::SwitchSide);
  main->Run(Id::Find);
  EXPECT_EQ(Utf8(bar.Kinds().GetStringSelection()), "Windows-1251");
  Ask(QueryKind::Windows1251, "Ab");
  bar.onNext();
  EXPECT_EQ(Selected(), (Region{0x14, 2}));
  Key(bar, WXK_ESCAPE);
  EXPECT_FALSE(bar.IsShown());
  main->Run(Id::Next);  // still asks for the same
  EXPECT_EQ(Selected(), (Region{0x16, 2}));
  Ask(QueryKind::Windows1251, "Ab", "XY");
  bar.onReplace();  // and goes on
  EXPECT_EQ(BytesAt(0x14, 6), "41 62 58 59 41 62");
  EXPECT_EQ(Selected(), (Region{0x18, 2}));
  bar.onReplaceAll();
  EXPECT_EQ(BytesAt(0x14, 6), "58 59 58 59 58 59");
  main->Run(Id::Undo);  // one step
  EXPECT_EQ(BytesAt(0x14, 6), "41 62 58 59 41 62");
  Ask(QueryKind::Digits, "41 ??", "?? 63");
  bar.onReplaceAll();
  EXPECT_EQ(BytesAt(0x14, 6), "41 63 58 59 41 63");
  Ask(QueryKind::Digits, "41 63", "41");
  EXPECT_EQ(SaidBy(bar.onReplace), "!The replacement must have as many bytes as what it replaces: 1 / 2");
  Ask(QueryKind::Number16Little, "99999");
  EXPECT_EQ(SaidBy(bar.onNext), "!Number too large: \"99999\"");
  Ask(QueryKind::Number16Little, "x");
  EXPECT_EQ(SaidBy(bar.onPrevious), "!This is no value of this kind: \"x\"\n\nint16 LE");
  Ask(QueryKind::PagePointer, "FFD234");
  bar.onPrevious();
  EXPECT_EQ(Selected(), (Region{0x10, 4}));
  Ask(QueryKind::Digits, "41 63");
  bar.onAll();
  EXPECT_EQ(Title(), "Tarvelo - Search results");
  EXPECT_EQ(List().RowCount(), 2u);
}

TEST_F(HexToolsDesk, SelectsAndCopiesAndWrites) {
  EXPECT_EQ(Said(Id::SelectRegion, "10+4"), "ask First-last byte, or first+size, hexadecimal: 000000-000000");
  EXPECT_EQ(Selected(), (Region{0x10, 4}));
  EXPECT_TRUE(Information().starts_with("Selected bytes: 000010-000013 (16-19), 4h (4)    "))
      << Information();
  EXPECT_EQ(SaidAtLast(Id::SelectRegion, "10-4000"), "!The data lies outside the image.");
  EXPECT_EQ(Copied(Id::CopyCArray), "const unsigned char data[4] = {\n  0x34, 0x12, 0xFF, 0x03,\n};\n");
  Open().Write(0x11, std::vector<std::uint8_t>{0x56});
  EXPECT_EQ(Copied(Id::CopyPatchLines), "000010: 3412FF03 3456FF03\n");
  EXPECT_EQ(Copied(Id::CopyAddress), "3FF:0010");
  EXPECT_EQ(Copied(Id::CopyPagePointer), "10 00 FF 03");
  EXPECT_EQ(Copied(Id::CopySegmentPointer), "10 C0 FF 00");
  Press(WXK_ESCAPE);
  EXPECT_EQ(Selected(), (Region{0x10, 0}));
  script.file = folder.Write("piece.bin", std::vector<std::uint8_t>{7, 8, 9});
  Said(Id::WriteFileHere);
  EXPECT_EQ(Selected(), (Region{0x10, 3}));
  EXPECT_EQ(BytesAt(0x10, 4), "07 08 09 03");
  Panel().Go(End() - 2, 0);
  EXPECT_EQ(SaidAtLast(Id::WriteFileHere), "!The data lies outside the image.");
}

TEST_F(HexToolsDesk, StepsThroughChangesAndNames) {
  EXPECT_EQ(Said(Id::NextChange), "iNothing was changed.");
  for (const Offset at : {0x20, 0x30}) Open().Write(at, std::vector<std::uint8_t>{1, 2});
  EXPECT_EQ(Said(Id::NextName), "iNo place in the fullflash has a name.");
  for (const Offset at : {0x100, 0x200}) Open().NamePlace(at, "Name", "");
  for (const auto& [id, to] : {std::pair(Id::NextChange, Region{0x20, 2}),
                               {Id::NextChange, {0x30, 2}},
                               {Id::NextChange, {0x20, 2}},
                               {Id::PreviousChange, {0x30, 2}},
                               {Id::PreviousChange, {0x20, 2}},
                               {Id::NextName, {0x100, 0}},
                               {Id::NextName, {0x200, 0}},
                               {Id::NextName, {0x100, 0}},
                               {Id::PreviousName, {0x200, 0}},
                               {Id::PreviousName, {0x100, 0}}}) {
    EXPECT_EQ(Said(id), "");
    EXPECT_EQ(Selected(), to);
  }
}

TEST_F(HexToolsDesk, RemembersItsLook) {
  const int usual = Canvas().GetFont().GetPointSize();
  main->Run(Id::FirstColumns);  // 8 bytes
  main->Run(Id::FirstEncoding + 1);
  main->Run(Id::ZoomIn);
  Restart();
  OpenBytes("tools.bin", Content(), Id::HexView);
  EXPECT_EQ(Canvas().BytesInRow(), 8);
  EXPECT_EQ(Canvas().Encoding(), TextEncoding::Utf16Little);
  EXPECT_EQ(Canvas().GetFont().GetPointSize(), usual + 1);
  wxMouseEvent wheel(wxEVT_MOUSEWHEEL);
  wheel.m_wheelRotation = -240;
  wheel.m_wheelDelta = 120;
  wheel.SetControlDown(true);
  Canvas().ProcessWindowEvent(wheel);
  EXPECT_EQ(Canvas().GetFont().GetPointSize(), usual - 1);
  EXPECT_EQ(Canvas().TopRow(), 0);
  Panel().Go(0x1001, 0);
  Press(WXK_HOME);
  EXPECT_EQ(Selected().offset, 0x1000);
  Press(WXK_TAB);
  EXPECT_TRUE(Canvas().CursorInText());
  Type(U"Я");
  EXPECT_EQ(BytesAt(0x1000, 3), "2F 04 00");
  Copy("AB");
  main->Run(Id::Paste);
  EXPECT_EQ(BytesAt(0x1002, 4), "41 00 42 00");
  Press(WXK_TAB, wxMOD_SHIFT);
  EXPECT_FALSE(Canvas().CursorInText());
  main->Run(Id::FirstColumns + 3);  // as many as fit
  EXPECT_EQ(Canvas().BytesInRow() % 4, 0);
  EXPECT_EQ(Canvas().GetScrollThumb(wxHORIZONTAL),
            Canvas().GetScrollRange(wxHORIZONTAL));  // no more than fit
  EXPECT_EQ(Canvas().Map(), nullptr);                // nobody has asked for the map
  main->Run(Id::MapColours);
  EXPECT_NE(Canvas().Map(), nullptr);
  main->Run(Id::MapColours);
  EXPECT_EQ(Canvas().Map(), nullptr);
}

TEST_F(HexToolsDesk, ShowsTheOtherDumpInStep) {
  std::vector<std::uint8_t> bytes = Content();
  bytes[0x2000] = 1;
  script.file = folder.Write("second.bin", bytes);
  main->Run(Id::CompareWith);
  Choose(Id::HexView);
  Settle();
  HexCanvas& other = Panel().Other().Canvas();
  EXPECT_TRUE(Panel().Other().IsShown());
  Panel().Go(0x2000, 4);
  EXPECT_EQ(other.TopRow(), Canvas().TopRow());
  EXPECT_EQ(other.Selection(), Selected());
  Key(other, WXK_PAGEDOWN);  // the other way round
  EXPECT_EQ(Canvas().Selection(), other.Selection());
  EXPECT_EQ(other.TopRow(), Canvas().TopRow());
  const std::vector<std::uint8_t> before = AllBytes();
  wxKeyEvent typed(wxEVT_CHAR);
  typed.m_uniChar = '1';
  other.ProcessWindowEvent(typed);  // only shows
  EXPECT_EQ(AllBytes(), before);
  main->Run(Id::ShowOther);
  EXPECT_FALSE(Panel().Other().IsShown());
  main->Run(Id::ShowOther);
  main->Dumps().CloseFF();
  EXPECT_FALSE(other.HasImage());
}

}  // namespace
}  // namespace tarvelo
