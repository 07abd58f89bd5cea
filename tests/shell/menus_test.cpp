#include <wx/font.h>

#include <map>
#include <set>

#include "core/summary.h"
#include "shell/base/mnemonics.h"
#include "shell/desk.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

// Checks the labels of one menu or of the bar: none is empty, and no letter is used twice.
void CheckLabels(const std::vector<wxString>& labels) {
  std::map<char32_t, wxString> used;
  for (const wxString& label : labels) {
    const wxString text = wxMenuItem::GetLabelText(label);
    EXPECT_FALSE(text.empty() || text == "-");
    wxString caption = label.BeforeFirst('\t');
    caption.Replace("&&", "");
    const auto mark = caption.find('&');
    if (mark == wxString::npos) continue;
    const char32_t key = ToUpper(static_cast<char32_t>(caption[mark + 1].GetValue()));
    EXPECT_TRUE(used.emplace(key, text).second) << Utf8(text + " and " + used[key]);
  }
}

// Checks the entries of a menu and its submenus: their labels, that no shortcut occurs twice in the whole
// bar, and that each entry has a help text.
void CheckMenu(const wxMenu& menu, std::set<wxString>& shortcuts) {
  std::vector<wxString> labels;
  for (const wxMenuItem* item : menu.GetMenuItems()) {
    if (item->IsSeparator()) continue;
    labels.push_back(item->GetItemLabel());
    const wxString shortcut = item->GetItemLabel().AfterFirst('\t');
    EXPECT_TRUE(shortcut.empty() || shortcuts.insert(shortcut).second) << Utf8(labels.back());
    EXPECT_FALSE(item->GetHelp().empty()) << Utf8(labels.back());
    if (item->IsSubMenu()) CheckMenu(*item->GetSubMenu(), shortcuts);
  }
  CheckLabels(labels);
}

class MenusDesk : public Desk {
 protected:
  MenusDesk() { main->Dumps().OpenF(dump); }

  // A menu's title and captions.
  [[nodiscard]] std::string MenuAt(std::size_t menu) const {
    const wxMenuBar& bar = *main->GetMenuBar();
    std::string captions = Utf8(bar.GetMenuLabelText(menu)) + ":";
    for (const wxMenuItem* item : bar.GetMenu(menu)->GetMenuItems())
      if (!item->IsSeparator()) captions += " " + Utf8(item->GetItemLabelText()) + ";";
    return captions;
  }

  const std::filesystem::path dump = WriteDump("dump.bin");
};

TEST_F(MenusDesk, OfListsBeginWithTheSameCommands) {
  const std::string copy =
      "Open in hex view; Show as code; Who refers to this; What lies here; Name this place; Comment on this "
      "place; Line of the patch; "
      "Copy offset to clipboard; Copy address to clipboard; Copy rows (Ctrl+C); ";
  for (const auto& [panel, captions] :
       {std::pair(Id::Dump, "Dump: " + copy + "Next region of this kind; Previous region of this kind; "),
        {Id::Hits, "Search results: " + copy + "Next hit; Previous hit; "},
        {Id::ComparePanel,
         "Comparison: " + copy +
             "Next difference; Previous difference; Add differences to patch; Change as instructions; "}}) {
    Choose(panel);
    EXPECT_EQ(MenuAt(2), captions + "Undo; Redo;");
  }
}

TEST_F(MenusDesk, ShowWhatDependsOnThePanelAndTheUser) {
  Choose(Id::HexView);
  EXPECT_EQ(MenuAt(0),
            "Fullflash: Open; Open in new window; Save; Save as; Save selected bytes; View ff; 1 " +
                PathText(dump) + "; Exit;");
}

