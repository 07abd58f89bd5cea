#include "core/file.h"
#include "shell/hex_desk.h"
#include "shell/patch_editor.h"
#include "shell/patch_panel.h"

namespace tarvelo {
namespace {

class HexEditDesk : public HexDesk {
 protected:
  [[nodiscard]] std::string BytesAt(Offset offset, Offset count) const {
    return AsHex(Image().Region(offset, count));
  }
  [[nodiscard]] bool IsChanged(Offset offset) const { return main->Open().edits.IsChanged(Image(), offset); }
  [[nodiscard]] std::string PatchText() const { return main->Patch().Patch().Document(); }

  // Puts the cursor on some bytes, all of which are erased to begin with.
  static constexpr Offset place = 0x700;
  HexEditDesk() {
    std::vector<std::uint8_t> bytes(Image().ff().begin(), Image().ff().end());
    std::fill_n(bytes.begin() + place, 0x80, 0xFF);
    main->OpenF(folder.Write("edit.bin", bytes));
    Choose(HexView);
    Panel().Go(place, 0);
  }
};

TEST_F(HexEditDesk, TakesDigits) {
  Type(U"1");
  EXPECT_EQ(BytesAt(place, 2), "1F FF");
  EXPECT_EQ(Selected(), (ByteRange{place, 0}));
  EXPECT_EQ(Status(10), "F");
  Type(U"2aB");
  EXPECT_EQ(BytesAt(place, 3), "12 AB FF");
  EXPECT_EQ(Selected(), (ByteRange{place + 2, 0}));
  Type(U"g Ф");  // no digits
  Type(U"1", wxMOD_CONTROL);
  Type(U"2", wxMOD_ALT);
  EXPECT_EQ(BytesAt(place, 3), "12 AB FF");
  Type(U"3");
  Press(WXK_RIGHT);  // the digit that follows is another byte's first
  Type(U"4");
  EXPECT_EQ(BytesAt(place, 5), "12 AB 3F 4F FF");
  EXPECT_TRUE(IsChanged(place + 3));
  EXPECT_FALSE(IsChanged(place + 4));
  EXPECT_TRUE(script.said.empty());
}

TEST_F(HexEditDesk, TakesText) {
  main->Run(SwitchSide);
  EXPECT_TRUE(Canvas().CursorInText());
  Type(U"A Я中");  // the last one is no character of the phone's
  Type(U"€", wxMOD_ALTGR);
  EXPECT_EQ(BytesAt(place, 5), "41 20 DF 88 FF");
  main->Run(SwitchSide);
  Type(U"0");
  EXPECT_EQ(BytesAt(place + 4, 1), "0F");
  EXPECT_EQ(Information().substr(0, 14), "Offset: 000704");
}

TEST_F(HexEditDesk, TypesOverTheStartOfTheSelection) {
  Panel().Go(place + 4, 0);
  Press(WXK_LEFT, true);
  Press(WXK_LEFT, true);
  EXPECT_EQ(Selected(), (ByteRange{place + 2, 3}));
  Type(U"00");
  EXPECT_EQ(BytesAt(place, 5), "FF FF 00 FF FF");
  EXPECT_EQ(Selected(), (ByteRange{place + 3, 0}));
  Panel().Go(Image().ffEnd(), 0);
  Type(U"1234");
  EXPECT_EQ(Image().ByteHex(Image().ffEnd()), "34");  // the image keeps its length
  EXPECT_EQ(std::ssize(Image().ff()), Offset{Image().ffEnd()} + 1);
}

TEST_F(HexEditDesk, UndoesByteByByte) {
  EXPECT_FALSE(Panel().Commands()->CanRun(UndoBytes));
  Type(U"12F3FF5");  // the first digit of the second byte changes nothing, the third byte stays
  EXPECT_EQ(BytesAt(place, 4), "12 F3 FF 5F");
  Panel().Go(0x1000, 5);
  main->Run(UndoBytes);
  EXPECT_EQ(BytesAt(place, 4), "12 F3 FF FF");
  EXPECT_EQ(Selected(), (ByteRange{place + 3, 0}));
  main->Run(UndoBytes);
  EXPECT_EQ(BytesAt(place, 2), "12 FF");
  main->Run(UndoBytes);
  EXPECT_EQ(BytesAt(place, 2), "FF FF");
  EXPECT_FALSE(IsChanged(place));
  EXPECT_FALSE(Panel().Commands()->CanRun(UndoBytes));
  EXPECT_EQ(Status(10), "F");
  for (int i = 0; i < 3; ++i) main->Run(RedoBytes);
  EXPECT_EQ(BytesAt(place, 4), "12 F3 FF 5F");
  EXPECT_FALSE(Panel().Commands()->CanRun(RedoBytes));
  Type(U"7");
  main->Run(UndoBytes);
  Type(U"6");  // a first digit again: nothing is left half typed
  EXPECT_EQ(BytesAt(place + 3, 1), "6F");
}

TEST_F(HexEditDesk, KeepsTheMarkUntilTheDumpIsClosed) {
  Type(U"F");
  EXPECT_EQ(Status(10), "");  // nothing has changed
  Type(U"0");
  EXPECT_EQ(Status(10), "F");
  Choose(Save);
  EXPECT_EQ(Status(10), "F");
  EXPECT_EQ(std::filesystem::file_size(folder / "edit.bin"), Image().ff().size());
  main->Run(UndoBytes);
  EXPECT_EQ(Status(10), "F");
  Choose(Info);
  Choose(HexView);
  main->Run(RedoBytes);
  EXPECT_EQ(BytesAt(place, 1), "F0");
  EXPECT_FALSE(main->WasChanged());
  main->OpenF(folder / "edit.bin");
  EXPECT_EQ(Status(10), "");
  EXPECT_EQ(BytesAt(place, 1), "F0");  // as it was saved
  EXPECT_FALSE(main->Open().edits.CanUndo());
  EXPECT_FALSE(IsChanged(place));
  EXPECT_TRUE(script.said.empty());
}

TEST_F(HexEditDesk, PastesHex) {
  main->Copy("01 02,03\r\n0a0B");
  main->Run(PasteHex);
  EXPECT_EQ(BytesAt(place, 6), "01 02 03 0A 0B FF");
  EXPECT_EQ(Selected(), (ByteRange{place + 5, 0}));
  main->Run(UndoBytes);
  EXPECT_EQ(BytesAt(place, 5), "FF FF FF FF FF");
  Panel().Go(Image().ffEnd() - 3, 0);
  main->Run(PasteHex);
  EXPECT_EQ(script.TakeSaid(), "!The data lies outside the image.");
  main->Copy("01 02 x" + std::string(1000, 'x'));
  main->Run(PasteHex);
  EXPECT_EQ(script.TakeSaid(), "!Not a number: \"01 02 " + std::string(54, 'x') + "...\"");
  EXPECT_FALSE(main->Open().edits.CanUndo());
}

TEST_F(HexEditDesk, FillsTheSelection) {
  EXPECT_FALSE(Panel().Commands()->CanRun(FillBytes));
  Panel().Go(place, 0x20);
  script.answer = "5";
  main->Run(FillBytes);
  EXPECT_EQ(script.TakeSaid(), "ask Fill with byte: FF");
  EXPECT_EQ(BytesAt(place + 0x1E, 3), "05 05 FF");
  EXPECT_EQ(Selected(), (ByteRange{place, 0x20}));
  for (const char* answer : {"100", "x", "01 02", "-1"}) {
    script.answer = answer;
    main->Run(FillBytes);
    script.TakeSaid();
    EXPECT_EQ(script.TakeSaid(), "!Not a number: \"" + std::string(answer) + "\"");
  }
  script.answer.clear();
  main->Run(FillBytes);  // cancelled
  main->Run(UndoBytes);
  EXPECT_EQ(BytesAt(place, 1), "FF");
  EXPECT_FALSE(main->Open().edits.CanUndo());
}

TEST_F(HexEditDesk, MakesPatches) {
  script.answer = "Greeting";
  main->Run(ChangesToPatch);
  EXPECT_EQ(script.TakeSaid(), "iNothing was changed.");
  main->Copy("48 69 FF FF 21");
  main->Run(PasteHex);
  Panel().Go(place + 0x40, 0);
  Type(U"0102");
  Panel().Go(place + 0x80, 8);
  main->Run(ChangesToPatch);  // none of them selected
  EXPECT_EQ(script.TakeSaid(), "iNothing was changed.");
  EXPECT_EQ(PatchText(), "");
  Panel().Go(place + 1, 0x40);
  main->Run(ChangesToPatch);
  EXPECT_EQ(script.TakeSaid(), "ask Name of the patch: edit.bin");
  EXPECT_EQ(script.TakeSaid(),
            "[Tarvelo - Was added patch \"Greeting\"];Greeting\n\n"
            "000701: FFFFFFFF 69FFFF21\n000740: FF 01");
  EXPECT_EQ(Status(9), "P");
  script.answer = "All";
  Panel().Go(place, 0);
  main->Run(ChangesToPatch);
  EXPECT_NE(PatchText().find(";All\r\n\r\n000700: FFFFFFFFFF 4869FFFF21\r\n000740: FFFF 0102\r\n"),
            std::string::npos);
  script.said.clear();
  const std::string before = PatchText();
  script.answer.clear();
  main->Run(ChangesToPatch);  // cancelled
  EXPECT_EQ(PatchText(), before);
  main->Status().SetPanel(9, "");
}

// What was found before is no longer there; the panels show what they can of it. Ringtones are sought anew.
TEST_F(HexEditDesk, LeavesTheOtherPanelsAlive) {
  for (const int panel : {EEPROM, Pictures, Ringtones, HexView}) Choose(panel);
  const std::string figures = Status(4) + Status(6);
  for (const char* byte : {"A5", "FF", "00"}) {
    Choose(HexView);
    main->Run(SelectBytes);
    script.answer = byte;
    main->Run(FillBytes);
    for (const int panel : {EEPROM, Pictures, Ringtones}) {
      Choose(panel);
      main->Visible()->Window().Refresh();
      main->Visible()->Window().Update();
      Settle();
    }
    EXPECT_EQ(Status(4) + Status(6), figures);
    EXPECT_EQ(Status(7), "");
  }
  script.TakeSaid();
  EXPECT_EQ(BytesAt(place, 1), "00");
}

TEST_F(HexEditDesk, RefusesPatchesThatAreTooLong) {
  main->Run(SelectBytes);
  script.answer = "A5";
  main->Run(FillBytes);
  script.said.clear();
  main->Run(ChangesToPatch);
  EXPECT_EQ(script.TakeSaid().substr(0, 19), "!Changes to patch: ");
  EXPECT_EQ(PatchText(), "");
  main->Run(UndoBytes);
  EXPECT_EQ(BytesAt(place, 1), "FF");
}

}  // namespace
}  // namespace tarvelo
