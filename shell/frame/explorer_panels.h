// The panel of each explorer.
#pragma once

#include <memory>

#include "core/explorer.h"
#include "shell/services/workbench.h"

namespace tarvelo {

class Panel;

// The explorer's own kind of panel if it has one, otherwise the common list panel.
[[nodiscard]] std::unique_ptr<Panel> MakePanel(const Explorer& explorer, Workbench& bench);

}  // namespace tarvelo
