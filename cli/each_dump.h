// Runs a command on one dump or on several.
//
// With several, each line that it prints begins with the file's path and a tab, each JSON object with "path".
// The order is that of the files. A file that cannot be read is reported, and the others go on.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "cli/context.h"

namespace tarvelo::cli {

enum class Printed {
  Lines,
  Table,  // the first line has the captions; it is printed once
  Json,   // an object a line
};

// How many files at a time: as many as there are processors, unless the user says how many. Throws
// WrongArguments unless that is a positive number.
[[nodiscard]] std::size_t JobsOf(const std::optional<std::string>& jobs);

// Calls run(file, context) for each file, `jobs` at a time; with several, `context` collects what it prints.
void OnEach(const std::vector<std::string>& files, std::size_t jobs, Printed printed, Context& context,
            const std::function<void(const std::string& file, Context& context)>& run);

}  // namespace tarvelo::cli
