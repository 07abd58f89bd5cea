// The command line: reads arguments, runs the same explorers as the desktop, prints.
//
// What it prints is an interface that programs read: text in UTF-8, one line feed a line, to `out`;
// one line a failure, naming the file and the cause, to `err`.
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
  scanFault = 4,    // a read past the end of the image, an overflow
};

// Runs one command line (without the program's name; UTF-8) and returns its exit status.
int Run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err);

}  // namespace tarvelo::cli
