// One run of the command line.
#pragma once

#include <sstream>

#include "cli/commands.h"

namespace tarvelo::cli {

struct Result {
  int status;
  std::string out;
  std::string err;
};

inline Result Call(const std::vector<std::string>& arguments) {
  std::ostringstream out, err;
  const int status = Run(arguments, out, err);
  return {status, out.str(), err.str()};
}

}  // namespace tarvelo::cli
