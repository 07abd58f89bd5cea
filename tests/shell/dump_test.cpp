#include "shell/map/dump_panel.h"

#include "shell/desk.h"
#include "shell/map/image_strip.h"
#include "shell/map/map_legend.h"

namespace tarvelo {
namespace {

const std::vector<std::uint8_t> plain(0x100000, 0x90);  // without any findings

class DumpDesk : public Desk {
 protected:
  [[nodiscard]] DumpPanel& Panel() { return Shown<DumpPanel>(); }
  [[nodiscard]] const std::vector<Claim>& Regions() { return Panel().Map().regions; }
  [[nodiscard]] std::size_t Row() { return List().Selected().value_or(static_cast<std::size_t>(-1)); }
  [[nodiscard]] const Claim& Region() { return Regions().at(Row()); }
  [[nodiscard]] std::size_t RowAt(Offset offset) {
    return static_cast<std::size_t>(&Panel().Map().Within(offset, 1).front() - Regions().data());
  }
};

TEST_F(DumpDesk, StepsThroughTheRegionsOfAKind) {
  OpenDemo(Id::Dump);
  EXPECT_EQ(List().RowCount(), Regions().size());
  EXPECT_EQ(Status(8), std::to_string(Regions().size()) + " / 8388608");
  EXPECT_EQ(Row(), 0u);
  List().Select(RowAt(0x7FF00));
  main->Run(Id::Next);  // there is no other firmware header
  EXPECT_EQ(Region().offset, 0x7FF00);

  const auto next = [&](int id) {
    const Claim before = Region();
    main->Run(id);
    EXPECT_EQ(Region().kind, before.kind);
    return Region().offset - before.offset;
  };
  List().Filter("code");  // hides some of the regions to find
  Panel().Strip().onClick(0x280004);
  EXPECT_EQ(Row(), RowAt(0x280004));
  const Offset step = next(Id::Next);
  EXPECT_GT(step, 0);
  EXPECT_EQ(next(Id::Previous), -step);
  List().Select(0);
  EXPECT_GT(next(Id::Previous), 0);  // wraps around to the last one
  EXPECT_LT(next(Id::Next), 0);
}

TEST_F(DumpDesk, LegendGoesRoundTheRegionsOfAGroup) {
  std::vector<std::uint8_t> bytes = plain;
  std::fill_n(bytes.begin() + 0x1000, 0x200, 0xFF);
  std::fill_n(bytes.begin() + 0x20000, 0x10000, 0xFF);
  OpenBytes("plain.bin", bytes, Id::Dump);
  const wxWindowList& legend = Panel().Legend().GetChildren();
  ASSERT_EQ(legend.size(), 2u);
  auto& erased = dynamic_cast<wxButton&>(*legend.GetFirst()->GetData());
  EXPECT_EQ(erased.GetToolTipText().BeforeFirst('\n'), "erased  66048  6.3 %");
  for (const Offset expected : {0x1000, 0x20000, 0x1000}) {
    Click(erased);
    EXPECT_EQ(Region().offset, expected);
  }
}

TEST_F(DumpDesk, SeesEdits) {
  OpenBytes("plain.bin", plain, Id::Dump);
  Open().Write(0x4000, std::vector<std::uint8_t>(0x200, 0xFF));
  Settle();  // while the panel is visible
  ASSERT_EQ(Regions().size(), 3u);
  EXPECT_EQ(Row(), 0u);
  List().Select(2);
  Open().Write(0xFF000, std::vector<std::uint8_t>(0x200, 0xFF));
  Settle();
  EXPECT_EQ(Row(), 2u);  // the chosen place stays
  Choose(Id::Info);
  UndoAll();
  Settle();
  Choose(Id::Dump);
  EXPECT_EQ(Regions().size(), 1u);
  EXPECT_EQ(Row(), 0u);

  Open().Redo();
  DumpPanel& panel = Panel();
  main->Dumps().CloseFF();  // before the map is rebuilt
  Settle();
  EXPECT_TRUE(panel.Map().regions.empty());
  EXPECT_TRUE(panel.Legend().GetChildren().empty());
  EXPECT_TRUE(script.said.empty());
}

// A strip with 100 columns.
class StripDesk : public Desk {
 protected:
  StripDesk() {
    strip->SetSize(strip->FromDIP(wxSize(10, 30)) + wxSize(100, 0));
    strip->onClick = [this](Offset offset) { clicked = offset; };
  }

  // The place that a click reports, or a drag at its end; -1 for none.
  Offset Clicked(const wxPoint& from, std::optional<wxPoint> to = {}) {
    clicked = -1;
    Mouse(*strip, wxEVT_LEFT_DOWN, from);
    if (to) Mouse(*strip, wxEVT_MOTION, *to);
    Mouse(*strip, wxEVT_LEFT_UP, to.value_or(from));
    EXPECT_FALSE(strip->HasCapture());
    return clicked;
  }

  ImageStrip* strip = new ImageStrip(main);
  Offset clicked = -1;
};

TEST_F(StripDesk, FindsPlacesAgain) {
  for (const Offset size : {2, 99, 100, 101, 12345, 0x4000000}) {
    strip->Show(size, {{0, size / 2, *wxRED}});
    EXPECT_EQ(strip->ColumnsOf(0, size).x, strip->ColumnsOf(0, 1).x);
    EXPECT_EQ(strip->ColumnsOf(0, size).width, 100);
    EXPECT_EQ(Clicked({-50, 10}, wxPoint(500, -9)), Clicked(strip->PointOf(size - 1)));  // past the ends
    for (const Offset place : {Offset{0}, size / 3, size / 2, size - 1}) {
      const Offset found = Clicked(strip->PointOf(place));
      EXPECT_LE(found, place);
      EXPECT_LE(place - found, size / 100);
    }
  }

  // Parts shorter than a pixel.
  std::vector<StripPart> parts;
  for (Offset i = 0; i < 4; ++i) parts.push_back({1000000 + i * 1000, 1, wxColour(10, 20, 30)});
  parts.push_back({1005000, 1, *wxRED});
  parts.push_back({0x4000000 - 1, 100, *wxBLUE});  // cut off at the end
  strip->Show(0x4000000, parts);
  for (const Offset place : {1000000, 1005000, 0x4000000 - 1})
    EXPECT_EQ(Clicked(strip->PointOf(place)), place);
  EXPECT_EQ(Clicked(strip->PointOf(1003000)), 1000000);  // the first of them represents all
  strip->Show(0, {});
  EXPECT_EQ(Clicked({50, 10}), -1);
}

}  // namespace
}  // namespace tarvelo
