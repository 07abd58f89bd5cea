#include "patch/patch_document.h"
#include "shell/hex_desk.h"
#include "shell/patch/patch_editor.h"
#include "shell/patch/patch_panel.h"

namespace tarvelo {
namespace {

// The cursor is at the start of 0x80 erased bytes.
class HexEditDesk : public HexDesk {
 protected:
  static constexpr Offset place = 0x700;

  HexEditDesk() {
    std::vector<std::uint8_t> bytes = DemoImage();
    std::fill_n(bytes.begin() + place, 0x80, 0xFF);
    OpenBytes("edit.bin", bytes, Id::HexView);
    Panel().Go(place, 0);
  }

  [[nodiscard]] std::string BytesAt(Offset offset, Offset count) const {
    return AsHex(Image().Region(offset, count));
  }
  [[nodiscard]] bool IsChanged(Offset offset) const { return Open().Edits().IsChanged(Image(), offset); }
  [[nodiscard]] std::string PatchText() const { return Patch().Patch().Document(); }
  [[nodiscard]] bool CanRun(int id) { return Panel().Commands()->CanRun(id); }
};

TEST_F(HexEditDesk, TakesDigits) {
  Type(U"1");
  EXPECT_EQ(BytesAt(place, 2), "1F FF");
  EXPECT_EQ(Selected(), (Region{place, 0}));
  EXPECT_EQ(Status(10), "F");
  Type(U"2aB");
  EXPECT_EQ(BytesAt(place, 3), "12 AB FF");
  EXPECT_EQ(Selected(), (Region{place + 2, 0}));
  Type(U"g Ф");  // not digits
  Type(U"1", wxMOD_CONTROL);
  Type(U"2", wxMOD_ALT);
  EXPECT_EQ(BytesAt(place, 3), "12 AB FF");
  Type(U"3");
  Press(WXK_RIGHT);  // the next digit is the first of another byte
  Type(U"4");
  EXPECT_EQ(BytesAt(place, 5), "12 AB 3F 4F FF");
  EXPECT_TRUE(IsChanged(place + 3));
  EXPECT_FALSE(IsChanged(place + 4));
  EXPECT_TRUE(script.said.empty());
}

TEST_F(HexEditDesk, TakesText) {
  main->Run(Id::SwitchSide);
  Type(U"A Я中Ä\u0098");  // the phone does not have the last three characters
  Type(U"€", wxMOD_ALTGR);
  EXPECT_EQ(BytesAt(place, 5), "41 20 DF 88 FF");
  main->Run(Id::SwitchSide);
  Type(U"0");
  EXPECT_EQ(BytesAt(place + 4, 1), "0F");
  EXPECT_EQ(Information().substr(0, 14), "Offset: 000704");
}

TEST_F(HexEditDesk, TypesOverTheStartOfTheSelection) {
  Panel().Go(place + 4, 0);
  Press(WXK_LEFT, wxMOD_SHIFT);
  Press(WXK_LEFT, wxMOD_SHIFT);
  EXPECT_EQ(Selected(), (Region{place + 2, 3}));
  Type(U"00");
  EXPECT_EQ(BytesAt(place, 5), "FF FF 00 FF FF");
  EXPECT_EQ(Selected(), (Region{place + 3, 0}));
  const Offset last = End() - 1;
  Panel().Go(last, 0);
  Type(U"1234");
  EXPECT_EQ(Image().ByteHex(last), "34");  // the length of the image stays
  EXPECT_EQ(End(), last + 1);
}

TEST_F(HexEditDesk, UndoesByteByByte) {
  EXPECT_FALSE(CanRun(Id::Undo));
  Type(U"12F3FF5");  // the first digit of the second byte changes nothing; the third byte stays
  EXPECT_EQ(BytesAt(place, 4), "12 F3 FF 5F");
  Panel().Go(0x1000, 5);
  main->Run(Id::Undo);
  EXPECT_EQ(Selected(), (Region{place + 3, 0}));
  EXPECT_EQ(BytesAt(place, 4), "12 F3 FF FF");
  main->Run(Id::Undo);
  EXPECT_EQ(BytesAt(place, 2), "12 FF");
  main->Run(Id::Undo);
  EXPECT_EQ(BytesAt(place, 2), "FF FF");
  EXPECT_FALSE(IsChanged(place));
  EXPECT_FALSE(CanRun(Id::Undo));
  for (int i = 0; i < 3; ++i) main->Run(Id::Redo);
  EXPECT_EQ(BytesAt(place, 4), "12 F3 FF 5F");
  EXPECT_FALSE(CanRun(Id::Redo));
  Type(U"7");
  main->Run(Id::Undo);
  Type(U"6");  // a first digit again: no byte is left half typed
  EXPECT_EQ(BytesAt(place + 3, 1), "6F");
}

TEST_F(HexEditDesk, KeepsTheMarkUntilTheDumpIsClosed) {
  Type(U"F");
  EXPECT_EQ(Status(10), "");  // nothing has changed
  Type(U"0");
  EXPECT_EQ(Status(10), "F");
  Choose(Id::Save);
  main->Run(Id::Undo);
  EXPECT_EQ(Status(10), "F");
  main->Run(Id::Redo);
  EXPECT_FALSE(main->Dumps().WasChanged());
  main->Dumps().OpenF(folder / "edit.bin");
  EXPECT_EQ(Status(10), "");
  EXPECT_EQ(BytesAt(place, 1), "F0");  // the saved value
  EXPECT_FALSE(Open().Edits().CanUndo());
  EXPECT_FALSE(IsChanged(place));
}

TEST_F(HexEditDesk, PastesHex) {
  Copy("01 02,03\r\n0a0B");
  main->Run(Id::Paste);
  EXPECT_EQ(BytesAt(place, 6), "01 02 03 0A 0B FF");
  EXPECT_EQ(Selected(), (Region{place + 5, 0}));
  main->Run(Id::Undo);
  EXPECT_EQ(BytesAt(place, 5), "FF FF FF FF FF");
  Panel().Go(End() - 4, 0);
  EXPECT_EQ(Said(Id::Paste), "!The data lies outside the image.");
  Copy("01 02 x" + std::string(1000, 'x'));
  EXPECT_EQ(Said(Id::Paste), "!Not a number: \"01 02 " + std::string(54, 'x') + "...\"");
  EXPECT_FALSE(Open().Edits().CanUndo());
}

TEST_F(HexEditDesk, CopiesAndPastesTextOnItsSide) {
  main->Run(Id::SwitchSide);
  Copy("Cafe Я");
  main->Run(Id::Paste);
  EXPECT_EQ(BytesAt(place, 7), "43 61 66 65 20 DF FF");
  Copy("something else");
  Panel().Go(place, 6);
  Canvas().SetFocus();
  Settle();
  Key(Canvas(), 'C', wxMOD_CONTROL);
  EXPECT_EQ(ClipboardText(), "Cafe Я");
  Copy("HOWDY");
  main->Run(Id::Paste);
  EXPECT_EQ(BytesAt(place, 5), "48 4F 57 44 59");
  Copy("A中");
  EXPECT_EQ(Said(Id::Paste), "!The phone has no byte for a character of this text: \"A中\"");
  main->Run(Id::SwitchSide);
  Copy("Cafe");
  main->Run(Id::Paste);
  EXPECT_EQ(BytesAt(place + 5, 2), "CA FE");
}

TEST_F(HexEditDesk, FillsTheSelection) {
  EXPECT_FALSE(CanRun(Id::FillBytes));
  Panel().Go(place, 0x20);
  EXPECT_EQ(Said(Id::FillBytes, "5"), "ask Fill with byte: FF");
  EXPECT_EQ(BytesAt(place + 0x1E, 3), "05 05 FF");
  EXPECT_EQ(Selected(), (Region{place, 0x20}));
  for (const std::string answer : {"100", "x"})
    EXPECT_EQ(Said(Id::FillBytes, answer), "ask Fill with byte: FF | !Not a number: \"" + answer + "\"");
  Said(Id::FillBytes);  // cancelled
  main->Run(Id::Undo);
  EXPECT_EQ(BytesAt(place, 1), "FF");
  EXPECT_FALSE(Open().Edits().CanUndo());
}

TEST_F(HexEditDesk, MakesPatches) {
  EXPECT_EQ(Said(Id::ChangesToPatch, "Greeting"), "iNothing was changed.");
  Copy("48 69 FF FF 21");
  main->Run(Id::Paste);
  Panel().Go(place + 0x40, 0);
  Type(U"0102");
  Panel().Go(place + 0x80, 8);  // none of the changes is selected
  EXPECT_EQ(Said(Id::SelectedToPatch, "Greeting"), "iChanges in this patch: 0 / 2");
  Panel().Go(place + 1, 2);
  EXPECT_EQ(
      Said(Id::SelectedToPatch, "Greeting"),
      "ask Name of the patch: 000701 | [Tarvelo - Was added patch \"Greeting\"]Changes in this patch: 1 / 2"
      "\n\n;Greeting\n\n000701: FF 69");
  EXPECT_EQ(Status(9), "P");
  // All of them, whatever is selected; what the patch holds already is not added again.
  EXPECT_EQ(
      Said(Id::ChangesToPatch, "All"),
      "ask Name of the patch: 000700 - 000741 | [Tarvelo - Was added patch \"All\"]Changes in this patch: 2 "
      "/ 2\n\n;All\n\n000700: FF 48\n000704: FF 21\n000740: FFFF 0102");
  const std::string text = PatchText();
  EXPECT_EQ(Said(Id::ChangesToPatch, "Again"), "iThe patch holds these changes already.");
  EXPECT_EQ(PatchText(), text);
}

TEST_F(HexEditDesk, PatchNeverContradictsItself) {
  Type(U"AA");
  Said(Id::ChangesToPatch, "One");
  Patch().Patch().SetText(Patch().Patch().GetText() + "000710: FF 55 ;mine\r\n");
  Panel().Go(place, 0);
  Type(U"BBCC");
  const std::string before = PatchText();
  EXPECT_EQ(Said(Id::ChangesToPatch, "Two"),
            "?Lines of the patch change the same bytes in another way. Replace these lines ?");
  EXPECT_EQ(PatchText(), before);
  script.confirm = true;
  Panel().Go(place + 0x10, 0);
  Type(U"66");
  EXPECT_TRUE(Said(Id::ChangesToPatch, "Two")
                  .ends_with("Changes in this patch: 2 / 2\n"
                             "Lines of the patch that were replaced: 2\n\n;Two\n\n"
                             "000701: FF CC"));
  std::string expected = before;
  expected.replace(expected.find("FF AA"), 5, "FF BB");
  expected.replace(expected.find("FF 55"), 5, "FF 66");
  EXPECT_EQ(PatchText(), expected + PatchBlock("Two", "000701: FF CC"));
  Patch().Patch().Undo();  // one step
  EXPECT_EQ(PatchText(), before);
  Patch().Patch().Redo();

  // The original takes the patch.
  const std::string patch = PatchFile("C55", PatchText());
  const std::vector<std::uint8_t> edited = AllBytes();
  while (Open().Undo()) {
  }
  script.file = folder.Write("own.qpt", patch);
  EXPECT_TRUE(Said(Id::ApplyPatch).find("The patch was applied. Number of changes: 3") != std::string::npos);
  EXPECT_EQ(AllBytes(), edited);
}

// The earlier findings are gone: every panel searches again.
TEST_F(HexEditDesk, IsSeenByTheOtherPanels) {
  for (const int panel : std::initializer_list<int>{eeprom, pictures, ringtones, Id::HexView}) Choose(panel);
  const std::string figures = Status(4) + Status(6) + Status(7);
  for (const char* byte : {"A5", "FF", "00"}) {
    Choose(Id::HexView);
    main->Run(Id::SelectAll);
    Said(Id::FillBytes, byte);
    EXPECT_TRUE(Said(Id::ChangesToPatch).starts_with("!Changes to patch: "));  // too long for one patch
    for (const int panel : std::initializer_list<int>{eeprom, pictures, ringtones}) {
      Choose(panel);
      main->Panels().Visible()->Window().Refresh();
      main->Panels().Visible()->Window().Update();
      Settle();
    }
    EXPECT_EQ(Status(4), "");
    EXPECT_EQ(Status(6), "0 / 0");
    EXPECT_EQ(Status(7), "");
  }
  while (Open().Undo()) {
  }
  for (const int panel : std::initializer_list<int>{eeprom, pictures, ringtones}) Choose(panel);
  EXPECT_EQ(Status(4) + Status(6) + Status(7), figures);
}

}  // namespace
}  // namespace tarvelo
