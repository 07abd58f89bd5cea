// The commands for a place in the image, the same in every list and view: show it in the hex view or as code,
// find what refers to it, name it, show the line of the patch that changes it.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "core/region.h"
#include "shell/services/panel_commands.h"

namespace tarvelo {

struct Workbench;

// `chosen` gives the bytes that the command is about; none if nothing is chosen. The command with the id
// `without` is left out.
[[nodiscard]] std::vector<PanelCommand> PlaceCommands(Workbench& bench,
                                                      std::function<std::optional<Region>()> chosen,
                                                      int without = 0);

}  // namespace tarvelo
