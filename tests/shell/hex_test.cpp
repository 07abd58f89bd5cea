#include <wx/choice.h>

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
  const Fullflash none;
  constexpr Offset outside = -1;
  const std::tuple<const char*, PlaceKind, const Fullflash&, Offset> cases[] = {
      {"212345", PlaceKind::AsOffset, paged, 0x212345},
      {" 0x7fffff ", PlaceKind::AsOffset, paged, 0x7FFFFF},
      {"A12345", PlaceKind::AsOffset, paged, 0x212345},
      {"212345", PlaceKind::AsAddress, paged, outside},
      {"284:2345", PlaceKind::AsOffset, paged, 0x212345},
      {"283 : 0x6345", PlaceKind::AsOffset, paged, 0x212345},
      {"400:0", PlaceKind::AsOffset, paged, outside},
      {"FFFFFFFF:FFFFFFFF", PlaceKind::AsOffset, paged, outside},
      {"FFFFFFFF", PlaceKind::AsAddress, paged, outside},
      {"A0000010", PlaceKind::AsAddress, large, 0x10},
      {"1000000", PlaceKind::AsOffset, large, 0x1000000},
      {"0", PlaceKind::AsOffset, none, outside},
  };
  for (const auto& [text, kind, image, offset] : cases)
    EXPECT_EQ(ReadPlace(text, kind, image).value_or(outside), offset) << text;
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

TEST(HexRows, WriteAndReadBytes) {
  const std::vector<std::uint8_t> bytes{0x41, 0x00, 0xC0};
  EXPECT_EQ(AsHex(bytes), "41 00 C0");
  EXPECT_EQ(AsText(std::vector<std::uint8_t>{0x41, 0x00, 0xC0, 0x0D, 0x0A, 0xAD}), "A.А\r\n.");
  for (const char* text : {"4100c0", "41 00 C0", "41,00,C0\r\n", "\t4100\n,C0"})
    EXPECT_EQ(ReadHex(text), bytes) << text;
  for (const char* text : {"", " ,", "4", "410", "4 1", "0x41", "41 ?? C0", "41h", "Д0"})
    EXPECT_FALSE(ReadHex(text)) << text;
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
  // 3 rows, the last one of 5 bytes; a page is 2 rows.
  const std::tuple<Offset, CursorStep, Offset> cases[] = {
      {0, Left, 0},     {36, Right, 36},   {3, Up, 3},          {20, Up, 4},
      {18, Down, 34},   {31, Down, 36},    {33, Down, 33},      {33, PageUp, 1},
      {5, PageUp, 5},   {1, PageDown, 33}, {15, PageDown, 36},  {20, RowStart, 16},
      {20, RowEnd, 31}, {33, RowEnd, 36},  {20, ImageStart, 0}, {20, ImageEnd, 36},
  };
  for (const auto& [from, step, to] : cases) {
    HexCursor cursor(37);
    cursor.MoveTo(from, false);
    cursor.Move(step, 2, true);
    EXPECT_EQ(cursor.At(), to) << from;
    EXPECT_EQ(cursor.Selection(), (Region{std::min(from, to), std::abs(from - to) + 1})) << from;
  }
  HexCursor none;
  none.Select({5, 5});
  none.Move(ImageEnd, 2, true);
  EXPECT_EQ(none.Selection(), Region());
}

TEST_F(HexDesk, GoesWhereItIsTold) {
  EXPECT_EQ(Title(), "Tarvelo - Hex view");
  EXPECT_EQ(Enter("212345"), "");
  EXPECT_EQ(Selected(), (Region{0x212345, 0}));
  EXPECT_EQ(Canvas().TopRow(), 0x21234 - Canvas().RowsSeen() / 3);
  EXPECT_EQ(Information().substr(0, 48),
            "Offset: 212345    Phone address: 284:2345    " + Image().ByteHex(0x212345) + " ");
  EXPECT_EQ(Enter("xyz"), "Not a number: \"xyz\"");
  EXPECT_EQ(Enter("123456789"), "Number too large: \"123456789\"");
  EXPECT_EQ(Enter("12345678"), "The data lies outside the image.");
  EXPECT_EQ(Selected().offset, 0x212345);
  Panel().KindChoice().SetSelection(1);
  EXPECT_EQ(Enter("800010"), "");  // a phone address
  EXPECT_EQ(Selected().offset, 0x10);
  EXPECT_TRUE(script.said.empty());
}

TEST_F(HexDesk, ShowsRegionsOfOtherPanels) {
  ShowBl(End() - 4, 100);
  EXPECT_EQ(Selected(), (Region{End() - 4, 4}));
  EXPECT_EQ(Canvas().TopRow(), End() / 16 - Canvas().RowsSeen());
  Choose(Id::Info);
  Choose(Id::HexView);  // as it was left
  EXPECT_EQ(Selected(), (Region{End() - 4, 4}));
  main->Dumps().OpenF(WriteDump("other.bin"));
  Choose(Id::HexView);
  EXPECT_EQ(Selected(), (Region{0, 0}));
}

