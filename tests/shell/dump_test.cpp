#include <wx/button.h>

#include "demo/demo_image.h"
#include "eeprom/block_store.h"
#include "map/map_table.h"
#include "shell/desk.h"
#include "shell/dump_panel.h"
#include "shell/image_strip.h"
#include "shell/list_view.h"
#include "shell/map_legend.h"

namespace tarvelo {
namespace {

class DumpDesk : public Desk {
 protected:
  // Opens an image and shows its map.
  void ShowMapOf(const std::vector<std::uint8_t>& image) {
    main->OpenF(folder.Write("demo.bin", image));
    Choose(Dump);
  }

  [[nodiscard]] DumpPanel& Panel() { return dynamic_cast<DumpPanel&>(*main->Visible()); }
  [[nodiscard]] ListView& List() { return Panel().ListD(); }
  [[nodiscard]] const std::vector<MapRegion>& Regions() { return Panel().Map().regions; }
  [[nodiscard]] std::size_t Row() { return List().Selected().value_or(static_cast<std::size_t>(-1)); }
  [[nodiscard]] std::size_t RowAt(Offset offset) {
    return static_cast<std::size_t>(&Panel().Map().Within(offset, 1).front() - Regions().data());
  }

  // The mouse over the strip: the button goes down, is dragged on, and goes up.
  void Drag(const wxPoint& from, const wxPoint& to) {
    for (const auto& [type, point] :
         {std::pair(wxEVT_LEFT_DOWN, from), std::pair(wxEVT_MOTION, to), std::pair(wxEVT_LEFT_UP, to)}) {
      wxMouseEvent event(type);
      event.SetPosition(point);
      Panel().Strip().ProcessWindowEvent(event);
    }
  }

