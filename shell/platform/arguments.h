// The command line, byte for byte.
#pragma once

#include <string>
#include <vector>

namespace tarvelo::platform {

// The arguments after the program's name: UTF-8 on Windows; elsewhere the unchanged bytes, because file names
// there need not be UTF-8.
[[nodiscard]] std::vector<std::string> Arguments();

}  // namespace tarvelo::platform
