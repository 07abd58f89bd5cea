// The window around the panels: the bar of panels, going back and forth, going to a place, what lies there,
// where the user left off, and lists that take long.
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "shell/desk.h"
#include "shell/frame/app.h"
#include "shell/frame/panel_bar.h"
#include "shell/frame/panel_button.h"
#include "shell/frame/what_lies_window.h"
#include "shell/hex/hex_panel.h"
#include "shell/list/row_order.h"
#include "shell/settings/recent_files.h"
#include "shell/view/place_line.h"

namespace tarvelo {
namespace {

class WindowDesk : public Desk {
 protected:
  [[nodiscard]] PanelButton& On(int id) const { return *main->Bar().Button(id); }
  [[nodiscard]] std::string Figure(int id) const { return Utf8(On(id).Figure()); }
  static void Press(PanelButton& button, int key) {
    wxKeyEvent event(wxEVT_KEY_DOWN);
    event.m_keyCode = key;
    button.ProcessWindowEvent(event);
    Settle();
  }
  // All texts in a window, and its buttons by their captions.
  [[nodiscard]] static std::string TextsIn(wxWindow& window) {
    std::string all;
    (void)FirstIn<wxStaticText>(window, [&](const wxStaticText& text) {
      all += Utf8(text.GetLabelText()) + "|";
      return false;
    });
    return all;
  }
  [[nodiscard]] static wxButton* ButtonIn(wxWindow& window, Text caption) {
    return FirstIn<wxButton>(
        window, [&](const wxButton& button) { return button.GetLabelText() == Wx(Messages().Msg(caption)); });
  }
};

TEST_F(WindowDesk, HasABarOfPanels) {
  EXPECT_FALSE(On(pictures).IsEnabled());
  EXPECT_EQ(main->Bar().Button(Id::Langpack), nullptr);  // not built
  OpenDemo(pictures);
  EXPECT_EQ(Figure(pictures), "253");
  EXPECT_EQ(Figure(ringtones), "");  // not searched
  EXPECT_TRUE(On(pictures).IsMarked() && On(pictures).AcceptsFocusFromKeyboard());
  EXPECT_FALSE(On(Id::Info).IsMarked() || On(Id::Info).AcceptsFocusFromKeyboard());
  Mouse(On(Id::HexView), wxEVT_LEFT_DOWN);
  EXPECT_EQ(Title(), "Tarvelo - Hex view");
  Press(On(ringtones), WXK_RETURN);
  EXPECT_EQ(Title(), "Tarvelo - Ringtones");
  EXPECT_EQ(Figure(ringtones), "16");
  Open().Write(0x10, std::vector<std::uint8_t>{1});
  Settle();
  EXPECT_EQ(Figure(pictures), "");  // may have changed
  EXPECT_TRUE(On(ringtones).IsMarked());

  const int wide = main->Bar().GetSize().x;
  Resize(main->FromDIP(wxSize(520, 340)));
  EXPECT_LT(main->Bar().GetSize().x, wide / 2);
  EXPECT_TRUE(main->Bar().GetClientRect().Contains(On(Id::PatchMenu).GetRect()));
  Choose(Id::PanelBar);
  Restart();
  EXPECT_FALSE(main->Bar().IsShown() || Item(Id::PanelBar)->IsChecked());
}

TEST_F(WindowDesk, GoesBackAndForth) {
  OpenDemo(pictures);
  List().Select(5);
  ShowHex(0x1234, 0);
  Choose(Id::Dump);
  EXPECT_TRUE(On(Id::GoBack).IsEnabled());
  EXPECT_FALSE(On(Id::GoForward).IsEnabled() || Enabled(Id::GoForward));
  Mouse(List().Control(), wxEVT_AUX1_DOWN);
  EXPECT_EQ(Shown<HexPanel>().Here(), 0x1234);
  Mouse(On(Id::GoBack), wxEVT_LEFT_DOWN);
  Settle();
  EXPECT_EQ(List().Selected(), 5u);
  Mouse(List().Control(), wxEVT_AUX2_DOWN);
  EXPECT_EQ(Title(), "Tarvelo - Hex view");
  Settle();
  EXPECT_TRUE(Enabled(Id::GoForward));
}

TEST_F(WindowDesk, GoesToAPlaceFromEveryPanel) {
  OpenDemo(pictures);
  PlaceLine& line = main->GoToLine();
  const auto type = [&](const std::string& text) {
    line.Field().SetValue(Wx(text));
    return Utf8(line.Fault().GetLabelText());
  };
  Choose(Id::GoTo);
  EXPECT_TRUE(line.IsShown());
  EXPECT_EQ(type("2A0:0012"), "280012 = 2A0:0012 = A8:0012  picture 1");
  EXPECT_EQ(type("x"), "");
  type("280010h");
  line.Enter();
  EXPECT_FALSE(line.IsShown());
  auto& hex = Shown<HexPanel>();
  EXPECT_EQ(hex.Here(), 0x280010);
  EXPECT_TRUE(Utf8(hex.Information().GetLabelText()).ends_with("picture 1"));
  Choose(Id::GoTo);  // its own line
  EXPECT_FALSE(line.IsShown());
  hex.Place().Field().SetValue("-20h");
  EXPECT_TRUE(Utf8(hex.Place().Fault().GetLabelText()).starts_with("27FFF0 = 29F:3FF0"));
  hex.Place().Enter();
  EXPECT_EQ(hex.Here(), 0x27FFF0);
}

TEST_F(WindowDesk, SaysWhatLiesHere) {
  OpenDemo(Id::HexView);
  ShowHex(0x280010, 0);
  main->Run(Id::WhatLiesHere);
  WhatLiesWindow& window = *main->WhatLies();
  EXPECT_EQ(TextsIn(window),
            "280010 = 2A0:0010 = A8:0010|Nothing is known about this place.|"
            "Not searched yet: EEPROM, Pictures, Ringtones, Files, Functions|");
  Click(*ButtonIn(window, Text::SearchNow));
  EXPECT_EQ(TextsIn(window), "280010 = 2A0:0010 = A8:0010|picture 1\n280004 .. 280027  (36)|");
  EXPECT_EQ(Title(), "Tarvelo - Hex view");
  Click(*ButtonIn(window, Text::ShowInPanel));
  EXPECT_EQ(Title(), "Tarvelo - Pictures");
  EXPECT_EQ(List().Selected(), 1u);
  Open().NamePlace(0x280010, "A & B", "");
  Settle();
  EXPECT_NE(TextsIn(window).find("|A & B|"), std::string::npos) << TextsIn(window);
  main->Dumps().CloseFF();
  EXPECT_FALSE(window.IsShown());
}

TEST_F(WindowDesk, ContinuesWhereTheUserLeftOff) {
  WriteDump("c55.bin");
  main->Dumps().OpenF(WriteDump("a b.bin"));
  Choose(Id::HexView);
  ShowHex(0x1234, 0);
  Restart();
  EXPECT_TRUE(main->InfoText().FirstFocus().IsShownOnScreen());
  EXPECT_EQ(Utf8(main->InfoText().FirstFocus().GetLabel()), Messages().Msg(Text::Continue));
  EXPECT_NE(ButtonIn(main->InfoText().Window(), Text::Continue), nullptr);
  main->Run(Id::Continue);
  EXPECT_EQ(Shown<HexPanel>().Here(), 0x1234);
  EXPECT_EQ(main->Dumps().Recent().Phone(0), "C55 v24 FD-02");
  script.file = folder / "c55.bin";
  Choose(Id::OpenInNewWindow);
  EXPECT_NE(script.started.back().find("c55.bin"), std::string::npos);
  const int nextLeft = main->GetPosition().x + main->FromDIP(32);  // both title bars are in sight
  EXPECT_EQ(Settings(SettingsFile()).GetIni("Window", "Left"), std::to_string(nextLeft));
  EXPECT_EQ(Open().Path(), folder / "a b.bin");
  main->Dumps().OpenNamed("file://" + PathText(folder / "a%20b.bin"));
  EXPECT_EQ(Open().Path(), folder / "a b.bin");
  EXPECT_EQ(Title(), "Tarvelo - Info");
  Choose(Id::CompareRecent1);
  EXPECT_EQ(Title(), "Tarvelo - Comparison");
}

TEST(RecentFilesOfTwoWindows, AddUp) {
  const TemporaryFolder folder;
  Settings settings(folder / "Tarvelo.ini");
  RecentFiles first, second;
  first.Add("old");
  first.Write(settings);
  for (RecentFiles* window : {&first, &second}) window->Read(settings);
  first.Add("a", "A");
  second.Add("b", "B");
  first.Write(settings);
  second.Write(settings);
  first.Read(settings);
  EXPECT_EQ(first[0] + first.Phone(0) + first[1] + first.Phone(1) + first[2], "bBaAold");
}

TEST(Options, AreAnswered) {
  EXPECT_EQ(AnswerTo("--version", Messages()), "Tarvelo v" TARVELO_VERSION);
  EXPECT_TRUE(AnswerTo("--help", Messages())->starts_with("tarvelo FILE"));
  EXPECT_FALSE(AnswerTo("dump.bin", Messages()));
  EXPECT_EQ(WindowsFor({"a.qpt", "b.qpt", "c.bin", "d.QPT", "e.qpt", "f.fls"}),
            (std::vector<FilesOfWindow>{{"a.qpt"}, {"b.qpt"}, {"c.bin", "d.QPT"}, {"e.qpt"}, {"f.fls"}}));
}

// Texts that differ only behind their first 16 or 32 bytes, and equal ones, which keep their order.
TEST(RowOrder, SortsByWholeTextsInSteps) {
  const std::string same = "0123456789ABCDEF";
  Table table{{"A"}, {}};
  for (const std::string& text :
       {same + same + "b", same, same + "x", same + same + "a", std::string("0"), same})
    table.rows.push_back({{text, text == same ? "same" : "other"}, false});
  const TableRows rows = RowsOf(table);
  using Rows = std::vector<std::uint32_t>;
  const std::tuple<RowOrder::Wanted, Rows> cases[] = {{{"", 0, false}, {4, 1, 5, 3, 0, 2}},
                                                      {{"", 0, true}, {2, 0, 3, 1, 5, 4}},
                                                      {{"OTHER", {}, false}, {0, 2, 3, 4}},
                                                      {{"SAME", 1, true}, {1, 5}}};
  for (const auto& [wanted, expected] : cases) {
    RowOrder order(rows, wanted);
    EXPECT_TRUE(order.Work(RowOrder::Clock::time_point::max()));
    EXPECT_EQ(order.Listed(), expected) << wanted.filter;
  }
}

// A list too long for one step: the filter's first rows come at once, and what needs all rows waits for them.
TEST_F(WindowDesk, SortsLongListsWhileTheListIsUsable) {
  OpenDemo(pictures);
  ListView& list = List();
  constexpr std::size_t count = 400000;
  list.SetRows({list.Captions(), count, [width = list.Captions().size()](std::size_t i) {
                  return Table::Row{std::vector(width, std::to_string(count * 2 - i)), false};
                }});
  list.Select(3);
  list.SortBy(0);
  list.SortBy(0);  // descending: as they are
  EXPECT_EQ(list.ShownRows().row(0).cells[0], "800000");
  EXPECT_EQ(list.Selected(), 3u);
  list.SortBy(0);
  EXPECT_EQ(list.ShownRows().row(0).cells[0], "400001");
  list.Filter("99999");
  EXPECT_EQ(list.ShownRows().count, 4u);  // 499999, 599999, 699999, 799999
  EXPECT_EQ(list.ShownRows().row(0).cells[0], "499999");
}

}  // namespace
}  // namespace tarvelo
