#include "patch/patch_document.h"
#include "shell/hex_desk.h"
#include "shell/patch/patch_editor.h"

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

  void TypeAt(Offset at, const std::u32string& text) {
    Panel().Go(at, 0);
    Type(text);
  }
  // Pastes a text. Returns the messages.
  std::string Pasted(const std::string& text) {
    Copy(text);
    return Said(Id::Paste);
  }
  // The first five bytes, and how far behind the first the cursor is.
  [[nodiscard]] std::string Seen() {
    return AsHex(Image().Region(place, 5)) + " @" + std::to_string(Selected().offset - place);
  }
  std::string SeenAfter(int id) {
    main->Run(id);
    return Seen();
  }
  [[nodiscard]] bool IsChanged(Offset offset) const { return Open().Edits().IsChanged(Image(), offset); }
  [[nodiscard]] std::string PatchText() const { return Patch().Patch().Document(); }
  [[nodiscard]] bool CanRun(int id) { return Panel().Commands()->CanRun(id); }
};

TEST_F(HexEditDesk, TakesDigits) {
  Type(U"1");
  EXPECT_EQ(Seen(), "1F FF FF FF FF @0");
  EXPECT_EQ(Status(10), "F");
  Type(U"2aB");
  Type(U"g Ф");  // not digits
  Type(U"1", wxMOD_CONTROL);
  Type(U"2", wxMOD_ALT);
  EXPECT_EQ(Seen(), "12 AB FF FF FF @2");
  Type(U"3");
  Press(WXK_RIGHT);  // the next digit is the first of another byte
  Type(U"4");
  EXPECT_EQ(Seen(), "12 AB 3F 4F FF @3");
  EXPECT_TRUE(IsChanged(place + 3));
  EXPECT_FALSE(IsChanged(place + 4));

  Panel().Go(place + 4, 0);
  for (int i = 0; i < 2; ++i) Press(WXK_LEFT, wxMOD_SHIFT);
  EXPECT_EQ(Selected(), (Region{place + 2, 3}));
  Type(U"00");  // over the start of the selection
  EXPECT_EQ(Seen(), "12 AB 00 4F FF @3");
  const Offset last = End() - 1;
  TypeAt(last, U"1234");
  EXPECT_EQ(Image().ByteHex(last), "34");  // the length of the image stays
  EXPECT_EQ(End(), last + 1);
  EXPECT_TRUE(script.said.empty());
}

TEST_F(HexEditDesk, TakesText) {
  main->Run(Id::SwitchSide);
  Type(U"A Я中Ä\u0098");  // the phone does not have the last three characters
  Type(U"€", wxMOD_ALTGR);
  EXPECT_EQ(Seen(), "41 20 DF 88 FF @4");
  main->Run(Id::SwitchSide);
  Type(U"0");
  EXPECT_EQ(Seen(), "41 20 DF 88 0F @4");
  EXPECT_EQ(Information().substr(0, 14), "Offset: 000704");
}

TEST_F(HexEditDesk, UndoesByteByByte) {
  EXPECT_FALSE(CanRun(Id::Undo));
  Type(U"12F3FF5");  // the first digit of the second byte changes nothing; the third byte stays
  EXPECT_EQ(Seen(), "12 F3 FF 5F FF @3");
  Panel().Go(0x1000, 5);
  EXPECT_EQ(SeenAfter(Id::Undo), "12 F3 FF FF FF @3");
  EXPECT_EQ(SeenAfter(Id::Undo), "12 FF FF FF FF @1");
  EXPECT_EQ(SeenAfter(Id::Undo), "FF FF FF FF FF @0");
  EXPECT_FALSE(IsChanged(place));
  EXPECT_FALSE(CanRun(Id::Undo));
  for (int i = 0; i < 3; ++i) main->Run(Id::Redo);
  EXPECT_EQ(Seen(), "12 F3 FF 5F FF @3");
  EXPECT_FALSE(CanRun(Id::Redo));
  Type(U"7");
  main->Run(Id::Undo);
  Type(U"6");  // a first digit again: no byte is left half typed
  EXPECT_EQ(Seen(), "12 F3 FF 6F FF @3");
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
  EXPECT_EQ(Image().Byte(place), 0xF0);  // the saved value
  EXPECT_FALSE(Open().Edits().CanUndo());
  EXPECT_FALSE(IsChanged(place));
}

TEST_F(HexEditDesk, PastesHexOrText) {
  Pasted("01 02,03\r\n0a");
  EXPECT_EQ(Seen(), "01 02 03 0A FF @4");
  EXPECT_EQ(SeenAfter(Id::Undo), "FF FF FF FF FF @0");
  Panel().Go(End() - 4, 0);
  EXPECT_EQ(Pasted("0102030405"), "!The data lies outside the image.");
  EXPECT_EQ(Pasted("01 02 x" + std::string(1000, 'x')),
            "!Not a number: \"01 02 " + std::string(54, 'x') + "...\"");
  EXPECT_FALSE(Open().Edits().CanUndo());

  main->Run(Id::SwitchSide);
  Panel().Go(place, 0);
  Pasted("Caf Я");
  EXPECT_EQ(Seen(), "43 61 66 20 DF @5");
  EXPECT_EQ(Pasted("A中"), "!The phone has no byte for a character of this text: \"A中\"");
  Panel().Go(place, 5);
  EXPECT_EQ(Copied(Id::CopyText), "Caf Я");
  main->Run(Id::SwitchSide);
  Pasted("Cafe");
  EXPECT_EQ(Seen(), "CA FE 66 20 DF @2");
}

