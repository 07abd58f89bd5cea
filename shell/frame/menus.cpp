#include "shell/frame/menus.h"

#include <wx/accel.h>
#include <wx/frame.h>
#include <wx/menu.h>

#include <memory>

#include "resources/messages.h"
#include "resources/texts.h"
#include "shell/base/mnemonics.h"
#include "shell/base/strings.h"
#include "shell/platform/shortcuts.h"
#include "shell/services/ids.h"
#include "shell/services/panel_commands.h"
#include "shell/settings/recent_files.h"

namespace tarvelo {
namespace {

constexpr std::size_t panelMenuPosition = 2;  // after the menu of the panels
constexpr char unnamed[] = "-";               // wx requires a caption; Recaption sets the real one

bool IsLanguage(int id) { return id >= Id::FirstLanguage && id <= Id::LastLanguage; }

// The caption of an entry without its shortcut.
wxString Caption(const MenuEntry& entry, const Messages& messages, Text saveText) {
  return Wx(messages.Msg(entry.id == Id::SaveText ? saveText : entry.caption));
}

void RecaptionEntries(wxMenuBar& bar, const MenuGroup& group, const Messages& messages, Text saveText) {
  std::vector<wxString> captions;
  for (const MenuEntry& entry : group.entries) captions.push_back(Caption(entry, messages, saveText));
  captions = WithMnemonics(captions);
  for (std::size_t i = 0; i < group.entries.size(); ++i) {
    const MenuEntry& entry = group.entries[i];
    if (entry.caption == Text{}) continue;
    const wxString shortcut = entry.shortcut.empty() ? wxString() : "\t" + Wx(entry.shortcut);
    wxMenuItem& item = *bar.FindItem(entry.id);
    item.SetItemLabel(captions[i] + shortcut);
    item.SetHelp(Wx(messages.Msg(entry.help)));
  }
}

const wxMenuItem* EntryIn(const wxMenu& menu, const wxKeyEvent& key) {
  for (const wxMenuItem* entry : menu.GetMenuItems()) {
    const wxMenuItem* found = entry->IsSubMenu() ? EntryIn(*entry->GetSubMenu(), key) : nullptr;
    if (found) return found;
    const std::unique_ptr<wxAcceleratorEntry> shortcut(entry->GetAccel());
    // The flags of shortcuts and of keys have the same values.
    if (shortcut && shortcut->GetFlags() == key.GetModifiers() && shortcut->GetKeyCode() == key.GetKeyCode())
      return entry;
  }
  return nullptr;
}

// The help of a table entry that stands for several menu entries.
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
      if (entry.id == Id::None) {
        menu->AppendSeparator();
      } else if (entry.id == Id::File1) {
        recentMenu_ = menu;
        recentPosition_ = menu->GetMenuItemCount();
      } else if (entry.id == Id::CompareRecent) {
        compareMenu_ = new wxMenu;
        menu->Append(entry.id, unnamed, compareMenu_);
      } else if (IsLanguage(entry.id)) {
        for (int id = Id::FirstLanguage; id <= Id::LastLanguage; ++id) menu->AppendRadioItem(id, unnamed);
      } else {
        menu->Append(entry.id, unnamed, wxString(), entry.kind);
      }
    }
    bar_->Append(menu, unnamed);
  }
  frame.SetMenuBar(bar_);
  // While the menu is open, entries that cannot run are grey; once it closes, all are enabled so that every
  // shortcut works.
  const auto update = [this](wxMenuEvent& event, bool reachable) {
    if (panelCommands_ && event.GetMenu() == bar_->GetMenu(panelMenuPosition))
      panelCommands_->Update(*event.GetMenu(), reachable);
    event.Skip();
  };
  frame.Bind(wxEVT_MENU_OPEN, [update](wxMenuEvent& event) { update(event, false); });
  frame.Bind(wxEVT_MENU_CLOSE, [update](wxMenuEvent& event) { update(event, true); });
}

