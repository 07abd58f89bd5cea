// The command line: reads arguments, runs the same explorers as the desktop, prints the results.
//
// Other programs read its output: to `out`, UTF-8 text with lines that end in a line feed; to `err`, one line
// per failure with the file and the cause.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace tarvelo::cli {

enum ExitStatus {
  done = 0,
  nothingFound = 1,
  wrongArguments = 2,
  fileTrouble = 3,  // could not be read or written, or is empty
  scanFault = 4,    // a read past the end, an overflow, a patch that does not fit
};

// Runs one command line (UTF-8, without the program's name). Returns its exit status.
int Run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err);

}  // namespace tarvelo::cli
