// Saves several things, one file after another.
#pragma once

#include <cstddef>
#include <functional>

namespace tarvelo {

struct Workbench;

// Calls `save` with 0 .. count - 1 and shows the progress. Escape stops it. True if all calls were made.
[[nodiscard]] bool SaveEach(Workbench& bench, std::size_t count,
                            const std::function<void(std::size_t index)>& save);

}  // namespace tarvelo
