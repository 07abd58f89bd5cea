// From the words of a command line to the command that they ask for.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "cli/context.h"

namespace tarvelo::cli {

// A command with its arguments.
using Command = std::function<void(Context& context)>;

// Reads a command line and sets the context's language. Returns nothing to run where it asks for help or
// the version: they are printed already. Throws WrongArguments.
[[nodiscard]] Command Parse(std::vector<std::string> arguments, Context& context);

}  // namespace tarvelo::cli
