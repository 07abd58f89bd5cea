// The panel of each explorer.
#pragma once

#include <memory>

#include "core/explorer.h"
#include "shell/services/workbench.h"

namespace tarvelo {

class Panel;

// The panel that an explorer has of its own, or the common one of a list.
[[nodiscard]] std::unique_ptr<Panel> MakePanel(const Explorer& explorer, Workbench& bench);

}  // namespace tarvelo
