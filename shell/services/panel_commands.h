// The commands of one panel as data, a line each. The panel's menu in the menu bar, with shortcuts, and its
// context menu are made from them.
#pragma once

#include <wx/event.h>
#include <wx/menu.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "resources/texts.h"

namespace tarvelo {

class Messages;

struct PanelCommand {
  int id = 0;  // of ids.h; 0: a separator, or a submenu if it has entries
  Text caption{};
  Text help{};                // the status bar's text while it is highlighted
  const char* shortcut = "";  // as wx writes it: "Ctrl+F"
  std::function<void()> run = {};
  std::function<bool()> enabled = {};      // empty: always
  std::function<bool()> checked = {};      // if set, the entry has a tick
  std::vector<PanelCommand> entries = {};  // of a submenu
  const char* captionEnd = "";             // after the caption, to distinguish entries with the same text
  std::function<std::string()> name = {};  // instead of the caption; while it is empty, there is no entry
};

// Appends commands to others, with a separator between the two groups.
void Append(std::vector<PanelCommand>& commands, std::vector<PanelCommand> more);

// Where a context menu opens on the screen: at the mouse, or if a key opened it, at a place in the window.
[[nodiscard]] wxPoint MenuPlace(const wxContextMenuEvent& event, const wxWindow& window,
                                const wxPoint& placeForKey);

class PanelCommands {
 public:
  // `defaultId` is the command that a double click runs, shown in bold in the context menu.
  explicit PanelCommands(std::vector<PanelCommand> commands, int defaultId = 0)
      : commands_(std::move(commands)), defaultId_(defaultId) {}

  // Adds commands at the end, as a separate group.
  void Add(std::vector<PanelCommand> more) { Append(commands_, std::move(more)); }

  [[nodiscard]] int DefaultId() const { return defaultId_; }

  // A new menu of all commands, each enabled and ticked according to the current state.
  [[nodiscard]] std::unique_ptr<wxMenu> MakeMenu(const Messages& messages) const;
  // Enables and ticks the entries of such a menu according to the current state. With `reachable` it enables
  // all of them, so that the selection at the time the menu was last open never disables a shortcut.
  void Update(wxMenu& menu, bool reachable = false) const;

  // The command with this id, or null.
  [[nodiscard]] const PanelCommand* Find(int id) const;
  // Whether a command with this id exists and can run now.
  [[nodiscard]] bool CanRun(int id) const;

  // Shows the menu at a place on the screen, by default at the mouse, and returns the chosen id, or 0.
  [[nodiscard]] int PopUp(wxWindow& window, const Messages& messages, const wxPoint& place) const;

 private:
  std::vector<PanelCommand> commands_;
  int defaultId_;
};

}  // namespace tarvelo
