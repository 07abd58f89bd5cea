// The menu bar of the main window, built from its table.
#pragma once

#include <wx/string.h>

#include <functional>

#include "shell/frame/menu_table.h"

class wxFrame;
class wxKeyEvent;
class wxMenu;
class wxMenuBar;
class wxMenuItem;

namespace tarvelo {

class Messages;
class PanelCommands;
class RecentFiles;

class Menus {
 public:
  // Builds the bar, still without captions, and attaches it to the frame.
  explicit Menus(wxFrame& frame);

  // Sets the caption and help of every title and entry in a language and ticks that language's entry.
  // `saveText` is the current caption of SaveText.
  void Recaption(const Messages& messages, Text saveText);

  // Changes only the caption of SaveText.
  void CaptionSaveText(const Messages& messages, Text saveText);

  // Replaces the panel menu by one with the visible panel's commands, titled with the panel's name. Null
  // removes the menu.
  void ShowPanelMenu(const PanelCommands* commands, Text title, const Messages& messages);

  // Shows the recent files; hides the entries without a file.
  void ShowRecent(const RecentFiles& files);

  // Enables each entry that has a handler and whose requirements are met.
  void Enable(bool documentOpen, const std::function<bool(int id)>& hasHandler);

  // Enables going back and forth.
  void EnablePlaces(bool canGoBack, bool canGoForward);

  // The entry with the shortcut that a key event is; null if there is none.
  [[nodiscard]] const wxMenuItem* EntryOf(const wxKeyEvent& key) const;

  // Ticks the entry of the visible panel, and only that one.
  void CheckPanel(int id);

 private:
  void Retitle(const Messages& messages);

  wxMenuBar* bar_;
  const PanelCommands* panelCommands_ = nullptr;
  Text panelTitle_{};
  wxMenu* recentMenu_ = nullptr;    // the menu of File1 .. File5,
  std::size_t recentPosition_ = 0;  // the position of the first one,
  std::size_t recentShown_ = 0;     // how many are shown,
  wxString recentHelp_;             // and their text in the status bar
  wxMenu* compareMenu_ = nullptr;   // the menu of CompareRecent1 .. CompareRecent5
  wxString compareHelp_;
};

}  // namespace tarvelo
