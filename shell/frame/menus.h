// The menu bar of the main window, made of its table.
#pragma once

#include <wx/string.h>

#include <functional>

#include "shell/frame/menu_table.h"

class wxFrame;
class wxMenu;
class wxMenuBar;

namespace tarvelo {

class Messages;
class PanelCommands;
class RecentFiles;

class Menus {
 public:
  // Builds the bar, without captions, and gives it to the frame.
  explicit Menus(wxFrame& frame);

  // Captions and explains every title and entry in a language, ticks that language's entry.
  // `saveText` is the caption that SaveText has now.
  void Recaption(const Messages& messages, Text saveText);

  // Changes the caption of SaveText alone.
  void CaptionSaveText(const Messages& messages, Text saveText);

  // Puts the commands of the visible panel into the bar, under the panel's name, in place of the last
  // one's; null: there are none.
  void ShowPanelMenu(const PanelCommands* commands, Text title, const Messages& messages);

  // Shows the recent files; an entry without a file is hidden.
  void ShowRecent(const RecentFiles& files);

  // Enables each entry that has a handler and whose needs are met.
  void Enable(bool documentOpen, const std::function<bool(int id)>& hasHandler);

  // Ticks the entry of the panel that is shown, and only that one.
  void CheckPanel(int id);

 private:
  void Retitle(const Messages& messages);

  wxMenuBar* bar_;
  const PanelCommands* panelCommands_ = nullptr;
  Text panelTitle_{};
  wxMenu* recentMenu_ = nullptr;    // where File1 .. File5 stand,
  std::size_t recentPosition_ = 0;  // from this position on,
  std::size_t recentShown_ = 0;     // and how many are shown,
  wxString recentHelp_;             // with this in the status bar
};

}  // namespace tarvelo
