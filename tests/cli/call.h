// One run of the command line.
#pragma once

#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "cli/commands.h"

namespace tarvelo::cli {

struct Result {
  int status;
  std::string out;
  std::string err;
};

// The words of a call, with files in place of some of them.
inline std::vector<std::string> WordsOf(const std::string& line,
                                        const std::map<std::string, std::string>& files) {
  std::istringstream words(line);
  std::vector<std::string> arguments;
  for (std::string word; words >> word;) arguments.push_back(files.contains(word) ? files.at(word) : word);
  return arguments;
}

inline Result Call(const std::vector<std::string>& arguments) {
  std::ostringstream out, err;
  const int status = Run(arguments, out, err);
  return {status, out.str(), err.str()};
}

}  // namespace tarvelo::cli
