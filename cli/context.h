// The context of every command, and the errors that end one early.
#pragma once

#include <iosfwd>
#include <stdexcept>
#include <string>

#include "core/progress.h"
#include "resources/messages.h"

namespace tarvelo::cli {

struct Context {
  std::ostream& out;
  std::ostream& err;
  Progress& progress;
  Messages messages;
  int status = 0;  // the exit status, unless an exception sets another
};

// Arguments that the command does not accept.
class WrongArguments : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

// A fault in an input: too many records, a read past the end, a text that cannot be encoded, a patch that
// does not fit. what() names the input and the cause.
class ScanFault : public std::runtime_error {
 public:
  ScanFault(const std::string& file, const std::string& cause) : runtime_error(file + ": " + cause) {}
};

}  // namespace tarvelo::cli
