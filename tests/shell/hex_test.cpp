#include <wx/choice.h>

#include "shell/hex_desk.h"

namespace tarvelo {
namespace {

TEST_F(HexDesk, GoesToAPlace) {
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
  Panel().Place().Kind().SetSelection(1);
  EXPECT_EQ(Enter("800010"), "");  // a phone address
  EXPECT_EQ(Selected().offset, 0x10);
  EXPECT_TRUE(script.said.empty());
}

TEST_F(HexDesk, ShowsRegionsOfOtherPanels) {
  ShowBl(End() - 4, 100);
  EXPECT_EQ(Selected(), (Region{End() - 4, 4}));
  EXPECT_EQ(Canvas().TopRow(), End() / 16 - Canvas().RowsSeen());
  Choose(Id::Info);
  Choose(Id::HexView);  // unchanged
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
  EXPECT_EQ(Canvas().TopRow(), Canvas().RowsSeen());
  Press(WXK_PAGEUP);
  EXPECT_EQ(Canvas().TopRow(), 0);
  Panel().Go(0x1000, 4);  // as a search does
  Press(WXK_RIGHT, wxMOD_SHIFT);
  EXPECT_EQ(Selected(), (Region{0x1000, 5}));
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
  mouse(wxEVT_MOTION, 0);  // button released: no longer a drag
  EXPECT_EQ(Selected().size, 0x13);
  mouse(wxEVT_LEFT_DOWN, 0x4F, true);
  mouse(wxEVT_LEFT_UP, 0x4F, true);
  EXPECT_EQ(Selected(), (Region{corner + 0x23, 0x2D}));
  mouse(wxEVT_RIGHT_DOWN, 0x30);  // keeps the selection under it
  EXPECT_EQ(Selected().size, 0x2D);
  mouse(wxEVT_RIGHT_DOWN, 0x60);
  EXPECT_EQ(Selected(), (Region{corner + 0x60, 0}));
  Panel().Go(corner + 0x22, 4);
  Mouse(Canvas(), wxEVT_RIGHT_DOWN, {Canvas().PlaceOf(corner).x, 1});  // the header
  EXPECT_EQ(Selected(), (Region{corner + 0x22, 4}));
  mouse(wxEVT_LEFT_DOWN, 0x41, true);  // the start of what was found stays
  EXPECT_EQ(Selected(), (Region{corner + 0x22, 0x20}));
  mouse(wxEVT_LEFT_UP, 0x41, true);
}

TEST_F(HexDesk, CopiesAndSavesBytes) {
  Panel().Go(0x10, 3);
  main->Run(Id::CopyHex);
  EXPECT_EQ(ClipboardText(), AsHex(Image().ff().subspan(0x10, 3)));
  main->Run(Id::CopyText);
  EXPECT_EQ(ClipboardText(), AsText(Image().ff().subspan(0x10, 3)));
  main->Run(Id::CopyOffset);
  EXPECT_EQ(ClipboardText(), "000010");
  EXPECT_EQ(Said(Id::SaveText),
            "iFile \"demo_000010.bin\" was saved\n\n" + PathText(folder / "demo_000010.bin"));
  EXPECT_EQ(std::filesystem::file_size(folder / "demo_000010.bin"), 3u);
  Panel().Go(0x11, 0);
  main->Run(Id::CopyHex);  // the byte under the cursor
  EXPECT_EQ(ClipboardText(), Image().ByteHex(0x11));
  EXPECT_EQ(Said(Id::SaveText), "!No data for saving !");
  main->Run(Id::SelectAll);
  EXPECT_EQ(Said(Id::CopyHex), "!Copy as hex: too many bytes at once (8388608 > 1048576)");
  EXPECT_EQ(ClipboardText(), Image().ByteHex(0x11));
}

// 16 KiB with three bytes at an offset.
std::vector<std::uint8_t> WithBytes(std::size_t offset) {
  std::vector<std::uint8_t> bytes(0x4000);
  std::copy_n(std::begin({0xDE, 0xAD, 0xBE}), 3, bytes.begin() + static_cast<std::ptrdiff_t>(offset));
  return bytes;
}

TEST_F(HexDesk, FindsBytes) {
  const Offset last = End() - 3;
  std::vector<std::uint8_t> bytes = AllBytes();
  for (const Offset at : {Offset{0}, Offset{0x2345}, last})
    std::copy_n(std::begin({0xDE, 0xAD, 0xBE}), 3, bytes.begin() + at);
  OpenBytes("marked.bin", bytes, Id::HexView);
  EXPECT_TRUE(Said(Id::Next, "DE AD BE").starts_with("ask Enter the string"));  // no search yet
  EXPECT_EQ(Selected(), (Region{0, 3}));
  for (const Offset hit : {Offset{0x2345}, last}) {
    EXPECT_EQ(Said(Id::Next), "");
    EXPECT_EQ(Selected(), (Region{hit, 3}));
  }
  const auto shown = [&] {
    Settle();
    return Utf8(main->Bench().status.GetStatusText(1));
  };
  EXPECT_EQ(Said(Id::Next), "");  // round and round
  EXPECT_EQ(Selected(), (Region{0, 3}));
  EXPECT_EQ(shown(), "The search went on from the start.");
  for (const Offset hit : {last, Offset{0x2345}, Offset{0}}) {
    EXPECT_EQ(Said(Id::Previous), "");
    EXPECT_EQ(Selected(), (Region{hit, 3}));
    EXPECT_EQ(shown(), hit == last ? "The search went on from the end." : Status(2));
  }
  OpenBytes("one.bin", WithBytes(0x2345), Id::HexView);
  Panel().Go(0x2345, 3);
  EXPECT_EQ(Said(Id::Next), "");  // the only one
  EXPECT_EQ(Selected(), (Region{0x2345, 3}));
  OpenBytes("none.bin", std::vector<std::uint8_t>(0x4000), Id::HexView);
  for (const int id : {Id::Next, Id::Previous}) EXPECT_EQ(Said(id), "!String \"DE AD BE\" wasn't found");
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
  for (int id = Id::GoTo; id <= Id::SelectedToPatch; ++id) EXPECT_FALSE(panel.Commands()->CanRun(id)) << id;
}

}  // namespace
}  // namespace tarvelo