TEST_F(HexDesk, FollowsTheKeyboard) {
  Press(WXK_END, wxMOD_CONTROL);
  EXPECT_EQ(Selected().offset, End() - 1);
  EXPECT_GT(Canvas().TopRow(), 0);
  Press(WXK_HOME, wxMOD_CONTROL | wxMOD_SHIFT);
  EXPECT_EQ(Selected().size, End());
  EXPECT_EQ(Canvas().TopRow(), 0);
  Press(WXK_PAGEDOWN);
  EXPECT_EQ(Selected(), (Region{16 * Canvas().RowsSeen(), 0}));
  EXPECT_EQ(Canvas().TopRow(), 1);
}

TEST_F(HexDesk, FollowsTheMouse) {
  Panel().Go(0x1000, 0);
  const Offset corner = Canvas().TopRow() * 16;
  const auto mouse = [&](wxEventType type, Offset at, bool shift = false) {
    Mouse(Canvas(), type, Canvas().PlaceOf(corner + at), shift);
  };
  mouse(wxEVT_LEFT_DOWN, 0x23);
  Mouse(Canvas(), wxEVT_MOTION, Canvas().PlaceOf(corner + 0x23) + wxPoint(1, 1));
  EXPECT_EQ(Selected(), (Region{corner + 0x23, 0}));
  mouse(wxEVT_MOTION, 0x11);
  mouse(wxEVT_LEFT_UP, 0x11);
  EXPECT_EQ(Selected(), (Region{corner + 0x11, 0x13}));
  mouse(wxEVT_MOTION, 0);  // let go: no longer a drag
  EXPECT_EQ(Selected().size, 0x13);
  mouse(wxEVT_LEFT_DOWN, 0x4F, true);
  mouse(wxEVT_LEFT_UP, 0x4F, true);
  EXPECT_EQ(Selected(), (Region{corner + 0x23, 0x2D}));
  mouse(wxEVT_RIGHT_DOWN, 0x30);  // keeps the selection it falls on
  EXPECT_EQ(Selected().size, 0x2D);
  mouse(wxEVT_RIGHT_DOWN, 0x60);
  EXPECT_EQ(Selected(), (Region{corner + 0x60, 0}));
}

TEST_F(HexDesk, CopiesAndSavesBytes) {
  Panel().Go(0x10, 3);
  main->Run(Id::CopyHex);
  EXPECT_EQ(ClipboardText(), AsHex(Image().ff().subspan(0x10, 3)));
  main->Run(Id::CopyText);
  EXPECT_EQ(ClipboardText(), AsText(Image().ff().subspan(0x10, 3)));
  main->Run(Id::CopyOffset);
  EXPECT_EQ(ClipboardText(), "000010");
  EXPECT_EQ(Said(Id::SaveText), "iFile \"demo_000010.bin\" was saved\n\n" + PathText(folder / "demo_000010.bin"));
  EXPECT_EQ(std::filesystem::file_size(folder / "demo_000010.bin"), 3u);
  Panel().Go(0x11, 0);
  main->Run(Id::CopyHex);  // the byte under the cursor
  EXPECT_EQ(ClipboardText(), Image().ByteHex(0x11));
  EXPECT_EQ(Said(Id::SaveText), "!No data for saving !");
  main->Run(Id::SelectAll);
  EXPECT_EQ(Said(Id::CopyHex), "!Selected bytes: 8388608 > 1048576");
  EXPECT_EQ(ClipboardText(), Image().ByteHex(0x11));
}

TEST_F(HexDesk, FindsBytes) {
  const Offset last = End() - 3;
  std::vector<std::uint8_t> bytes = AllBytes();
  for (const Offset at : {Offset{0}, Offset{0x2345}, last})
    std::copy_n(std::begin({0xDE, 0xAD, 0xBE}), 3, bytes.begin() + at);
  OpenBytes("marked.bin", bytes, Id::HexView);
  EXPECT_TRUE(Said(Id::Next, "DE AD BE").starts_with("ask Enter the string"));  // nothing was sought yet
  EXPECT_EQ(Selected(), (Region{0, 3}));
  for (const Offset hit : {Offset{0x2345}, last}) {
    EXPECT_EQ(Said(Id::Next), "");
    EXPECT_EQ(Selected(), (Region{hit, 3}));
  }
  EXPECT_EQ(Said(Id::Next), "!String \"DE AD BE\" wasn't found");
  for (const Offset hit : {0x2345, 0}) {
    EXPECT_EQ(Said(Id::Previous), "");
    EXPECT_EQ(Selected(), (Region{hit, 3}));
  }
  EXPECT_EQ(Said(Id::Previous), "!String \"DE AD BE\" wasn't found");
}

TEST_F(HexDesk, IsEmptyWithoutADocument) {
  OpenBytes("two.bin", {0xFF, 0x01}, Id::HexView);
  for (const int key : {WXK_PAGEDOWN, WXK_HOME}) Press(key);
  Press(WXK_END, wxMOD_SHIFT);
  EXPECT_EQ(Selected(), (Region{0, 2}));
  HexPanel& panel = Panel();
  main->Dumps().CloseFF();
  for (const int key : {WXK_DOWN, WXK_END, WXK_PAGEDOWN}) Key(panel.Canvas(), key);
  EXPECT_EQ(panel.Canvas().Selection(), Region());
  EXPECT_EQ(Utf8(panel.Information().GetLabelText()), "");
  for (int id = Id::GoTo; id <= Id::ChangesToPatch; ++id) EXPECT_FALSE(panel.Commands()->CanRun(id)) << id;
}

}  // namespace
}  // namespace tarvelo
