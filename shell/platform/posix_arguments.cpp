#include <fstream>

#include "shell/platform/arguments.h"

namespace tarvelo::platform {

std::vector<std::string> Arguments() {
  std::ifstream file("/proc/self/cmdline", std::ios::binary);
  std::vector<std::string> arguments;
  for (std::string argument; std::getline(file, argument, '\0');) arguments.push_back(argument);
  if (!arguments.empty()) arguments.erase(arguments.begin());
  return arguments;
}

}  // namespace tarvelo::platform
