#include <wx/clipbrd.h>
#include <wx/image.h>

#include "demo/demo_image.h"
#include "shell/desk.h"
#include "shell/gallery.h"
#include "shell/list_view.h"
#include "shell/picture_view.h"
#include "shell/pictures_panel.h"

namespace tarvelo {
namespace {

// The demonstration fullflash with its Pictures panel open.
class PicturesDesk : public Desk {
 protected:
  PicturesDesk() {
    main->OpenF(folder.Write("demo.bin", DemoImage()));
    Choose(Pictures);
  }

  [[nodiscard]] PicturesPanel& Panel() { return dynamic_cast<PicturesPanel&>(*main->Visible()); }
  [[nodiscard]] ListView& List() { return Panel().ListP(); }
};

TEST_F(PicturesDesk, ShowTheFirstPictureAndTheCounts) {
  EXPECT_EQ(Title(), "Tarvelo - Pictures");
  EXPECT_EQ(List().Selected(), 0u);
  EXPECT_EQ(List().RowCount(), Panel().Pictures().pictures.size());
  EXPECT_EQ(Panel().Pic().GetBitmap()->width, 4);
  EXPECT_EQ(Status(6), std::to_string(Panel().Pictures().pictures.size()) + " / 0");
  EXPECT_NE(
      InfoText().find("1: Address of PIT-table 200000\n2: Address of PIT-table 220000\nNumber of pictures: "),
      std::string::npos);
  EXPECT_EQ(Caption(SaveText), "Save list as text");
}

TEST_F(PicturesDesk, ListAndGalleryFollowEachOther) {
  List().Select(7);
  EXPECT_EQ(Panel().AllPictures().Selected(), 7u);
  EXPECT_EQ(Panel().Pic().GetBitmap()->width, Panel().Pictures().pictures[7].width);
  Panel().AllPictures().onSelect(9);
  EXPECT_EQ(List().Selected(), 9u);
  Choose(Info);
  Choose(Pictures);  // begins with the first again, without another search
  EXPECT_EQ(List().Selected(), 0u);
  EXPECT_EQ(InfoText().find("Number of pictures"), InfoText().rfind("Number of pictures"));
}

TEST_F(PicturesDesk, AreSavedAsBitmaps) {
  List().Select(7);
  main->Run(SavePic);
  EXPECT_EQ(script.TakeSaid(),
            "iPicture \"7\" was saved in file\n\n" + PathText(folder / "BMP" / "demo_0007.bmp"));
  const Picture& picture = Panel().Pictures().pictures[7];
  const wxImage image(WxPath(folder / "BMP" / "demo_0007.bmp"), wxBITMAP_TYPE_BMP);
  EXPECT_EQ(image.GetSize(), wxSize(picture.width, picture.height));
  EXPECT_FALSE(FileExist(folder / "BMP" / "demo_0007.png"));

  main->Run(SavePng);
  main->Run(SaveAllPic);
  EXPECT_EQ(script.TakeSaid(), "iAll pictures were saved to\n\n" + PathText(folder / "BMP" / "NNNN.bmp"));
  const std::filesystem::directory_iterator files(folder / "BMP");
  EXPECT_EQ(std::distance(begin(files), end(files)), static_cast<long>(2 * List().RowCount()));
  EXPECT_EQ(List().Selected(), 7u);
  EXPECT_EQ(Status(2), "C55 v24 Tarvelo demo T9lg4");
}

TEST_F(PicturesDesk, AreSearchedInAnyColumn) {
  script.answer = "2a0";
  main->Run(FindP);
  EXPECT_EQ(script.TakeSaid(), "ask Enter the string for search: ");
  const auto first = *List().Selected();
  main->Run(FindMoreP);
  EXPECT_GT(*List().Selected(), first);
  script.answer = "no such";
  main->Run(FindP);
  EXPECT_EQ(script.TakeSaid(), "ask Enter the string for search: 2a0");
  EXPECT_EQ(script.TakeSaid(), "!String \"no such\" wasn't found");
}

TEST_F(PicturesDesk, ListIsSortedAndFiltered) {
  const std::size_t all = List().RowCount();
  List().Select(5);
  List().SortBy(2);
  List().SortBy(2);  // descending
  EXPECT_EQ(List().Selected(), 5u);
  ASSERT_TRUE(List().Find("", false));
  EXPECT_EQ(List().Selected(), all - 1);
  List().Filter("101");
  ASSERT_TRUE(List().Find("", false));
  EXPECT_NE(List().Row(*List().Selected()).cells[3], "  4");
  List().Select(0);  // hidden by the filter, which goes
  EXPECT_EQ(List().Selected(), 0u);
}

TEST_F(PicturesDesk, GoToTheClipboard) {
  List().Select(1);
  main->Run(OffsetP);
  EXPECT_EQ(ClipboardText(), "280004");
  List().CopyRows();
  EXPECT_EQ(ClipboardText().substr(0, 30), "P\tN/P\tN\tX\tY\tB\tOffset\tSize\tUnco");
  EXPECT_NE(ClipboardText().find("\n1\t001\t   1\t"), std::string::npos);
  main->Run(CopyPic);
  const wxClipboardLocker lock;
  EXPECT_TRUE(wxTheClipboard->IsSupported(wxDF_BITMAP));
}

TEST_F(PicturesDesk, ZoomStaysWithinBounds) {
  PictureView& view = Panel().Pic();
  view.SetZoom(99);
  EXPECT_EQ(view.Zoom(), 16);
  main->Run(ZoomIn);
  EXPECT_EQ(view.Zoom(), 16);
  view.SetZoom(1);
  main->Run(ZoomOut);
  EXPECT_EQ(view.Zoom(), 1);
}

TEST_F(PicturesDesk, GoWithTheDocument) {
  main->OpenF(WriteDump("other.bin"));
  EXPECT_EQ(Status(6), "");
  Choose(Pictures);
  EXPECT_EQ(List().RowCount(), 0u);
  EXPECT_FALSE(Panel().Pic().GetBitmap());
  EXPECT_FALSE(Panel().Commands()->CanRun(SaveAllPic));
  for (const int id : {SavePic, OffsetP, ShowPic, CopyPic, OpenP})
    main->Run(id);  // nothing is chosen: nothing happens
  EXPECT_TRUE(script.said.empty());
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
