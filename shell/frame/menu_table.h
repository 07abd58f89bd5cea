// The menu bar as data: which entries it has, where, with which caption and shortcut.
#pragma once

#include <wx/defs.h>

#include <span>
#include <string>
#include <vector>

#include "resources/texts.h"

namespace tarvelo {

struct MenuEntry {
  int id = 0;            // of ids.h; 0: a separator
  Text caption{};        // none: a separator, or one that Menus captions itself
  Text help{};           // what the status bar says while it is highlighted
  std::string shortcut;  // as wx writes it: "Ctrl+O"
  bool needsDocument = false;
  wxItemKind kind = wxITEM_NORMAL;
};

struct MenuGroup {
  Text title;
  std::vector<MenuEntry> entries;
};

// The whole bar, but for the recent files and the languages, which menus.h puts in their places.
[[nodiscard]] std::span<const MenuGroup> MenuBarTable();

// The entries in it that show panels, of which the visible one has a tick: the panels of the dump with
// those of the explorers in their places, then the others.
[[nodiscard]] std::span<const MenuEntry> PanelEntries();

}  // namespace tarvelo
