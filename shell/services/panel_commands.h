// The commands of one panel as data, a line each. They make its menu in the menu bar, with shortcuts, and
// the context menu.
#pragma once

#include <wx/menu.h>

#include <functional>
#include <memory>
#include <vector>

#include "resources/texts.h"

namespace tarvelo {

class Messages;

struct PanelCommand {
  int id = 0;  // of ids.h; 0: a separator, or a submenu if it has entries
  Text caption{};
  Text help{};                // what the status bar says while it is highlighted
  const char* shortcut = "";  // as wx writes it: "Ctrl+F"
  std::function<void()> run = {};
  std::function<bool()> enabled = {};      // none: always
  std::function<bool()> checked = {};      // set: the entry has a tick
  std::vector<PanelCommand> entries = {};  // of a submenu
  const char* captionEnd = "";             // behind the caption, to tell entries of one text apart
};

// Adds commands behind others, with a separator between both.
void Append(std::vector<PanelCommand>& commands, std::vector<PanelCommand> more);

class PanelCommands {
 public:
  // `defaultId` is the command of a double click, shown in bold in the context menu.
  explicit PanelCommands(std::vector<PanelCommand> commands, int defaultId = 0)
      : commands_(std::move(commands)), defaultId_(defaultId) {}

  [[nodiscard]] int DefaultId() const { return defaultId_; }

  // A new menu of all commands, each enabled and ticked as it is now.
  [[nodiscard]] std::unique_ptr<wxMenu> MakeMenu(const Messages& messages) const;
  // Enables and ticks the entries of such a menu as it is now; enables all where `reachable` is set, so
  // that a shortcut is never dead because of what was selected when the menu was last open.
  void Update(wxMenu& menu, bool reachable = false) const;

  // The command of this id, or null.
  [[nodiscard]] const PanelCommand* Find(int id) const;
  // Whether there is a command of this id that can be run now.
  [[nodiscard]] bool CanRun(int id) const;

  // Shows the menu at the mouse and returns the id that was chosen, 0 for none.
  [[nodiscard]] int PopUp(wxWindow& window, const Messages& messages) const;

 private:
  std::vector<PanelCommand> commands_;
  int defaultId_;
};

}  // namespace tarvelo
