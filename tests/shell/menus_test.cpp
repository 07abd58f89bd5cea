#include <wx/font.h>

#include <map>

#include "shell/desk.h"
#include "shell/menu_help.h"
#include "shell/mnemonics.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

// Every label of a menu: none empty, no letter used twice.
void CheckLabels(const std::vector<wxString>& labels, const std::string& where) {
  std::map<char32_t, wxString> used;
  for (const wxString& label : labels) {
    const wxString text = wxMenuItem::GetLabelText(label);
    EXPECT_FALSE(text.empty() || text == "-") << where;
    wxString caption = label.BeforeFirst('\t');
    caption.Replace("&&", "");
    const auto mark = caption.find('&');
    if (mark == wxString::npos) continue;
    const char32_t key = ToUpper(static_cast<char32_t>(caption[mark + 1].GetValue()));
    EXPECT_TRUE(used.emplace(key, text).second)
        << where << ": \"" << Utf8(text) << "\" and \"" << Utf8(used[key]) << '"';
  }
}

TEST_F(Desk, CaptionsEveryMenuInEveryLanguage) {
  for (int i = 0; i < 12; ++i) {
    Choose(FirstLanguage + i);
    const Language& language = Languages()[static_cast<std::size_t>(i)];
    const wxMenuBar& bar = *main->GetMenuBar();
    std::vector<wxString> titles;
    for (std::size_t menu = 0; menu < bar.GetMenuCount(); ++menu) {
      titles.push_back(bar.GetMenuLabel(menu));
      std::vector<wxString> labels;
      for (const wxMenuItem* item : bar.GetMenu(menu)->GetMenuItems())
        if (!item->IsSeparator()) labels.push_back(item->GetItemLabel());
      CheckLabels(labels, std::string(language.code) + " " + std::to_string(menu));
    }
    CheckLabels(titles, std::string(language.code));
    EXPECT_EQ(Caption(OpenFF), Messages(language).Msg(134));
    EXPECT_TRUE(Item(FirstLanguage + i)->IsChecked());
  }
}

// The first entry of a menu or its submenus that does not say what it does; empty where all do.
std::string Unexplained(const wxMenu& menu) {
  for (const wxMenuItem* item : menu.GetMenuItems()) {
    if (item->IsSeparator()) continue;
    if (item->GetHelp().empty()) return Utf8(item->GetItemLabelText());
    const std::string below = item->IsSubMenu() ? Unexplained(*item->GetSubMenu()) : std::string();
    if (!below.empty()) return below;
  }
  return {};
}

TEST_F(Desk, ExplainsEveryMenuEntryInEveryLanguage) {
  main->OpenF(WriteDump("dump.bin"));
  for (int panel = Info; panel <= PatchMenu; ++panel) {
    if (!Enabled(panel)) continue;
    Choose(panel);
    for (const Language& language : Languages()) {
      main->ApplyLang(language);
      const wxMenuBar& bar = *main->GetMenuBar();
      for (std::size_t menu = 0; menu < bar.GetMenuCount(); ++menu)
        EXPECT_EQ(Unexplained(*bar.GetMenu(menu)), "") << language.code << ": " << Title();
    }
  }
}

TEST(MenuHelp, KnowsEveryCommand) {
  for (int id = OpenFF; id <= DifferencesToPatch; ++id)
    EXPECT_FALSE(Messages().Msg(HelpOf(id)).empty()) << id;
}

TEST_F(Desk, ExcusesOnlyWhatCannotBeDone) {
  main->OpenF(WriteDump("dump.bin"));
  for (const MenuGroup& group : MenuBarTable())
    for (const MenuEntry& entry : group.entries) {
      if (entry.message == 0 || entry.id == Quillo) continue;
      EXPECT_EQ(HelpOf(entry.id) != HelpOf(StFun), Enabled(entry.id)) << Caption(entry.id);
    }
}

TEST_F(Desk, ShowsHelpInPlaceOfTheHintUntilTheMenuCloses) {
  const auto shown = [&](int panel) { return Utf8(main->Status().GetStatusText(panel - 1)); };
  const auto send = [&](wxEventType type, int id) {
    wxMenuEvent event(type, id);
    main->ProcessWindowEvent(event);
  };
  const auto dump = WriteDump("dump.bin");
  main->OpenF(dump);
  const std::string phone = Status(2);
  send(wxEVT_MENU_HIGHLIGHT, Save);
  EXPECT_EQ(shown(2), Messages().Msg(HelpOf(Save)));
  EXPECT_EQ(Status(2), phone);  // which the patch file names
  send(wxEVT_MENU_HIGHLIGHT, MenuNone);
  EXPECT_EQ(shown(2), phone);
  send(wxEVT_MENU_HIGHLIGHT, File1);
  EXPECT_EQ(shown(2), Messages().Msg(HelpOf(File1)));
  main->Status().SetPanel(2, "new");
  EXPECT_EQ(shown(2), Messages().Msg(HelpOf(File1)));
  send(wxEVT_MENU_CLOSE, 0);
  EXPECT_EQ(shown(2), "new");
  EXPECT_EQ(shown(1), PathText(dump));
}

TEST_F(Desk, TakesTheLanguageOverARestart) {
  main->OpenF(WriteDump("dump.bin"));
  Choose(FirstLanguage + 10);  // Greek
  const Messages greek(*FindLanguage("GR"));
  EXPECT_EQ(Title(), "Tarvelo - " + std::string(greek.Msg(121)));
  EXPECT_EQ(Caption(SaveText), greek.Msg(3));
  EXPECT_EQ(Utf8(main->Status().Tooltip(9)), greek.Msg(172));
  EXPECT_EQ(Utf8(main->Status().Tooltip(10)), greek.Msg(174));
  EXPECT_EQ(Settings(SettingsFile()).GetIni("General", "Language"), "GR");
  EXPECT_NE(InfoText().find("Loading base"), std::string::npos);  // texts keep their language
  Choose(ExitM);
  StartProgram();
  EXPECT_EQ(Caption(OpenFF), greek.Msg(134));
  EXPECT_TRUE(Item(FirstLanguage + 10)->IsChecked());
}

TEST_F(Desk, GivesFontsTheLanguagesCharacterSet) {
  const auto encoding = [&] { return main->InfoText().Window().GetFont().GetEncoding(); };
  const wxFontEncoding before = encoding();
  Choose(FirstLanguage + 10);
#ifdef __WXMSW__  // elsewhere fonts have every character, whatever is asked for
  EXPECT_EQ(encoding(), wxFONTENCODING_CP1253);
#endif
  Choose(FirstLanguage + 1);
  EXPECT_EQ(encoding(), before);
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