TEST_F(HexEditDesk, FillsTheSelection) {
  EXPECT_FALSE(CanRun(Id::FillBytes));
  Panel().Go(place, 4);
  EXPECT_EQ(Said(Id::FillBytes, "5"), "ask Fill with bytes: FF");
  EXPECT_EQ(Seen(), "05 05 05 05 FF @0");
  EXPECT_EQ(Selected().size, 4);
  for (const std::string answer : {"123", "x"})
    EXPECT_EQ(SaidAtLast(Id::FillBytes, answer), "!Not a number: \"" + answer + "\"");
  Said(Id::FillBytes, "12 34 56");
  EXPECT_EQ(Seen(), "12 34 56 12 FF @0");
  Said(Id::FillBytes);  // cancelled
  main->Run(Id::Undo);
  EXPECT_EQ(SeenAfter(Id::Undo), "FF FF FF FF FF @0");
  EXPECT_FALSE(Open().Edits().CanUndo());
}

TEST_F(HexEditDesk, MakesPatches) {
  EXPECT_EQ(Said(Id::ChangesToPatch, "Greeting"), "iNothing was changed.");
  Pasted("48 69 FF FF 21");
  TypeAt(place + 0x40, U"0102");
  Panel().Go(place + 0x80, 8);  // none of the changes is selected
  EXPECT_EQ(Said(Id::SelectedToPatch, "Greeting"), "iChanges in this patch: 0 / 2");
  Panel().Go(place + 1, 2);
  EXPECT_EQ(Said(Id::SelectedToPatch, "Greeting"),
            "ask Name of the patch: 000701 | [Tarvelo - Was added patch \"Greeting\"]"
            "Changes in this patch: 1 / 2\n\n;Greeting\n\n000701: FF 69");
  EXPECT_EQ(Status(9), "P");
  // All of them, whatever is selected; what the patch holds already is not added again.
  EXPECT_EQ(Said(Id::ChangesToPatch, "All"),
            "ask Name of the patch: 000700 - 000741 | [Tarvelo - Was added patch \"All\"]"
            "Changes in this patch: 2 / 2\n\n;All\n\n000700: FF 48\n000704: FF 21\n000740: FFFF 0102");
  const std::string text = PatchText();
  EXPECT_EQ(Said(Id::ChangesToPatch, "Again"), "iThe patch holds these changes already.");
  EXPECT_EQ(PatchText(), text);
}

TEST_F(HexEditDesk, PatchNeverContradictsItself) {
  Type(U"AA");
  Said(Id::ChangesToPatch, "One");
  Patch().Patch().SetText(Patch().Patch().GetText() + "000710: FF 55 ;mine\r\n");
  TypeAt(place, U"BBCC");
  const std::string before = PatchText();
  EXPECT_EQ(Said(Id::ChangesToPatch, "Two"),
            "?Lines of the patch change the same bytes in another way. Replace these lines ?");
  EXPECT_EQ(PatchText(), before);
  script.confirm = true;
  TypeAt(place + 0x10, U"66");
  EXPECT_TRUE(Said(Id::ChangesToPatch, "Two")
                  .ends_with("Changes in this patch: 2 / 2\n"
                             "Lines of the patch that were replaced: 2\n\n;Two\n\n000701: FF CC"));
  std::string expected = before;
  expected.replace(expected.find("FF AA"), 5, "FF BB");
  expected.replace(expected.find("FF 55"), 5, "FF 66");
  EXPECT_EQ(PatchText(), expected + PatchBlock("Two", "000701: FF CC"));
  Patch().Patch().Undo();  // one step
  EXPECT_EQ(PatchText(), before);
  Patch().Patch().Redo();

  // The original takes the patch.
  const std::vector<std::uint8_t> edited = AllBytes();
  UndoAll();
  script.file = folder.Write("own.qpt", PatchFile("C55", PatchText()));
  EXPECT_NE(Said(Id::ApplyPatch).find("The patch was applied. Number of changes: 3"), std::string::npos);
  EXPECT_EQ(AllBytes(), edited);
}

// The earlier findings are gone: every panel searches again.
TEST_F(HexEditDesk, IsSeenByTheOtherPanels) {
  const auto figures = [this] {
    for (const int panel : {eeprom, pictures, ringtones}) {
      Choose(panel);
      main->Panels().Visible()->Window().Refresh();
      main->Panels().Visible()->Window().Update();
      Settle();
    }
    return Status(4) + "|" + Status(6) + "|" + Status(7);
  };
  const std::string before = figures();
  for (const char* byte : {"A5", "FF", "00"}) {
    Choose(Id::HexView);
    main->Run(Id::SelectAll);
    Said(Id::FillBytes, byte);
    EXPECT_TRUE(Said(Id::ChangesToPatch).starts_with("!Changes to patch: "));  // too long for one patch
    EXPECT_EQ(figures(), "|0 / 0|");
  }
  UndoAll();
  EXPECT_EQ(figures(), before);
}

}  // namespace
}  // namespace tarvelo
