#include "shell/pictures/pictures_panel.h"

#include <wx/dcmemory.h>
#include <wx/image.h>

#include "shell/desk.h"
#include "shell/pictures/gallery.h"
#include "shell/pictures/picture_view.h"

namespace tarvelo {
namespace {

// The demonstration fullflash with its Pictures panel open.
class PicturesDesk : public Desk {
 protected:
  PicturesDesk() { OpenDemo(pictures); }

  [[nodiscard]] PicturesPanel& Panel() { return Shown<PicturesPanel>(); }
  [[nodiscard]] const Picture& PictureAt(std::size_t row) { return Panel().Pictures().pictures.at(row); }
};

TEST_F(PicturesDesk, ListAndGalleryFollowEachOther) {
  EXPECT_EQ(List().Selected(), 0u);
  EXPECT_EQ(Panel().Pic().GetBitmap()->width, 4);
  EXPECT_EQ(Status(6), std::to_string(List().RowCount()) + " / 0");
  List().Select(7);
  EXPECT_EQ(Panel().AllPictures().Selected(), 7u);
  EXPECT_EQ(Panel().Pic().GetBitmap()->width, PictureAt(7).width);
  Panel().AllPictures().onSelect(9);
  EXPECT_EQ(List().Selected(), 9u);
  Choose(Id::Info);
  Choose(pictures);  // starts with the first again
  EXPECT_EQ(List().Selected(), 0u);
  EXPECT_EQ(Said(Id::Find, "2a0"), "ask Enter the string for search: ");  // in any column
  const auto first = *List().Selected();
  main->Run(Id::FindMore);
  EXPECT_GT(*List().Selected(), first);

  main->Dumps().OpenF(WriteDump("other.bin"));
  Choose(pictures);
  EXPECT_FALSE(Panel().Pic().GetBitmap());
  EXPECT_FALSE(Panel().Commands()->CanRun(Id::SaveAllPic));
  EXPECT_EQ(List().EmptyHint(), "Nothing of this kind was found in the fullflash.");
}

TEST_F(PicturesDesk, AreSavedAsBitmaps) {
  List().Select(7);
  const auto file = folder / "BMP" / "demo_0007.bmp";
  EXPECT_EQ(Said(Id::SavePic), "iPicture \"7\" was saved in file" + At(file));
  EXPECT_EQ(wxImage(WxPath(file), wxBITMAP_TYPE_BMP).GetSize(),
            wxSize(PictureAt(7).width, PictureAt(7).height));
  EXPECT_FALSE(FileExist(folder / "BMP" / "demo_0007.png"));

  main->Run(Id::SavePng);
  EXPECT_EQ(Said(Id::SaveAllPic), "iAll pictures were saved to" + At(folder / "BMP" / "NNNN.bmp"));
  const std::filesystem::directory_iterator files(folder / "BMP");
  EXPECT_EQ(std::distance(begin(files), end(files)), static_cast<long>(2 * List().RowCount()));
  EXPECT_EQ(List().Selected(), 7u);
  EXPECT_EQ(Status(2), "C55 v24 Tarvelo demo T9lg4");  // the hint is gone
}

TEST_F(PicturesDesk, ZoomStaysWithinBounds) {
  for (const auto& [id, zoom] : {std::pair(Id::ZoomIn, 16), {Id::ZoomOut, 1}}) {
    for (int i = 0; i < 20; ++i) main->Run(id);
    EXPECT_EQ(Panel().Pic().Zoom(), zoom);
  }
  wxMouseEvent turn(wxEVT_MOUSEWHEEL);
  turn.m_wheelRotation = turn.m_wheelDelta = 120;
  for (const auto& [axis, zoom] : {std::pair(wxMOUSE_WHEEL_HORIZONTAL, 1), {wxMOUSE_WHEEL_VERTICAL, 2}}) {
    turn.m_wheelAxis = axis;
    Panel().Pic().ProcessWindowEvent(turn);
    EXPECT_EQ(Panel().Pic().Zoom(), zoom);
  }
  EXPECT_TRUE(Key(Panel().Pic(), '0'));
  EXPECT_FALSE(Key(Panel().Pic(), '0', wxMOD_CONTROL));  // keys of the menu bar
  EXPECT_FALSE(Key(Panel().AllPictures(), WXK_LEFT, wxMOD_ALT));
}

// A picture of width 0 among others: they stay visible, and the gallery keeps its background.
TEST_F(PicturesDesk, EmptyPictureSpoilsNoOther) {
  Gallery& gallery = Panel().AllPictures();
  gallery.SetPictures(3, [](std::size_t index) {
    Bitmap bitmap(index == 1 ? 0 : 20, 20);
    std::ranges::fill(bitmap.pixels, 0x12AB34);
    return bitmap;
  });
  gallery.Select(1);
  const wxSize size = gallery.GetClientSize();
  wxBitmap seen(size);
  {
    wxMemoryDC memory(seen);
    gallery.OnDraw(memory);
  }
  const wxImage image = seen.ConvertToImage();
  int coloured = 0;
  for (int y = 0; y < size.y; ++y)
    for (int x = 0; x < size.x; ++x) coloured += image.GetRed(x, y) == 0x12 && image.GetGreen(x, y) == 0xAB;
  EXPECT_EQ(coloured, 2 * 20 * 20);
}

TEST(ToImage, EnlargesPixelsAndShowsTheCheckerboard) {
  Bitmap bitmap(2, 1);
  bitmap.pixels = {0x112233, backgroundColour};
  const wxImage image = ToImage(bitmap, 8, wxRect(4, 2, 12, 6));
  EXPECT_EQ(image.GetRed(3, 0), 0x11);
  EXPECT_EQ(image.GetBlue(0, 5), 0x33);
  EXPECT_EQ(image.GetRed(4, 0), 0xFF);  // (8, 2): a light square
  EXPECT_EQ(image.GetRed(8, 0), 0xD0);  // (12, 2): a dark one
}

}  // namespace
}  // namespace tarvelo
