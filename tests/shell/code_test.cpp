#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "shell/code/code_canvas.h"
#include "shell/code/code_panel.h"
#include "shell/code/function_side.h"
#include "shell/code/references_panel.h"
#include "shell/desk.h"
#include "shell/hex/hex_canvas.h"
#include "shell/hex/hex_panel.h"
#include "shell/patch/patch_editor.h"
#include "shell/view/place_line.h"

namespace tarvelo {
namespace {

// 1 MiB, of which offset 0 is at F00000. A calls B and C and loads the address of a text; C calls A and B.
class CodeDesk : public Desk {
 protected:
  static constexpr Offset a = 0x1000;
  static constexpr Offset b = 0x1100;
  static constexpr Offset text = 0x1200;
  static constexpr Offset c = 0x1300;

  static std::vector<std::uint8_t> CodeImage() {
    ImageBuilder image(0x100000);
    const std::uint8_t ofA[] = {0xDA, 0xF0, 0x00, 0x11,   // CALLS B
                                0xDA, 0xF0, 0x00, 0x13,   // CALLS C
                                0xE6, 0xFC, 0x00, 0x12,   // MOV R12, #1200h
                                0xE6, 0xFD, 0xC0, 0x03,   // MOV R13, #3C0h: page of F01200
                                0x3D, 0x01,               // JMPR cc_NZ to 1014
                                0x08, 0x01, 0xDB, 0x00};  // ADD R0, #1h; RETS
    const std::uint8_t ofB[] = {0xE0, 0x14, 0xDB, 0x00};
    const std::uint8_t ofC[] = {0xDA, 0xF0, 0x00, 0x10, 0xDA, 0xF0, 0x00, 0x11, 0xDB, 0x00};
    const std::uint8_t ret[] = {0xDB, 0x00};
    for (const Offset start : {a, b, c}) image.Data(static_cast<std::size_t>(start) - 2, ret);
    image.Data(a, ofA);
    image.Data(b, ofB);
    image.Data(c, ofC);
    image.Text(text, "Hello world");
    return std::move(image).Take();
  }

  void OpenCode() {
    OpenBytes("dump.bin", CodeImage(), Id::CodeView);
    Settle();
  }

