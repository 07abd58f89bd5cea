#include <wx/choice.h>
#include <wx/dcmemory.h>
#include <wx/image.h>
#include <wx/settings.h>

#include "document/map_kinds.h"
#include "shell/hex/find_bar.h"
#include "shell/hex/hex_paint.h"
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
  EXPECT_EQ(Enter("10"), "The data lies outside the image.");
  EXPECT_TRUE(script.said.empty());
}

TEST_F(HexDesk, ShowsRegionsOfOtherPanels) {
  ShowBl(End() - 4, 100);
  EXPECT_EQ(Selected(), (Region{End() - 4, 4}));
  EXPECT_EQ(Canvas().TopRow(), End() / 16 - Canvas().RowsSeen());
  Choose(Id::Info);
  Choose(Id::HexView);  // unchanged
  EXPECT_EQ(Selected(), (Region{End() - 4, 4}));
  ShowHex(End(), 1);
  EXPECT_EQ(script.TakeSaid(), "!The data lies outside the image.");
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
  const Offset seen = Canvas().RowsSeen();
  Press(WXK_DOWN);
  Press(WXK_PAGEDOWN);
  EXPECT_EQ(Selected(), (Region{16 * (seen + 1), 0}));
  EXPECT_EQ(Canvas().TopRow(), seen);
  Press(WXK_PAGEUP);
  EXPECT_EQ(Canvas().TopRow(), 0);
  Panel().Go(0x1000, 4);  // as a search does
  Press(WXK_RIGHT, wxMOD_SHIFT);
  EXPECT_EQ(Selected(), (Region{0x1000, 5}));
  Press(WXK_HOME, wxMOD_CONTROL);
  Panel().Go(16 * seen - 1, 0);  // the last visible byte
  Type(U"00");
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

TEST_F(HexDesk, FollowsTheWheel) {
  Resize(main->GetMinSize());  // narrower than a row
  for (const auto& [rotation, shift, axis, row, column] :
       {std::tuple(-120, false, wxMOUSE_WHEEL_VERTICAL, 3, 0),
        {-120, true, wxMOUSE_WHEEL_VERTICAL, 3, 3},
        {120, false, wxMOUSE_WHEEL_VERTICAL, 0, 3},
        {40, true, wxMOUSE_WHEEL_VERTICAL, 0, 2},
        {40, false, wxMOUSE_WHEEL_HORIZONTAL, 0, 3}}) {
    wxMouseEvent event(wxEVT_MOUSEWHEEL);
    event.m_wheelRotation = rotation;
    event.m_wheelDelta = 120;
    event.m_linesPerAction = 3;
    event.m_wheelAxis = axis;
    event.SetShiftDown(shift);
    Canvas().ProcessWindowEvent(event);
    EXPECT_EQ(Canvas().TopRow(), row);
    EXPECT_EQ(Canvas().GetScrollPos(wxHORIZONTAL), column);
  }
}

TEST_F(HexDesk, CopiesAndSavesBytes) {
  Panel().Go(0x10, 3);
  EXPECT_EQ(Copied(Id::CopyHex), AsHex(Image().ff().subspan(0x10, 3)));
  EXPECT_EQ(Copied(Id::CopyText), AsText(Image().ff().subspan(0x10, 3)));
  EXPECT_EQ(Copied(Id::CopyOffset), "000010");
  EXPECT_EQ(Said(Id::SaveText), "iFile \"demo_000010.bin\" was saved" + At(folder / "demo_000010.bin"));
  EXPECT_EQ(std::filesystem::file_size(folder / "demo_000010.bin"), 3u);
  Panel().Go(0x11, 0);
  EXPECT_EQ(Copied(Id::CopyHex), Image().ByteHex(0x11));  // the byte under the cursor
  EXPECT_EQ(Said(Id::SaveText), "!No data for saving !");
  main->Run(Id::SelectAll);
  EXPECT_EQ(Said(Id::CopyHex), "!Copy as hex: too many bytes at once (8388608 > 1048576)");
  EXPECT_EQ(ClipboardText(), Image().ByteHex(0x11));
}

TEST_F(HexDesk, FindsBytes) {
  // Opens an image of zeros with three bytes at each of these offsets.
  const auto open = [this](std::initializer_list<Offset> places) {
    std::vector<std::uint8_t> bytes(0x4000);
    for (const Offset at : places) std::copy_n(std::begin({0xDE, 0xAD, 0xBE}), 3, bytes.begin() + at);
    OpenBytes("marked.bin", bytes, Id::HexView);
  };
  const Offset last = 0x4000 - 3;
  open({0, 0x2345, last});
  const auto goes = [this](int id, Offset hit, std::string hint = {}) {
    EXPECT_EQ(Said(id), "");
    EXPECT_EQ(Selected(), (Region{hit, 3}));
    Settle();
    EXPECT_EQ(Utf8(main->Bench().status.GetStatusText(1)), hint.empty() ? Status(2) : hint);
  };
  EXPECT_EQ(Said(Id::Next), "");  // no search yet: opens the bar
  EXPECT_TRUE(Panel().Bar().IsShown());
  Panel().Bar().WantedField().SetValue("DE AD BE");
  goes(Id::Next, 0);
  goes(Id::Next, 0x2345);
  goes(Id::Next, last);
  goes(Id::Next, 0, "The search went on from the start.");
  goes(Id::Previous, last, "The search went on from the end.");
  goes(Id::Previous, 0x2345);
  goes(Id::Previous, 0);
  open({0x2345});
  Panel().Go(0x2345, 3);
  goes(Id::Next, 0x2345, "The search went on from the start.");  // the only one
  open({});
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

// How much redder than grey a colour is.
int Redness(const wxColour& colour) { return colour.Red() - colour.Green(); }

// Of 16 bytes 00, 2 and 5 are changed, 4 and 5 are selected, 8 has a name, 9 differs from another dump, and
// 12 and the following are known to be text.
TEST_F(HexDesk, PaintsChangesAndTheSelection) {
  OpenBytes("zeros.bin", std::vector<std::uint8_t>(0x4000), Id::HexView);
  for (const Offset changed : {2, 5}) Open().Write(changed, std::vector<std::uint8_t>{0x88});
  HexScene scene;
  scene.image = &Image();
  scene.edits = &Open().Edits();
  scene.columns = HexColumns(Image());
  scene.columnWidth = 12;
  scene.rowHeight = 24;
  scene.cursor = RowCursor(End(), 16);
  scene.cursor.Select({4, 2});
  Open().NamePlace(8, "Name", "");
  scene.names = &Open().PlaceNames();
  const Fullflash other(
      Bytes(std::vector<std::uint8_t>{0, 0, 0x88, 0, 0, 0x88, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0}));
  scene.other = &other;
  scene.map = std::make_shared<const DumpMap>(
      DumpMap{{{0, 12, &map::unknown, Sureness::Unknown}, {12, 4, &map::text, Sureness::Guessed}}});
  wxBitmap bitmap(scene.X(scene.columns.End()), 2 * scene.rowHeight);
  {
    wxMemoryDC dc(bitmap);
    dc.SetFont(wxFont(wxFontInfo(9).Family(wxFONTFAMILY_TELETYPE)));
    dc.SetBackground(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW));
    dc.Clear();
    DrawHex(dc, scene, bitmap.GetSize());
  }
  const wxImage image = bitmap.ConvertToImage();
  const auto at = [&](int x, int y) {
    return wxColour(image.GetRed(x, y), image.GetGreen(x, y), image.GetBlue(x, y));
  };
  const auto colour = [](wxSystemColour index) { return wxSystemSettings::GetColour(index); };
  for (const bool isText : {false, true}) {
    const auto left = [&](int byte) {
      return scene.X(isText ? scene.columns.Text(byte) : scene.columns.Hex(byte));
    };
    const auto ground = [&](int byte) { return at(left(byte) + 3, scene.rowHeight - 2); };
    const auto ink = [&](int byte) {  // the darkest pixel
      wxColour darkest = *wxWHITE;
      for (int x = left(byte); x < left(byte) + 10; ++x)
        for (int y = 2; y < scene.rowHeight - 2; ++y)
          if (at(x, y).Green() < darkest.Green()) darkest = at(x, y);
      return darkest;
    };
    EXPECT_EQ(ground(0), colour(wxSYS_COLOUR_WINDOW));
    EXPECT_EQ(ground(4), colour(wxSYS_COLOUR_HIGHLIGHT));
    EXPECT_GT(Redness(ground(2)), Redness(ground(0)) + 10);
    EXPECT_GT(Redness(ground(5)), Redness(ground(4)) + 10);
    EXPECT_GT(Redness(ink(2)), Redness(ink(0)) + 50);
    EXPECT_NE(at(left(4) - 1, scene.rowHeight / 2), ground(0));  // the cursor
    EXPECT_GT(ground(9).Blue() - ground(9).Red(), ground(0).Blue() - ground(0).Red() + 10);
  }
  const auto below = [&](int byte) { return at(scene.X(scene.columns.Hex(byte)) + 3, scene.rowHeight - 1); };
  EXPECT_EQ(below(12), wxColour(0xE6, 0x9F, 0x00));
  EXPECT_EQ(below(11), colour(wxSYS_COLOUR_WINDOW));
  const auto before = [&](int byte) { return at(scene.X(scene.columns.Hex(byte)) - 2, scene.rowHeight / 2); };
  EXPECT_NE(before(8), before(7));  // the bar of a name
}

}  // namespace
}  // namespace tarvelo