  [[nodiscard]] std::vector<wxButton*> LegendButtons() {
    std::vector<wxButton*> buttons;
    for (wxWindow* child : Panel().Legend().GetChildren()) buttons.push_back(dynamic_cast<wxButton*>(child));
    return buttons;
  }
};

// An image of 1 MiB without anything: 0x90 everywhere.
ImageBuilder Plain(std::size_t size = 0x100000) {
  ImageBuilder builder(size);
  builder.Fill(0, size, 0x90);
  return builder;
}

TEST_F(DumpDesk, LabelsEveryByteAndSavesTheList) {
  ShowMapOf(DemoImage());
  EXPECT_EQ(Title(), "Tarvelo - Dump");
  EXPECT_EQ(Caption(SaveText), "Save list as text");
  Offset at = 0;
  for (const MapRegion& region : Regions()) {
    ASSERT_EQ(region.offset, at);
    at += region.size;
  }
  EXPECT_EQ(at, main->Open().image.ffEnd() + Offset{1});
  EXPECT_EQ(List().RowCount(), Regions().size());
  EXPECT_EQ(Status(8), std::to_string(Regions().size()) + " / " + std::to_string(at));
  EXPECT_EQ(Row(), 0u);

  long long sum = 0;
  for (wxButton* button : LegendButtons()) {
    const std::string text = Utf8(button->GetToolTipText());
    const auto size = text.find("  ");  // name, size, share
    ASSERT_NE(size, text.npos) << text;
    sum += std::stoll(text.substr(size));
  }
  EXPECT_EQ(sum, at);

  main->Run(SaveText);
  EXPECT_EQ(script.TakeSaid(), "iList was saved in file\n\n" + PathText(folder / "demo_D.txt"));
  EXPECT_EQ(ReadAll(folder / "demo_D.txt"),
            TabSeparated(MapRows(Panel().Map(), main->Open().image).All(), CrLf));
}

TEST_F(DumpDesk, StripSelectsTheRegionUnderTheMouse) {
  ShowMapOf(DemoImage());
  // Regions that are longer than a column and ones of which a column has many.
  for (const Offset place : {Offset{0x7FF00}, Offset{0x280004}, Offset{0x100000}, Offset{0x7FFFFF}}) {
    const wxPoint point = Panel().Strip().PointOf(place);
    Drag(point, point);
    const MapRegion& region = Regions()[Row()];
    const wxRect columns = Panel().Strip().ColumnsOf(region.offset, region.size);
    EXPECT_LE(columns.x, point.x) << place;
    EXPECT_GE(columns.GetRight(), point.x) << place;
    EXPECT_EQ(GroupOf(region.kind), GroupOf(Regions()[RowAt(place)].kind)) << place;
  }
  const wxSize size = Panel().Strip().GetClientSize();
  Drag({-50, size.y / 2}, {size.x + 50, -9});  // beyond the ends
  EXPECT_EQ(Panel().Strip().ColumnsOf(Regions()[Row()].offset, 1).x,
            Panel().Strip().ColumnsOf(main->Open().image.ffEnd(), 1).x);
  EXPECT_FALSE(Panel().Strip().HasCapture());
}

TEST_F(DumpDesk, CommandsTakeTheChosenRegion) {
  ShowMapOf(DemoImage());
  List().Select(RowAt(0x7FF00));
  EXPECT_EQ(WhatOf(Regions()[Row()]), "firmware header");
  main->Run(OffsetD);
  EXPECT_EQ(ClipboardText(), "07FF00");
  main->Run(AddressD);
  EXPECT_EQ(ClipboardText(), "87FF00");
  main->Run(NextD);  // there is no other
  EXPECT_EQ(Regions()[Row()].offset, 0x7FF00);

  const auto next = [&](int id) {
    const MapRegion before = Regions()[Row()];
    main->Run(id);
    EXPECT_EQ(Regions()[Row()].kind, before.kind);
    return Regions()[Row()].offset - before.offset;
  };
  List().Filter("code");  // what is sought may be hidden
  List().Select(RowAt(0x280004));
  const Offset step = next(NextD);
  EXPECT_GT(step, 0);
  EXPECT_EQ(next(PreviousD), -step);
  List().Select(0);
  EXPECT_GT(next(PreviousD), 0);  // round to the last one
  EXPECT_LT(next(NextD), 0);

  main->Run(OpenD);
  EXPECT_EQ(Title(), "Tarvelo - Hex view");
}

TEST_F(DumpDesk, LegendGoesRoundTheRegionsOfAGroup) {
  ImageBuilder builder = Plain();
  builder.Fill(0x1000, 0x200, 0xFF);
  builder.Fill(0x20000, 0x10000, 0xFF);
  ShowMapOf(std::move(builder).Take());
  const auto buttons = LegendButtons();
  ASSERT_EQ(buttons.size(), 2u);
  EXPECT_EQ(buttons[0]->GetToolTipText().BeforeFirst('\n'), "erased  66048  6.3 %");
  for (const Offset expected : {0x1000, 0x20000, 0x1000}) {
    wxCommandEvent click(wxEVT_BUTTON, buttons[0]->GetId());
    buttons[0]->ProcessWindowEvent(click);
    EXPECT_EQ(Regions()[Row()].offset, expected);
  }
}

TEST_F(DumpDesk, EditsAreSeen) {
  ShowMapOf(Plain().Take());
  ASSERT_EQ(Regions().size(), 1u);
  const std::vector<std::uint8_t> erased(0x200, 0xFF);
  main->WriteImage(0x4000, erased);
  Settle();  // while it is shown
  ASSERT_EQ(Regions().size(), 3u);
  EXPECT_EQ(Row(), 0u);
  List().Select(2);
  Choose(Info);
  main->UndoImage();
  Settle();
  Choose(Dump);
  EXPECT_EQ(Regions().size(), 1u);
  EXPECT_EQ(Row(), 0u);
  main->RedoImage();
  main->CloseFF();  // before it has been made again
  Settle();
  EXPECT_TRUE(script.said.empty());
}

TEST_F(DumpDesk, TooManyBlocksAreTold) {
  ImageBuilder builder = Plain();
  for (std::size_t i = 0; i < 2100; ++i) {
    const std::size_t header = 0x60000 + 12 * i;
    builder.Byte(header, liveBlockState);
    builder.Byte(header + 1, 0);
    builder.Word(header + 2, 0x10);
    builder.DWord(header + 4, builder.Address(0x90000));
    builder.Word(header + 8, static_cast<std::uint16_t>(5000 + i % 100));
    builder.Byte(header + 11, liveBlockState);
  }
  ShowMapOf(std::move(builder).Take());
  EXPECT_NE(script.TakeSaid().find("There are more than 2000 EEPROM blocks."), std::string::npos);
  EXPECT_EQ(List().RowCount(), 0u);
  for (const int id : {OpenD, OffsetD, AddressD, NextD, PreviousD}) main->Run(id);
  Drag({20, 10}, {40, 10});
  EXPECT_TRUE(script.said.empty());
}

TEST_F(DumpDesk, SmallestImageAndNone) {
  ShowMapOf({0x12, 0x34});
  EXPECT_EQ(Regions().size(), 1u);
  Drag({0, 10}, {Panel().Strip().GetClientSize().x, 10});
  Settle();
  EXPECT_EQ(Row(), 0u);
  DumpPanel& panel = Panel();
  main->CloseFF();
  Settle();
  EXPECT_EQ(panel.ListD().RowCount(), 0u);
  EXPECT_TRUE(panel.Legend().GetChildren().empty());
  EXPECT_EQ(Status(8), "");
}

// A strip of 100 columns.
class StripDesk : public Desk {
 protected:
  StripDesk() {
    strip->SetSize(strip->FromDIP(wxSize(10, 30)) + wxSize(100, 0));
    strip->onClick = [this](Offset offset) { clicked.push_back(offset); };
  }
  void Press(const wxPoint& point) {
    for (const auto& type : {wxEVT_LEFT_DOWN, wxEVT_LEFT_UP}) {
      wxMouseEvent event(type);
      event.SetPosition(point);
      strip->ProcessWindowEvent(event);
    }
  }
  ImageStrip* strip = new ImageStrip(main);
  std::vector<Offset> clicked;
};

TEST_F(StripDesk, PlacesAreFoundAgain) {
  for (const Offset size : {2, 99, 100, 101, 12345, 0x4000000}) {
    strip->Show(size, {{0, size / 2, *wxRED}});
    const int left = strip->ColumnsOf(0, 1).x;
    EXPECT_EQ(strip->ColumnsOf(0, size),
              wxRect(left, strip->ColumnsOf(0, 1).y, 100, strip->ColumnsOf(0, 1).height));
    for (const Offset place : {Offset{0}, size / 3, size / 2, size - 1}) {
      clicked.clear();
      Press(strip->PointOf(place));
      ASSERT_EQ(clicked.size(), 1u);
      EXPECT_LE(clicked[0], place);
      EXPECT_LE(place - clicked[0], size / 100);
    }
  }
}

TEST_F(StripDesk, PartsShorterThanAPixelAreHit) {
  std::vector<StripPart> parts;
  for (Offset i = 0; i < 4; ++i) parts.push_back({1000000 + i * 1000, 1, wxColour(10, 20, 30)});
  parts.push_back({1005000, 1, *wxRED});
  parts.push_back({0x4000000 - 1, 100, *wxBLUE});  // cut off at the end
  strip->Show(0x4000000, parts);
  for (const Offset place : {1000000, 1005000, 0x4000000 - 1}) {
    Press(strip->PointOf(place));
    EXPECT_EQ(clicked.back(), place);
  }
  Press(strip->PointOf(1003000));  // the first of them stands for all
  EXPECT_EQ(clicked.back(), 1000000);
  clicked.clear();
  strip->Show(0, {});
  Press({50, 10});
  EXPECT_TRUE(clicked.empty());
}

}  // namespace
}  // namespace tarvelo
