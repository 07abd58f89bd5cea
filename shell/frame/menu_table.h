// The menu bar as data: its entries with their places, captions and shortcuts.
#pragma once

#include <wx/defs.h>

#include <span>
#include <string>
#include <vector>

#include "resources/texts.h"

namespace tarvelo {

struct MenuEntry {
  int id = 0;            // of ids.h; 0: a separator
  Text caption{};        // none: a separator, or an entry that Menus captions itself
  Text help{};           // the status bar's text while it is highlighted
  std::string shortcut;  // as wx writes it: "Ctrl+O"
  bool needsDocument = false;
  wxItemKind kind = wxITEM_NORMAL;
};

struct MenuGroup {
  Text title;
  std::vector<MenuEntry> entries;
};

// The whole bar except the recent files and the languages, which menus.h inserts.
[[nodiscard]] std::span<const MenuGroup> MenuBarTable();

// The entries that show panels; the visible panel's entry is ticked. The panels of the dump come first, with
// the explorers' panels among them in their places, then the others.
[[nodiscard]] std::span<const MenuEntry> PanelEntries();

}  // namespace tarvelo