void Menus::Recaption(const Messages& messages, Text saveText) {
  for (const MenuGroup& group : MenuBarTable()) RecaptionEntries(*bar_, group, messages, saveText);
  ShowPanelMenu(panelCommands_, panelTitle_, messages);
  recentHelp_ = HelpOf(Id::File1, messages);
  compareHelp_ = HelpOf(Id::CompareRecent, messages);
  for (int i = 0; i < static_cast<int>(recentShown_); ++i) {
    bar_->FindItem(Id::File1 + i)->SetHelp(recentHelp_);
    bar_->FindItem(Id::CompareRecent1 + i)->SetHelp(compareHelp_);
  }

  // Each language appears under its own name, whatever the current language.
  std::vector<wxString> names;
  for (const Language& language : Languages())
    names.push_back(Wx(Messages(language).Msg(Text::LanguageName)));
  names = WithMnemonics(names);
  const wxString help = HelpOf(Id::FirstLanguage, messages);
  for (std::size_t i = 0; i < names.size(); ++i) {
    const int id = Id::FirstLanguage + static_cast<int>(i);
    bar_->FindItem(id)->SetItemLabel(names[i]);
    bar_->FindItem(id)->SetHelp(help);
    if (&Languages()[i] == &messages.Current()) bar_->Check(id, true);
  }
}

void Menus::ShowPanelMenu(const PanelCommands* commands, Text title, const Messages& messages) {
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
  for (const MenuGroup& group : MenuBarTable()) titles.push_back(Wx(messages.Msg(group.title)));
  if (panelCommands_) titles.insert(titles.begin() + panelMenuPosition, Wx(messages.Msg(panelTitle_)));
  titles = WithMnemonics(titles);
  for (std::size_t i = 0; i < titles.size(); ++i) bar_->SetMenuLabel(i, titles[i]);
}

void Menus::CaptionSaveText(const Messages& messages, Text saveText) {
  RecaptionEntries(*bar_, MenuBarTable().front(), messages, saveText);
}

void Menus::ShowRecent(const RecentFiles& files) {
  for (; recentShown_ > 0; --recentShown_) {
    recentMenu_->Destroy(Id::File1 + static_cast<int>(recentShown_) - 1);
    compareMenu_->Destroy(Id::CompareRecent1 + static_cast<int>(recentShown_) - 1);
  }
  for (std::size_t i = 0; i < RecentFiles::count && !files[i].empty(); ++i) {
    const int number = static_cast<int>(i);
    wxString path = Wx(files[i]);
    path.Replace("&", "&&");
    const wxString caption = wxString::Format("&%d ", number + 1) + path;
    recentMenu_->Insert(recentPosition_ + i, Id::File1 + number, caption, recentHelp_);
    compareMenu_->Append(Id::CompareRecent1 + number, caption, compareHelp_);
    ++recentShown_;
  }
}

void Menus::Enable(bool documentOpen, const std::function<bool(int id)>& hasHandler) {
  for (const MenuGroup& group : MenuBarTable())
    for (const MenuEntry& entry : group.entries)
      if (entry.caption != Text{})
        bar_->Enable(entry.id, hasHandler(entry.id) && (documentOpen || !entry.needsDocument));
}

void Menus::CheckPanel(int shown) {
  for (const MenuEntry& entry : PanelEntries())
    if (entry.kind == wxITEM_CHECK && entry.id != Id::PanelBar) bar_->Check(entry.id, entry.id == shown);
}

const wxMenuItem* Menus::EntryOf(const wxKeyEvent& key) const {
  for (std::size_t i = 0; i < bar_->GetMenuCount(); ++i)
    if (const wxMenuItem* entry = EntryIn(*bar_->GetMenu(i), key)) return entry;
  return nullptr;
}

void Menus::EnablePlaces(bool canGoBack, bool canGoForward) {
  for (const auto& [id, can] : {std::pair(Id::GoBack, canGoBack), {Id::GoForward, canGoForward}})
    if (wxMenuItem* item = bar_->FindItem(id); item->IsEnabled() != can) item->Enable(can);
}

}  // namespace tarvelo
