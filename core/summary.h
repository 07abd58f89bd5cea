// The information text that stands in the Info panel after a dump is opened.
#pragma once

#include <string>
#include <string_view>

#include "core/identification.h"
#include "resources/messages.h"

namespace tarvelo {

// One line each, ended by a line feed: path, size, loading base, corrected base where it differs,
// model, firmware, build date where there is one, empty blocks, and the T9 area where there is one.
// `path` is shown as it is given, in UTF-8.
[[nodiscard]] std::string Summary(std::string_view path, const Fullflash& image, const Identification& info,
                                  const Messages& messages);

}  // namespace tarvelo