  [[nodiscard]] CodePanel& Code() const { return dynamic_cast<CodePanel&>(*main->Panels().Of(Id::CodeView)); }
  [[nodiscard]] CodeCanvas& Canvas() const { return Code().Canvas(); }
  [[nodiscard]] HexCanvas& Hex() const {
    return dynamic_cast<HexPanel&>(*main->Panels().Of(Id::HexView)).Canvas();
  }
  void Go(Offset offset) { main->Bench().frame.ShowCode(offset, 0); }
  // The row of an offset, and the one above it.
  [[nodiscard]] std::string RowAt(Offset offset, Offset above = 0) {
    Go(offset);
    return Code().RowText(Canvas().CursorRow() - above, true);
  }
  std::string Enter(const std::string& place) {
    Code().Place().Field().SetValue(Wx(place));
    Code().Place().Enter();
    return Utf8(Code().Place().Fault().GetLabelText());
  }
};

TEST_F(CodeDesk, RowsSayWhatTheCodeMeans) {
  OpenCode();
  EXPECT_EQ(RowAt(a, 1), "function F0:1000  calls: 1");
  EXPECT_EQ(RowAt(a), "001000  F0:1000  DAF00011  CALLS 0F0h, 1100h");
  EXPECT_EQ(RowAt(a + 8), "001008  F0:1008  E6FC0012  MOV R12, #1200h  ; F0:1200  \"Hello world\"");
  EXPECT_EQ(RowAt(a + 0xC), "00100C  F0:100C  E6FDC003  MOV R13, #3C0h");
  EXPECT_EQ(RowAt(a + 0x10), "001010  F0:1010  3D01      JMPR cc_NZ, 1014h");
  EXPECT_EQ(Utf8(Code().Information().GetLabelText()),
            "Offset: 001010    Phone address: F0:1010 = 3C0:1010    function F0:1000    JMPR cc_NZ, 1014h");
}

TEST_F(CodeDesk, FollowsAndGoesBackAcrossPanels) {
  OpenCode();
  Go(a);
  Key(Canvas(), WXK_RETURN);
  EXPECT_EQ(Canvas().At(), b);
  main->Run(Id::OpenHex);
  EXPECT_EQ(Title(), "Tarvelo - Hex view");
  EXPECT_EQ(Hex().Selection().offset, b);
  Hex().Go(c, 0);
  main->Run(Id::OpenCode);
  EXPECT_EQ(Title(), "Tarvelo - Code");
  EXPECT_EQ(Canvas().At(), c);
  main->Run(Id::GoBack);
  EXPECT_EQ(Hex().Selection().offset, c);
  main->Run(Id::GoBack);
  EXPECT_EQ(Canvas().At(), b);
  main->Run(Id::GoBack);
  EXPECT_EQ(Canvas().At(), a);
  for (int i = 0; i < 3; ++i) main->Run(Id::GoForward);
  EXPECT_EQ(Title(), "Tarvelo - Code");
  EXPECT_EQ(Canvas().At(), c);
  Go(a + 0x14);  // RETS leads nowhere
  main->Run(Id::FollowTarget);
  EXPECT_EQ(Canvas().At(), a + 0x14);
}

// The list follows the cursor, and the code follows the list; one step back leads to where that began.
TEST_F(CodeDesk, FunctionsBesideTheCode) {
  OpenCode();
  Open().NamePlace(c, "Loop", "");
  Go(a + 0x14);
  main->Run(Id::FunctionsBeside);
  ListView& beside = Code().Side().List();
  ASSERT_EQ(beside.RowCount(), 3u);
  EXPECT_EQ(beside.Row(2).cells, (std::vector<std::string>{"F0:1300", "   1", "Loop"}));
  EXPECT_EQ(beside.Selected(), 0u);
  Go(b + 2);
  EXPECT_EQ(beside.Selected(), 1u);
  beside.Control().SetFocus();
  for (const std::size_t row : {2, 0, 2}) beside.Select(row);
  EXPECT_EQ(Canvas().At(), c);
  main->Run(Id::GoBack);
  EXPECT_EQ(Canvas().At(), b + 2);
  beside.Filter("loop");
  Go(a);  // hidden by the filter, which stays
  EXPECT_EQ(beside.ShownRows().count, 1u);
  beside.onActivate(2);
  EXPECT_EQ(Canvas().At(), c);
  Open().Write(a, std::vector<std::uint8_t>{0xCC, 0x00, 0xCC, 0x00});  // C is called no less
  Settle();
  EXPECT_EQ(beside.ShownRows().count, 1u);
  main->Run(Id::FunctionsBeside);
  EXPECT_FALSE(Code().IsSideShown());
}

TEST_F(CodeDesk, GoesToPlacesOfEveryForm) {
  OpenCode();
  Open().NamePlace(b, "Deed", "");
  const std::pair<const char*, Offset> cases[] = {
      {"1300", c}, {"F0:1000", a}, {"3C0:1200", text}, {"deed", b}, {"F01014", a + 0x14}};
  for (const auto& [place, offset] : cases) {
    EXPECT_EQ(Enter(place), "") << place;
    EXPECT_EQ(Canvas().At(), offset) << place;
  }
  EXPECT_NE(Enter("E0:1000"), "");
  EXPECT_NE(Enter("nowhere"), "");
  EXPECT_EQ(Canvas().At(), a + 0x14);
}

TEST_F(CodeDesk, NamesAndCommentsAreShownAndKeptBesideTheDump) {
  OpenCode();
  Go(b);
  EXPECT_EQ(Said(Id::NamePlace, "Tick"), "ask Name this place: ");
  EXPECT_EQ(Said(Id::CommentPlace, "once a second"), "ask Comment on this place: ");
  EXPECT_EQ(ReadAll(folder / "dump.names.tsv"), "F01100\tTick\tonce a second\r\n");
  EXPECT_EQ(Canvas().At(), b);
  EXPECT_EQ(RowAt(b, 1), "Tick  calls: 2  ; once a second");
  EXPECT_EQ(RowAt(a), "001000  F0:1000  DAF00011  CALLS 0F0h, 1100h  ; Tick");
  ShowHex(b, 0);
  const auto& hex = Shown<HexPanel>();
  EXPECT_NE(Utf8(const_cast<HexPanel&>(hex).Information().GetLabelText()).find("Tick  ; once a second"),
            std::string::npos);
  Choose(EntryOf("functions"));
  EXPECT_EQ(Cell(1, 5), "Tick");
  Choose(Id::Dump);
  EXPECT_TRUE(List().Find("function 1  Tick", SearchFrom::Top));
  Said(Id::Search, "E014DB");
  EXPECT_EQ(RowOf(List(), 0), "1\t001100\t3C0:1100\tE014DB\tTick\n");

  main->Dumps().OpenF(folder / "dump.bin");  // reads them again
  Choose(Id::CodeView);
  Settle();
  EXPECT_EQ(RowAt(b, 1), "Tick  calls: 2  ; once a second");
  EXPECT_EQ(Said(Id::NamePlace, " "), "ask Name this place: Tick");
  EXPECT_EQ(ReadAll(folder / "dump.names.tsv"), "F01100\t\tonce a second\r\n");
}

TEST_F(CodeDesk, BadLinesOfTheNamesFileAreReportedAndKept) {
  folder.Write("dump.names.tsv", std::string("x\ty\nF01000\tMain\nF01000\tAgain\n"));
  OpenCode();
  EXPECT_NE(InfoText().find("Lines of the names file that can't be read: 1, 3\n"), std::string::npos);
  Go(c);
  Said(Id::NamePlace, "Loop");
  EXPECT_EQ(ReadAll(folder / "dump.names.tsv"), "x\ty\nF01000\tMain\nF01000\tAgain\nF01300\tLoop\n");
}

TEST_F(CodeDesk, ReferencesAreListedAndFollowed) {
  OpenCode();
  Open().NamePlace(a, "Main", "");
  Go(b);
  main->Run(Id::WhoRefers);
  EXPECT_EQ(Title(), "Tarvelo - References");
  ASSERT_EQ(List().RowCount(), 2u);
  EXPECT_EQ(RowOf(List(), 0), "001000\tF0:1000\tMain\tCALLS 0F0h, 1100h\tcall\tcertain\n");
  EXPECT_EQ(RowOf(List(), 1), "001304\tF0:1304\tF0:1300\tCALLS 0F0h, 1100h\tcall\tcertain\n");
  main->Run(Shown<ReferencesPanel>().Commands()->DefaultId());
  EXPECT_EQ(Canvas().At(), c + 4);
  main->Run(Id::GoBack);
  EXPECT_EQ(Title(), "Tarvelo - References");
  EXPECT_EQ(List().Selected(), 1u);

  main->Run(Id::WhoRefers);  // nothing calls C + 4 itself
  EXPECT_EQ(List().RowCount(), 0u);
  main->Run(Id::GoBack);
  EXPECT_EQ(List().RowCount(), 2u);
  EXPECT_EQ(List().Selected(), 1u);

  ShowHex(text, 5);  // from the hex view
  main->Run(Id::WhoRefers);
  ASSERT_EQ(List().RowCount(), 1u);
  EXPECT_EQ(RowOf(List(), 0),
            "001008\tF0:1008\tMain\tMOV R12, #1200h; MOV R13, #3C0h\tpair of constants\tlikely\n");
  Open().Write(a + 0xC, std::vector<std::uint8_t>{0xCC, 0x00, 0xCC, 0x00});
  EXPECT_EQ(List().RowCount(), 0u);
  EXPECT_EQ(Utf8(List().EmptyHint()), "References to: 001200 = F0:1200. Nothing refers to this place.");
}

// What goes through an unknown DPP is possible only, and comes last.
TEST_F(CodeDesk, SurestReferencesComeFirst) {
  auto image = CodeImage();
  const std::uint8_t load[] = {0xF2, 0xF4, 0x00, 0x51};  // MOV R4, 5100h: through DPP1
  std::ranges::copy(load, image.begin() + a);            // in place of CALLS B
  OpenBytes("dump.bin", image, Id::CodeView);
  Settle();
  Go(b);
  main->Run(Id::WhoRefers);
  ASSERT_EQ(List().RowCount(), 2u);
  EXPECT_EQ(RowOf(List(), 0), "001304\tF0:1304\tF0:1300\tCALLS 0F0h, 1100h\tcall\tcertain\n");
  EXPECT_EQ(RowOf(List(), 1), "001000\tF0:1000\tF0:1000\tMOV R4, 5100h (DPP1)\tdata through DPP\tpossible\n");
}

TEST_F(CodeDesk, CopiesInstructionsAndPointers) {
  OpenCode();
  Go(a);
  main->Run(Id::CopyPagePointer);
  EXPECT_EQ(ClipboardText(), "0010C003");
  main->Run(Id::CopySegmentPointer);
  EXPECT_EQ(ClipboardText(), "0010F000");
  main->Bench().frame.ShowCode(a + 0x10, 4);
  Key(Canvas(), 'C', wxMOD_CONTROL);
  main->Run(Id::CopyText);
  EXPECT_EQ(ClipboardText(), "001010  F0:1010  JMPR cc_NZ, 1014h\n001012  F0:1012  ADD R0, #1h\n");
  main->Run(Id::CopyWithBytes);
  EXPECT_EQ(ClipboardText(),
            "001010  F0:1010  3D01      JMPR cc_NZ, 1014h\n001012  F0:1012  0801      ADD R0, #1h\n");
}

TEST_F(CodeDesk, CodeOfAnOddImageLiesAtOddOffsets) {
  std::vector<std::uint8_t> image = CodeImage();
  image.insert(image.begin(), 0xFF);
  OpenBytes("dump.bin", image, Id::CodeView);
  Settle();
  EXPECT_EQ(RowAt(a + 1), "001001  F0:1000  DAF00011  CALLS 0F0h, 1100h");
  main->Run(Id::FindAlike);
  EXPECT_EQ(Canvas().At(), a + 5);
}

TEST_F(CodeDesk, FindsWhatLooksTheSame) {
  OpenCode();
  Go(a);
  main->Run(Id::CopyAsPattern);
  EXPECT_EQ(ClipboardText(), "DA??????");
  for (const Offset next : {a + 4, c, c + 4, a}) {
    main->Run(Id::FindAlike);
    EXPECT_EQ(Canvas().At(), next);
  }
  main->Bench().frame.ShowCode(c, 8);
  main->Run(Id::FindAlike);
  EXPECT_EQ(Canvas().Chosen(), (Region{a, 8}));
  Go(b);
  EXPECT_EQ(Said(Id::FindAlike), "iNo other place looks the same.");
}

TEST_F(CodeDesk, PatchLinesAreShownAsInstructions) {
  OpenCode();
  Patch().AddPatch("Quiet", "001004: DAF00013 CC00CC00", false);
  Choose(Id::PatchMenu);
  PatchEditor& editor = Patch().Patch();
  const auto lines = editor.Lines();
  const auto line = std::ranges::find(lines, "001004: DAF00013 CC00CC00") - lines.begin();
  editor.GotoLine(static_cast<int>(line));
  EXPECT_EQ(Said(Id::ChangeAsCode),
            "[Tarvelo - Change as instructions]- F0:1004  DAF00013  CALLS 0F0h, 1300h\n"
            "+ F0:1004  CC00      NOP\n+ F0:1006  CC00      NOP\n");
  editor.GotoLine(0);
  EXPECT_EQ(Said(Id::ChangeAsCode), "!This line changes no bytes.");
}

TEST_F(CodeDesk, StatedDppsGiveDataAddresses) {
  auto image = CodeImage();
  const std::uint8_t load[] = {0xF2, 0xF4, 0x00, 0x52};  // MOV R4, 5200h: through DPP1
  std::ranges::copy(load, image.begin() + a + 8);
  OpenBytes("dump.bin", image, Id::CodeView);
  Settle();
  EXPECT_EQ(RowAt(a + 8), "001008  F0:1008  F2F40052  MOV R4, 5200h");
  EXPECT_EQ(
      Said(Id::StateDpps, "- 3c0"),
      "ask Pages of DPP0, DPP1, DPP2 and DPP3, hexadecimal, with blanks between them; - if unknown: - - - -");
  EXPECT_EQ(RowAt(a + 8), "001008  F0:1008  F2F40052  MOV R4, 5200h  ; F0:1200  \"Hello world\"");
  EXPECT_NE(Said(Id::StateDpps, "400").find(" | !"), std::string::npos);
  EXPECT_NE(Said(Id::StateDpps, "3 x").find(" | !"), std::string::npos);
  OpenBytes("dump.bin", image, Id::CodeView);  // the names file keeps them
  EXPECT_EQ(Open().Dpps()[1], 0x3C0);
  (void)Said(Id::StateDpps, "-");
  OpenBytes("dump.bin", image, Id::CodeView);
  EXPECT_EQ(Open().Dpps(), DppPages());
}

TEST_F(CodeDesk, FollowsEditsAndStays) {
  OpenCode();
  Go(a + 0x14);
  Open().Write(a, std::vector<std::uint8_t>{0xCC, 0x00, 0xCC, 0x00});  // one row becomes two
  Settle();
  EXPECT_EQ(Canvas().At(), a + 0x14);
  EXPECT_EQ(RowAt(a + 2), "001002  F0:1002  CC00      NOP");
  main->Run(Id::Undo);
  Settle();
  EXPECT_EQ(RowAt(a + 2), "001000  F0:1000  DAF00011  CALLS 0F0h, 1100h");
}

TEST_F(CodeDesk, LargeImagesHoldNoCode) {
  OpenBytes("large.bin", std::vector<std::uint8_t>(0x1000002), Id::CodeView);
  EXPECT_EQ(Utf8(Code().Information().GetLabelText()), "Fullflashes above 16 MiB hold no C166 code.");
  EXPECT_EQ(Said(Id::FollowTarget), "");
  ShowHex(0x10, 1);
  EXPECT_EQ(Said(Id::WhoRefers), "!Fullflashes above 16 MiB hold no C166 code.");
}

}  // namespace
}  // namespace tarvelo
