// The effects of real key presses and of the real pointer, and what is in the real clipboard.
#ifdef __UNIX__
#include <gtk/gtk.h>
#else
#include <wx/msw/wrapwin.h>
#endif
#include <wx/app.h>
#include <wx/clipbrd.h>
#include <wx/timer.h>
#include <wx/uiaction.h>

#include "shell/calculator/calc166.h"
#include "shell/eeprom/block_view.h"
#include "shell/eeprom/eeprom_panel.h"
#include "shell/frame/wx_dialogs.h"
#include "shell/hex_desk.h"
#include "shell/keys.h"
#include "shell/patch/apply_patch.h"

namespace tarvelo {
namespace {

// Presses a key again and again, with the pointer over the centre of a window where its dialogs appear, until
// the dialog closes.
class KeyPresser final : public wxTimer {
 public:
  KeyPresser(wxWindow& window, int key) : window_(window), key_(key) { Start(400); }

  void Notify() override {
    PointAt(window_);
    wxUIActionSimulator().Char(key_);
  }

 private:
  wxWindow& window_;
  int key_;
};

TEST_F(Desk, DialogsTakeTheKeyboard) {
  const Messages russian(*FindLanguage("RU"));
  main->Dumps().OpenF(WriteDump("phone.bin"));
  const ReadPatch patch = ReadPatchText("0: FF 00\n1: 00 11\n");
  const PatchCheck check = CheckPatch(patch.changes, Image());
  const MisfitTable misfits(patch, check, Image(), main->Bench().texts);
  WxDialogs dialogs(main, russian);
  for (const int key : {WXK_RETURN, WXK_ESCAPE}) {  // neither confirms anything by mistake
    const KeyPresser presser(*main, key);
    dialogs.Message("Failure", Dialogs::Icon::Critical);
    EXPECT_FALSE(dialogs.Confirm("No by default"));
    EXPECT_FALSE(dialogs.Show(ReviewOf(misfits)));
  }
  const KeyPresser presser(*main, WXK_ESCAPE);
  EXPECT_FALSE(dialogs.OpenFile("Open", "All files|*.*", folder / "dump.bin"));
  EXPECT_FALSE(dialogs.SaveFile("Save", "All files|*.*", folder / "dump.bin"));
}

#ifdef __WXGTK__
// The types of the visible widgets that take the keyboard and have no name for screen readers.
std::string Nameless(GtkWidget* widget) {
  if (!gtk_widget_get_mapped(widget)) return {};
  const char* name = atk_object_get_name(gtk_widget_get_accessible(widget));
  std::string all;
  if (gtk_widget_get_can_focus(widget) && (!name || !*name))
    all = std::string(G_OBJECT_TYPE_NAME(widget)) + " ";
  if (!GTK_IS_CONTAINER(widget) || GTK_IS_COMBO_BOX(widget)) return all;
  const auto add = [](GtkWidget* child, void* to) { *static_cast<std::string*>(to) += Nameless(child); };
  gtk_container_forall(GTK_CONTAINER(widget), add, &all);
  return all;
}

TEST_F(Desk, WhatTakesTheKeyboardHasANameForScreenReaders) {
  main->Dumps().OpenF(WriteDump("phone.bin"));
  for (const MenuEntry& panel : PanelEntries()) {
    if (panel.kind != wxITEM_CHECK || panel.id == Id::PanelBar || !Enabled(panel.id)) continue;
    Choose(panel.id);
    EXPECT_EQ(Nameless(main->GetHandle()), "") << Title();
  }
}
#endif

// Whether a menu shows an entry as its default.
bool IsDefault(const wxMenu& menu, const wxMenuItem& entry) {
#ifdef __WXGTK__
  (void)menu;
  GtkWidget* label = gtk_bin_get_child(GTK_BIN(entry.GetMenuItem()));
  PangoAttrList* all = GTK_IS_LABEL(label) ? gtk_label_get_attributes(GTK_LABEL(label)) : nullptr;
  if (!all) return false;
  PangoAttrIterator* first = pango_attr_list_get_iterator(all);
  const auto* weight = reinterpret_cast<PangoAttrInt*>(pango_attr_iterator_get(first, PANGO_ATTR_WEIGHT));
  const bool isBold = weight && weight->value == PANGO_WEIGHT_BOLD;
  pango_attr_iterator_destroy(first);
  return isBold;
#else
  return ::GetMenuDefaultItem(static_cast<HMENU>(menu.GetHMenu()), FALSE, 0) ==
         static_cast<UINT>(entry.GetId());
#endif
}

TEST_F(Desk, ContextMenuShowsItsDefaultEntry) {
  OpenDemo(eeprom);
  std::vector<int> defaults;
  main->Panels().Visible()->Window().Bind(wxEVT_MENU_OPEN, [&](wxMenuEvent& event) {
    for (const wxMenuItem* entry : event.GetMenu()->GetMenuItems())
      if (IsDefault(*event.GetMenu(), *entry)) defaults.push_back(entry->GetId());
  });
  const KeyPresser presser(*main, WXK_ESCAPE);
  main->Bench().frame.PopUpCommands();
  EXPECT_EQ(defaults, std::vector<int>{Id::OpenData});
}

TEST(FilterForSystem, ShowsEveryFile) {
#ifdef __WXGTK__
  EXPECT_EQ(FilterForSystem("Dumps|*.bin|All|*.*"), "Dumps|*.bin;*.BIN|All|*");
#else
  EXPECT_EQ(FilterForSystem("Dumps|*.bin|All|*.*"), "Dumps|*.bin;*.BIN|All|*.*");
#endif
}

TEST_F(Desk, CalculatorIsUsedByKeyboardAlone) {
  const auto type = [](const std::string& keys) {
    for (const char key : keys) {
      wxUIActionSimulator().Char(key);
      wxYield();
      wxMilliSleep(50);
      wxYield();
    }
  };
  Choose(Id::Calc166_Menu);
  Calc166& calculator = *main->AddressCalculator();
  ASSERT_TRUE(Until([] { wxYield(); }, [&] { return calculator.Page->HasFocus(); }));
  type("2z8-a ");
  EXPECT_EQ(calculator.Page->GetValue(), "28A");
  type("\b4\t2345");
  EXPECT_EQ(calculator.Addr->GetValue(), "A12345");
  type("g");
  EXPECT_EQ(Utf8(calculator.Error()), "Not a number: \"2345G\"");
  type("\r");
  EXPECT_EQ(main->AddressCalculator(), nullptr);
  EXPECT_FALSE(Item(Id::Calc166_Menu)->IsChecked());
}

// In every list, whichever window of the panel has the focus.
TEST_F(Desk, ListsAreUsedByKeyboard) {
  OpenDemo(Id::Info);
  const auto asks = [this](int key, int modifiers) {
    script.said.clear();
    return PressUntil(*main, key, modifiers, [&] { return !script.said.empty(); });
  };
  for (const int panel : {ringtones, pictures, eeprom}) {
    Choose(panel);
    EXPECT_TRUE(asks('F', wxMOD_CONTROL)) << Title();
    EXPECT_EQ(script.TakeSaid(), "ask Enter the string for search: ");
    EXPECT_TRUE(asks(WXK_F3, wxMOD_NONE)) << Title();
    EXPECT_TRUE(asks('N', wxMOD_CONTROL)) << Title();
    EXPECT_EQ(script.TakeSaid(), "ask Name this place: ");
  }
  main->Run(Id::ShowBlock);
  const BlockView& view = *Shown<EepromPanel>().View();
  EXPECT_TRUE(PressUntil(view, WXK_ESCAPE, wxMOD_NONE, [&] { return !view.IsShown(); }));
}

// An edit starts the search again; stopping that must not keep others from hearing of the edit.
TEST_F(Desk, AStoppedSearchForReferencesHidesNoEdit) {
  main->Dumps().OpenF(WriteDump("phone.bin"));
  main->Bench().frame.ShowReferences(0x100);
  int heard = 0;
  const auto watch = Open().OnChange([&] { ++heard; });
  ASSERT_TRUE(Until([] { wxUIActionSimulator().KeyDown(WXK_ESCAPE); },
                    [] { return wxTheApp->IsActive() && wxGetKeyState(WXK_ESCAPE); }));
  Open().Write(0x10, std::vector<std::uint8_t>{1});
  wxUIActionSimulator().KeyUp(WXK_ESCAPE);
  EXPECT_EQ(heard, 1);
  EXPECT_EQ(Utf8(List().EmptyHint()), Messages().Msg(Text::SearchStopped));
}

TEST_F(Desk, PicturesGoToTheClipboard) {
  OpenDemo(pictures);
  main->Run(Id::CopyPic);
  const wxClipboardLocker lock;
  EXPECT_TRUE(wxTheClipboard->IsSupported(wxDF_BITMAP));
}

TEST_F(HexDesk, IsEditedByKeyboardAlone) {
  const std::uint8_t before = Image().Byte(0);
  const auto changed = [&] { return Image().Byte(0) != before; };
  const auto press = [this](int key, int modifiers, auto done) {
    return PressUntil(*main, key, modifiers, done);
  };
  Panel().Go(0, 0);
  EXPECT_TRUE(press(before == 0x11 ? '2' : '1', wxMOD_NONE, changed));

  // In the line above, keys edit the line.
  wxTextCtrl& line = Panel().Place().Field();
  Copy("34");
  EXPECT_TRUE(press('L', wxMOD_CONTROL, [&] { return line.HasFocus(); }));
  EXPECT_TRUE(press('V', wxMOD_CONTROL, [&] { return line.GetValue() == "34"; }));
  int pressed = 0;
  press('Z', wxMOD_CONTROL, [&] { return ++pressed > 3; });
  EXPECT_TRUE(changed());

  EXPECT_TRUE(press(WXK_ESCAPE, wxMOD_NONE, [&] { return Canvas().HasFocus(); }));
  const bool wasInText = Canvas().CursorInText();
  EXPECT_TRUE(press(WXK_F2, wxMOD_NONE, [&] { return Canvas().CursorInText() != wasInText; }));
  EXPECT_TRUE(press('Z', wxMOD_CONTROL, [&] { return !changed(); }));
  EXPECT_TRUE(press('Y', wxMOD_CONTROL, changed));
  EXPECT_EQ(CopiedText(), "34");
  const auto copied = [&] { return CopiedText() == AsText(Image().ff().first(1)); };
  EXPECT_TRUE(press('C', wxMOD_CONTROL, copied));
}

TEST_F(HexDesk, ScrollsWhileTheMouseDragsOutside) {
  Mouse(Canvas(), wxEVT_LEFT_DOWN, Canvas().PlaceOf(0x10));
  const wxRect place = Canvas().GetScreenRect();
  for (const bool isBelow : {true, false}) {
    const int y = isBelow ? place.GetBottom() + 20 : place.GetTop() - 20;
    EXPECT_TRUE(Until([&] { wxUIActionSimulator().MouseMove(place.GetLeft() + 200, y); },
                      [&] { return (Canvas().TopRow() > 2) == isBelow; }));
    EXPECT_EQ(Selected().size > 0x100, isBelow);
  }
  Mouse(Canvas(), wxEVT_LEFT_UP, Canvas().PlaceOf(0x10));
}

}  // namespace
}  // namespace tarvelo