TEST_F(MenusDesk, AreCaptionedAndExplainedInEveryLanguage) {
  for (const MenuEntry& panel : PanelEntries()) {
    if (panel.id == Id::None || !Enabled(panel.id)) continue;
    Choose(panel.id);
    for (const Language& language : Languages()) {
      main->ApplyLang(language);
      SCOPED_TRACE(std::string(language.code) + ": " + Title());
      const wxMenuBar& bar = *main->GetMenuBar();
      std::vector<wxString> titles;
      std::set<wxString> shortcuts;
      for (std::size_t menu = 0; menu < bar.GetMenuCount(); ++menu) {
        titles.push_back(bar.GetMenuLabel(menu));
        CheckMenu(*bar.GetMenu(menu), shortcuts);
      }
      CheckLabels(titles);
      EXPECT_EQ(Caption(Id::OpenFF), Messages(language).Msg(Text::Open));
    }
  }
  // Only commands that are not available are excused.
  for (const MenuGroup& group : MenuBarTable())
    for (const MenuEntry& entry : group.entries)
      if (entry.caption != Text{} && entry.id != Id::Quillo && entry.id != Id::GoForward) {
        EXPECT_EQ(entry.help != Text::HelpNotBuilt, Enabled(entry.id)) << Caption(entry.id);
      }
}

TEST_F(MenusDesk, ShowHelpInPlaceOfTheHintUntilTheyClose) {
  const auto shown = [&](int panel) { return Utf8(main->Bench().status.GetStatusText(panel - 1)); };
  const auto send = [&](wxEventType type, int id) {
    wxMenuEvent event(type, id);
    main->ProcessWindowEvent(event);
  };
  const std::string phone = Status(2), file = Utf8(Item(Id::File1)->GetHelp());
  send(wxEVT_MENU_HIGHLIGHT, Id::Save);
  EXPECT_EQ(shown(2), Utf8(Item(Id::Save)->GetHelp()));
  EXPECT_EQ(Status(2), phone);  // the patch file contains this text
  send(wxEVT_MENU_HIGHLIGHT, Id::None);
  EXPECT_EQ(shown(2), phone);
  send(wxEVT_MENU_HIGHLIGHT, Id::File1);
  EXPECT_EQ(shown(2), file);
  main->Bench().status.SetPanel(2, "new\nline");
  EXPECT_EQ(shown(2), file);
  send(wxEVT_MENU_CLOSE, 0);
  EXPECT_EQ(shown(2), "new line");
  EXPECT_EQ(shown(1), PathText(dump));
}

TEST_F(MenusDesk, TakeTheLanguageOverARestart) {
  main->InfoText().AppendText("added\n");
  Choose(Id::FirstLanguage + 10);  // Greek
  const Messages greek(*FindLanguage("GR"));
  EXPECT_EQ(Title(), "Tarvelo - " + std::string(greek.Msg(Text::Info)));
  EXPECT_EQ(Caption(Id::SaveText), greek.Msg(Text::SaveInfoFile));
  for (const auto& [panel, message] : {std::pair(4, Text::TipBlockCounts),
                                       {6, Text::TipPictureCounts},
                                       {8, Text::HelpDump},
                                       {9, Text::TipPatchChanged},
                                       {10, Text::TipFullflashChanged}})
    EXPECT_EQ(Utf8(main->Bench().status.Tooltip(panel)), greek.Msg(message));
  EXPECT_EQ(Settings(SettingsFile()).GetIni("General", "Language"), "GR");
  EXPECT_EQ(InfoText(), Summary(PathText(dump), Image(), Open().Info(), greek) + "added\n");
#ifdef __WXMSW__  // elsewhere fonts have every character, whatever character set was requested
  EXPECT_EQ(main->InfoText().Window().GetFont().GetEncoding(), wxFONTENCODING_CP1253);
#endif
  Restart();
  EXPECT_EQ(Caption(Id::OpenFF), greek.Msg(Text::Open));
  EXPECT_TRUE(Item(Id::FirstLanguage + 10)->IsChecked());
}

TEST(Mnemonics, TakeTheFirstFreeLetter) {
  const auto marked =
      WithMnemonics({"Open", "Save", "Save as", "Save list as text", "Ass", "", Wx("打开"), "A & B"});
  const std::vector<wxString> expected{"&Open", "&Save", "Save &as",     "Save &list as text",
                                       "Ass",   "",      Wx("打开(&B)"), "A && B"};
  EXPECT_EQ(marked, expected);
}

}  // namespace
}  // namespace tarvelo
