// The information text that the Info panel shows after a dump is opened.
#pragma once

#include <string>
#include <string_view>

#include "core/identification.h"
#include "resources/messages.h"

namespace tarvelo {

// One line each, ending in a line feed: path, size, loading base, corrected base if it differs, model,
// firmware, build date if known, empty blocks, and the T9 area if there is one. Control characters of the
// image are shown as dots. `path` is UTF-8 and is shown unchanged.
[[nodiscard]] std::string Summary(std::string_view path, const Fullflash& image, const Identification& info,
                                  const Messages& messages);

}  // namespace tarvelo
