#include "shell/frame/menus.h"

#include <wx/frame.h>
#include <wx/menu.h>

#include "resources/messages.h"
#include "shell/base/mnemonics.h"
#include "shell/services/panel_commands.h"
#include "shell/platform/shortcuts.h"
#include "shell/base/recent_files.h"
#include "shell/base/strings.h"

namespace tarvelo {
namespace {

constexpr std::size_t panelMenuPosition = 2;  // behind the menu of the panels
constexpr char unnamed[] = "-";               // wx wants a caption; Recaption gives the real one

bool IsLanguage(int id) { return id >= FirstLanguage && id <= LastLanguage; }

// The caption of an entry, without shortcut.
wxString Caption(const MenuEntry& entry, const Messages& messages, int saveText) {
  return Wx(messages.Msg(entry.id == SaveText ? saveText : entry.message));
}

void RecaptionEntries(wxMenuBar& bar, const MenuGroup& group, const Messages& messages, int saveText) {
  std::vector<wxString> captions;
  for (const MenuEntry& entry : group.entries) captions.push_back(Caption(entry, messages, saveText));
  captions = WithMnemonics(captions);
  for (std::size_t i = 0; i < group.entries.size(); ++i) {
    const MenuEntry& entry = group.entries[i];
    if (entry.message == 0) continue;
    const wxString shortcut = *entry.shortcut ? wxString("\t") + entry.shortcut : wxString();
    wxMenuItem& item = *bar.FindItem(entry.id);
    item.SetItemLabel(captions[i] + shortcut);
    item.SetHelp(Wx(messages.Msg(entry.help)));
  }
}

// Of entries that stand for several.
wxString HelpOf(int id, const Messages& messages) {
  for (const MenuGroup& group : MenuBarTable())
    for (const MenuEntry& entry : group.entries)
      if (entry.id == id) return Wx(messages.Msg(entry.help));
  return {};
}

}  // namespace

Menus::Menus(wxFrame& frame) : bar_(new wxMenuBar) {
  for (const MenuGroup& group : MenuBarTable()) {
    auto* menu = new wxMenu;
    for (const MenuEntry& entry : group.entries) {
      if (entry.id == MenuNone) {
        menu->AppendSeparator();
      } else if (entry.id == File1) {
        recentMenu_ = menu;
        recentPosition_ = menu->GetMenuItemCount();
      } else if (IsLanguage(entry.id)) {
        for (int id = FirstLanguage; id <= LastLanguage; ++id) menu->AppendRadioItem(id, unnamed);
      } else {
        menu->Append(entry.id, unnamed, wxString(), entry.kind);
      }
    }
    bar_->Append(menu, unnamed);
  }
  frame.SetMenuBar(bar_);
  // Entries are grey while their menu is seen; closed, it leaves every shortcut alive.
  const auto update = [this](wxMenuEvent& event, bool reachable) {
    if (panelCommands_ && event.GetMenu() == bar_->GetMenu(panelMenuPosition))
      panelCommands_->Update(*event.GetMenu(), reachable);
    event.Skip();
  };
  frame.Bind(wxEVT_MENU_OPEN, [update](wxMenuEvent& event) { update(event, false); });
  frame.Bind(wxEVT_MENU_CLOSE, [update](wxMenuEvent& event) { update(event, true); });
}

void Menus::Recaption(const Messages& messages, int saveText) {
  for (const MenuGroup& group : MenuBarTable()) RecaptionEntries(*bar_, group, messages, saveText);
  ShowPanelMenu(panelCommands_, panelTitle_, messages);
  recentHelp_ = HelpOf(File1, messages);
  for (std::size_t i = 0; i < recentShown_; ++i)
    bar_->FindItem(File1 + static_cast<int>(i))->SetHelp(recentHelp_);

  // Each language is called by its own name, whatever the current one.
  std::vector<wxString> names;
  for (const Language& language : Languages()) names.push_back(Wx(Messages(language).Msg(Text::LanguageName)));
  names = WithMnemonics(names);
  const wxString help = HelpOf(FirstLanguage, messages);
  for (std::size_t i = 0; i < names.size(); ++i) {
    const int id = FirstLanguage + static_cast<int>(i);
    bar_->FindItem(id)->SetItemLabel(names[i]);
    bar_->FindItem(id)->SetHelp(help);
    if (&Languages()[i] == &messages.Current()) bar_->Check(id, true);
  }
}

void Menus::ShowPanelMenu(const PanelCommands* commands, int title, const Messages& messages) {
  if (panelCommands_) delete bar_->Remove(panelMenuPosition);
  panelCommands_ = commands;
  panelTitle_ = title;
  if (commands) {
    std::unique_ptr<wxMenu> menu = commands->MakeMenu(messages);
    commands->Update(*menu, true);
    bar_->Insert(panelMenuPosition, menu.release(), unnamed);
    platform::ShortcutsChanged(*bar_->GetFrame());
  }
  Retitle(messages);
}

void Menus::Retitle(const Messages& messages) {
  std::vector<wxString> titles;
  for (const MenuGroup& group : MenuBarTable()) titles.push_back(Wx(messages.Msg(group.message)));
  if (panelCommands_) titles.insert(titles.begin() + panelMenuPosition, Wx(messages.Msg(panelTitle_)));
  titles = WithMnemonics(titles);
  for (std::size_t i = 0; i < titles.size(); ++i) bar_->SetMenuLabel(i, titles[i]);
}

void Menus::CaptionSaveText(const Messages& messages, int saveText) {
  RecaptionEntries(*bar_, MenuBarTable().front(), messages, saveText);
}

void Menus::ShowRecent(const RecentFiles& files) {
  for (; recentShown_ > 0; --recentShown_) recentMenu_->Destroy(File1 + static_cast<int>(recentShown_) - 1);
  for (std::size_t i = 0; i < RecentFiles::count && !files[i].empty(); ++i) {
    wxString path = Wx(files[i]);
    path.Replace("&", "&&");
    recentMenu_->Insert(recentPosition_ + i, File1 + static_cast<int>(i),
                        wxString::Format("&%d ", static_cast<int>(i) + 1) + path, recentHelp_);
    ++recentShown_;
  }
}

void Menus::Enable(bool documentOpen, const std::function<bool(int id)>& hasHandler) {
  for (const MenuGroup& group : MenuBarTable())
    for (const MenuEntry& entry : group.entries)
      if (entry.message != 0)
        bar_->Enable(entry.id, hasHandler(entry.id) && (documentOpen || !entry.needsDocument));
}

void Menus::CheckPanel(int shown) {
  for (const MenuEntry& entry : PanelEntries())
    if (entry.id != MenuNone) bar_->Check(entry.id, entry.id == shown);
}

}  // namespace tarvelo
