// Turns the words of a command line into a command.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "cli/context.h"

namespace tarvelo::cli {

// A command with its arguments.
using Command = std::function<void(Context& context)>;

// Parses a command line and sets the context's language. If it asks for help or the version, prints these and
// returns an empty function. Throws WrongArguments.
[[nodiscard]] Command Parse(std::vector<std::string> arguments, Context& context);

}  // namespace tarvelo::cli
