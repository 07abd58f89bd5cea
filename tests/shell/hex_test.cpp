#include <wx/choice.h>

#include "core/notation.h"
#include "shell/hex_desk.h"

namespace tarvelo {
namespace {

Fullflash Erased(std::size_t size) { return Fullflash(Bytes(std::vector<std::uint8_t>(size, 0xFF))); }

TEST(HexRows, WritePlaces) {
  const Fullflash paged = Erased(0x800000);  // offset 0 at 800000
  EXPECT_EQ(OffsetText(paged, 0x1A2B4), "01A2B4");
  EXPECT_EQ(AddressText(paged, 0x212345), "284:2345");
  const Fullflash large = Erased(0x1000001);
  EXPECT_EQ(OffsetText(large, 0x1A2B4), "001A2B4");
  EXPECT_EQ(AddressText(large, 0x1A2B4), "A001A2B4");
  EXPECT_EQ(HexColumns(large).Address(), HexColumns(paged).Address() + 1);
  Fullflash shifted = Erased(0x1000000);
  shifted.SetCorrBase(0x800000);
  EXPECT_EQ(AddressText(shifted, 0xFFFFFF), "5FF:3FFF");
}

TEST(HexRows, ReadPlaces) {
  const Fullflash paged = Erased(0x800000);
  const Fullflash large = Erased(0x1000001);
  struct Case {
    const char* text;
    PlaceKind kind;
    const Fullflash& image;
    Offset expected;  // -1: outside
  };
  const Case cases[] = {
      {"212345", PlaceKind::AsOffset, paged, 0x212345},
      {" 0x7fffff ", PlaceKind::AsOffset, paged, 0x7FFFFF},
      {"A12345", PlaceKind::AsOffset, paged, 0x212345},
      {"A12345", PlaceKind::AsAddress, paged, 0x212345},
      {"212345", PlaceKind::AsAddress, paged, -1},
      {"284:2345", PlaceKind::AsOffset, paged, 0x212345},
      {"283 : 0x6345", PlaceKind::AsOffset, paged, 0x212345},
      {"400:0", PlaceKind::AsOffset, paged, -1},
      {"FFFFFFFF:FFFFFFFF", PlaceKind::AsOffset, paged, -1},
      {"1000000", PlaceKind::AsOffset, paged, -1},
      {"FFFFFFFF", PlaceKind::AsAddress, paged, -1},
      {"A0000010", PlaceKind::AsAddress, large, 0x10},
      {"28000:10", PlaceKind::AsOffset, large, 0x10},
      {"9FFFFFFF", PlaceKind::AsAddress, large, -1},
      {"1000000", PlaceKind::AsOffset, large, 0x1000000},
      {"0", PlaceKind::AsOffset, Fullflash(), -1},
  };
  for (const Case& c : cases)
    EXPECT_EQ(ReadPlace(c.text, c.kind, c.image).value_or(-1), c.expected) << c.text;
  for (const char* text : {"", "  ", "0x", "12G", ":", "284:", ":10", "1:2:3", "-1"})
    EXPECT_THROW((void)ReadPlace(text, PlaceKind::AsOffset, paged), std::invalid_argument) << text;
  EXPECT_THROW((void)ReadPlace("123456789", PlaceKind::AsOffset, paged), std::overflow_error);
}

TEST(HexRows, ReadWhatTheImageHas) {
  ImageBuilder builder(0x800000);
  builder.Pointer(0x10, 0x212345);
  builder.DWord(0x20, 0x12345678);  // leads nowhere
  builder.Fill(0x30, 4, 0);
  const std::vector<std::uint8_t> bytes = std::move(builder).Take();
  const Fullflash image{Bytes(bytes)};
  EXPECT_EQ(Reading(image, 0x10), "45 / 2345 / 02842345  -> 212345");
  EXPECT_EQ(Reading(image, 0x20), "78 / 5678 / 12345678");
  EXPECT_EQ(Reading(image, 0x30), "00 / 0000 / 00000000");
  EXPECT_EQ(Reading(image, 0x7FFFFD), "FF / FFFF");
  EXPECT_EQ(Reading(image, 0x7FFFFF), "FF");
}

TEST(HexRows, CopyBytes) {
  const std::uint8_t bytes[] = {0x41, 0x00, 0xC0, 0x0D, 0x0A, 0xAD};
  EXPECT_EQ(AsHex(bytes), "41 00 C0 0D 0A AD");
  EXPECT_EQ(AsHex({}), "");
  EXPECT_EQ(AsText(bytes), "A.А\r\n.");
}

TEST(HexRows, ReadHexAndCharacters) {
  const std::vector<std::uint8_t> bytes{0x41, 0x00, 0xC0};
  for (const char* text : {"4100c0", "41 00 C0", "41,00,C0\r\n", "\t4100\n,C0"})
    EXPECT_EQ(ReadHex(text), bytes) << text;
  for (const char* text : {"", " ,", "4", "410", "4 1", "0x41", "41 ?? C0", "41h", "Д0"})
    EXPECT_FALSE(ReadHex(text)) << text;
  const std::pair<char32_t, int> characters[] = {{U'A', 0x41}, {U'Я', 0xDF},    {U'я', 0xFF}, {U'€', 0x88},
                                                 {U'Ä', -1},   {U'\u0098', -1}, {U'中', -1}};
  for (const auto& [character, byte] : characters) {
    const auto found = ByteOf(character);
    EXPECT_EQ(found ? *found : -1, byte) << static_cast<std::uint32_t>(character);
  }
}

TEST(HexColumns, FindTheByteAtEachColumn) {
  const HexColumns columns(Erased(2));
  for (int i = 0; i < bytesInRow; ++i) {
    EXPECT_EQ(columns.ByteAt(columns.Hex(i)), i);
    EXPECT_EQ(columns.ByteAt(columns.Hex(i) + 1), i);
    EXPECT_EQ(columns.ByteAt(columns.Text(i)), i);
    EXPECT_FALSE(columns.IsInText(columns.Hex(i) + 1));
  }
  EXPECT_EQ(columns.ByteAt(-100), 0);
  EXPECT_EQ(columns.ByteAt(1000), 15);
}

TEST(HexCursor, StaysInTheImage) {
  using enum CursorStep;
  struct Case {
    Offset from;
    CursorStep step;
    Offset to;
  };
  // 3 rows, the last one of 5 bytes; a page is 2 rows.
  const Case cases[] = {
      {0, Left, 0},     {36, Right, 36},   {3, Up, 3},          {20, Up, 4},
      {18, Down, 34},   {31, Down, 36},    {33, Down, 33},      {33, PageUp, 1},
      {5, PageUp, 5},   {1, PageDown, 33}, {15, PageDown, 36},  {20, RowStart, 16},
      {20, RowEnd, 31}, {33, RowEnd, 36},  {20, ImageStart, 0}, {20, ImageEnd, 36},
  };
  for (const Case& c : cases) {
    HexCursor cursor(37);
    cursor.MoveTo(c.from, false);
    cursor.Move(c.step, 2, true);
    EXPECT_EQ(cursor.At(), c.to) << c.from;
    const ByteRange expected{std::min(c.from, c.to), std::abs(c.from - c.to) + 1};
    EXPECT_EQ(cursor.Selection(), expected) << c.from;
  }
  HexCursor none;
  none.Select({5, 5});
  none.Move(ImageEnd, 2, true);
  EXPECT_EQ(none.Selection(), ByteRange());
}

TEST_F(HexDesk, GoesWhereItIsTold) {
  EXPECT_EQ(Title(), "Tarvelo - Hex view");
  EXPECT_EQ(Enter("212345"), "");
  EXPECT_EQ(Selected(), (ByteRange{0x212345, 0}));
  EXPECT_EQ(Canvas().TopRow(), 0x21234 - Canvas().RowsSeen() / 3);
  EXPECT_EQ(Information().substr(0, 48),
            "Offset: 212345    Phone address: " + AddressText(Image(), 0x212345) + "    " +
                Image().ByteHex(0x212345) + " ");
  EXPECT_EQ(Enter("xyz"), "Not a number: \"xyz\"");
  EXPECT_EQ(Enter("123456789"), "Number too large: \"123456789\"");
  EXPECT_EQ(Enter("12345678"), "The data lies outside the image.");
  EXPECT_EQ(Selected().start, 0x212345);
  Panel().KindChoice().SetSelection(1);
  const auto address = static_cast<std::uint32_t>(Image().CorrBase()) + 0x10;
  EXPECT_EQ(Enter(Hex(address)), "");
  EXPECT_EQ(Selected().start, 0x10);
  EXPECT_TRUE(script.said.empty());
}

TEST_F(HexDesk, ShowsRegionsOfOtherPanels) {
  const Offset size = Offset{Image().ffEnd()} + 1;
  main->ShowBl(size - 4, 100);
  EXPECT_EQ(Selected(), (ByteRange{size - 4, 4}));
  EXPECT_EQ(Canvas().TopRow(), size / 16 - Canvas().RowsSeen());
  Choose(Info);
  Choose(HexView);  // as it was left
  EXPECT_EQ(Selected(), (ByteRange{size - 4, 4}));
  main->ShowBl(size, 1);
  EXPECT_EQ(script.TakeSaid(), "!The data lies outside the image.");
  Choose(Info);
  main->OpenF(WriteDump("other.bin"));
  Choose(HexView);
  EXPECT_EQ(Selected(), (ByteRange{0, 0}));
}

TEST_F(HexDesk, FollowsTheKeyboard) {
  Press(WXK_END, false, true);
  EXPECT_EQ(Selected().start, Image().ffEnd());
  EXPECT_GT(Canvas().TopRow(), 0);
  Press(WXK_HOME, true, true);
  EXPECT_EQ(Selected().size, Offset{Image().ffEnd()} + 1);
  EXPECT_EQ(Canvas().TopRow(), 0);
  Press(WXK_PAGEDOWN);
  EXPECT_EQ(Selected(), (ByteRange{16 * Canvas().RowsSeen(), 0}));
  EXPECT_EQ(Canvas().TopRow(), 1);
}

TEST_F(HexDesk, FollowsTheMouse) {
  Panel().Go(0x1000, 0);
  const Offset corner = Canvas().TopRow() * 16;
  Mouse(wxEVT_LEFT_DOWN, Canvas().PlaceOf(corner + 0x23));
  Mouse(wxEVT_MOTION, Canvas().PlaceOf(corner + 0x23) + wxPoint(1, 1));
  EXPECT_EQ(Selected(), (ByteRange{corner + 0x23, 0}));
  Mouse(wxEVT_MOTION, Canvas().PlaceOf(corner + 0x11));
  Mouse(wxEVT_LEFT_UP, Canvas().PlaceOf(corner + 0x11));
  EXPECT_EQ(Selected(), (ByteRange{corner + 0x11, 0x13}));
  Mouse(wxEVT_MOTION, Canvas().PlaceOf(corner));  // let go: no longer a drag
  EXPECT_EQ(Selected().size, 0x13);
  Mouse(wxEVT_LEFT_DOWN, Canvas().PlaceOf(corner + 0x4F), true);
  Mouse(wxEVT_LEFT_UP, Canvas().PlaceOf(corner + 0x4F), true);
  EXPECT_EQ(Selected(), (ByteRange{corner + 0x23, 0x2D}));
  Mouse(wxEVT_RIGHT_DOWN, Canvas().PlaceOf(corner + 0x30));  // keeps the selection it falls on
  EXPECT_EQ(Selected().size, 0x2D);
  Mouse(wxEVT_RIGHT_DOWN, Canvas().PlaceOf(corner + 0x60));
  EXPECT_EQ(Selected(), (ByteRange{corner + 0x60, 0}));
}

TEST_F(HexDesk, CopiesAndSavesBytes) {
  Panel().Go(0x10, 3);
  main->Run(CopyHex);
  EXPECT_EQ(ClipboardText(), AsHex(Image().ff().subspan(0x10, 3)));
  main->Run(CopyText);
  EXPECT_EQ(ClipboardText(), AsText(Image().ff().subspan(0x10, 3)));
  main->Run(CopyOffset);
  EXPECT_EQ(ClipboardText(), "000010");
  Choose(SaveText);
  EXPECT_EQ(script.TakeSaid(),
            "iFile \"demo_000010.bin\" was saved\n\n" + PathText(folder / "demo_000010.bin"));
  EXPECT_EQ(std::filesystem::file_size(folder / "demo_000010.bin"), 3u);
  Panel().Go(0x11, 0);
  main->Run(CopyHex);  // the byte under the cursor
  EXPECT_EQ(ClipboardText(), Image().ByteHex(0x11));
  Choose(SaveText);
  EXPECT_EQ(script.TakeSaid(), "!No data for saving !");
  main->Run(SelectBytes);
  EXPECT_EQ(Selected().size, Offset{Image().ffEnd()} + 1);
  main->Run(CopyHex);
  EXPECT_EQ(script.TakeSaid(), "!Selected bytes: " + std::to_string(Selected().size) + " > 1048576");
  EXPECT_EQ(ClipboardText(), Image().ByteHex(0x11));
}

TEST_F(HexDesk, FindsBytes) {
  const Offset end = Image().ffEnd();
  const std::vector<std::uint8_t> saved(Image().ff().begin(), Image().ff().end());
  std::vector<std::uint8_t> bytes = saved;
  for (const Offset at : {Offset{0}, Offset{0x2345}, end - 2})
    std::copy_n(std::begin({0xDE, 0xAD, 0xBE}), 3, bytes.begin() + at);
  main->OpenF(folder.Write("marked.bin", bytes));
  Choose(HexView);
  script.answer = "DE AD BE";
  main->Run(FindNext);  // nothing was sought yet: asks
  EXPECT_EQ(Selected(), (ByteRange{0, 3}));
  main->Run(FindNext);
  EXPECT_EQ(Selected(), (ByteRange{0x2345, 3}));
  main->Run(FindNext);
  EXPECT_EQ(Selected(), (ByteRange{end - 2, 3}));
  EXPECT_EQ(script.said.size(), 1u);
  script.said.clear();
  main->Run(FindNext);
  EXPECT_EQ(script.TakeSaid(), "!String \"DE AD BE\" wasn't found");
  main->Run(FindPrevious);
  EXPECT_EQ(Selected(), (ByteRange{0x2345, 3}));
  main->Run(FindPrevious);
  main->Run(FindPrevious);
  EXPECT_EQ(Selected(), (ByteRange{0, 3}));
  EXPECT_EQ(script.said.size(), 1u);
}

TEST_F(HexDesk, IsEmptyWithoutADocument) {
  main->OpenF(folder.Write("two.bin", std::vector<std::uint8_t>{0xFF, 0x01}));
  Choose(HexView);
  HexPanel& panel = Panel();
  Press(WXK_PAGEDOWN);
  Press(WXK_HOME);
  Press(WXK_END, true);
  EXPECT_EQ(Selected(), (ByteRange{0, 2}));
  main->CloseFF();
  for (const int key : {WXK_DOWN, WXK_END, WXK_PAGEDOWN}) {
    wxKeyEvent event(wxEVT_CHAR_HOOK);
    event.m_keyCode = key;
    panel.Canvas().ProcessWindowEvent(event);
  }
  EXPECT_EQ(panel.Canvas().Selection(), ByteRange());
  EXPECT_EQ(Utf8(panel.Information().GetLabelText()), "");
  for (int id = GoTo; id <= ChangesToPatch; ++id) EXPECT_FALSE(panel.Commands()->CanRun(id)) << id;
}

}  // namespace
}  // namespace tarvelo
