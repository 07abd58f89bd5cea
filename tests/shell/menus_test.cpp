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

TEST_F(Desk, CaptionsAndExplainsEveryMenuInEveryLanguage) {
  main->Dumps().OpenF(WriteDump("dump.bin"));
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
}

TEST_F(Desk, ExcusesOnlyUnavailableCommands) {
  main->Dumps().OpenF(WriteDump("dump.bin"));
  for (const MenuGroup& group : MenuBarTable())
    for (const MenuEntry& entry : group.entries) {
      if (entry.caption == Text{} || entry.id == Id::Quillo) continue;
      EXPECT_EQ(entry.help != Text::HelpNotBuilt, Enabled(entry.id)) << Caption(entry.id);
    }
}

TEST_F(Desk, ShowsHelpInPlaceOfTheHintUntilTheMenuCloses) {
  const auto shown = [&](int panel) { return Utf8(main->Bench().status.GetStatusText(panel - 1)); };
  const auto send = [&](wxEventType type, int id) {
    wxMenuEvent event(type, id);
    main->ProcessWindowEvent(event);
  };
  const auto dump = WriteDump("dump.bin");
  main->Dumps().OpenF(dump);
  const std::string phone = Status(2);
  send(wxEVT_MENU_HIGHLIGHT, Id::Save);
  EXPECT_EQ(shown(2), Utf8(Item(Id::Save)->GetHelp()));
  EXPECT_EQ(Status(2), phone);  // the patch file contains this text
  send(wxEVT_MENU_HIGHLIGHT, Id::None);
  EXPECT_EQ(shown(2), phone);
  send(wxEVT_MENU_HIGHLIGHT, Id::File1);
  EXPECT_EQ(shown(2), Utf8(Item(Id::File1)->GetHelp()));
  main->Bench().status.SetPanel(2, "new");
  EXPECT_EQ(shown(2), Utf8(Item(Id::File1)->GetHelp()));
  send(wxEVT_MENU_CLOSE, 0);
  EXPECT_EQ(shown(2), "new");
  EXPECT_EQ(shown(1), PathText(dump));
}

TEST_F(Desk, TakesTheLanguageOverARestart) {
  main->Dumps().OpenF(WriteDump("dump.bin"));
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
  EXPECT_EQ(InfoText(), Summary(PathText(folder / "dump.bin"), Image(), Open().Info(), greek) + "added\n");
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
