// The command line, in the bytes or characters in which it was given.
#pragma once

#include <string>
#include <vector>

namespace tarvelo::platform {

// The arguments behind the program's name: UTF-8 on Windows, elsewhere the bytes as they are, since a
// file's name there may be no UTF-8.
[[nodiscard]] std::vector<std::string> Arguments();

}  // namespace tarvelo::platform
