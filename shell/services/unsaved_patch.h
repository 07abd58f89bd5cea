// The question about unsaved patch data.
#pragma once

namespace tarvelo {

struct Workbench;

// Asks about unsaved patch data, if any. True means: do not continue.
[[nodiscard]] bool WasChanged(Workbench& bench);

}  // namespace tarvelo
