// Undo and redo of the image's edits, for the menu of every panel that has no editor of its own.
#pragma once

#include <vector>

#include "shell/services/panel_commands.h"

namespace tarvelo {

struct Workbench;

// In a text field that has the focus they undo and redo its own edits.
[[nodiscard]] std::vector<PanelCommand> EditCommands(Workbench& bench);

}  // namespace tarvelo
