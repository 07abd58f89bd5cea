// What the operating system has to say about the command line and the terminal.
#pragma once

#include <string>
#include <vector>

namespace tarvelo::cli {

// The arguments behind the program's name, as UTF-8.
[[nodiscard]] std::vector<std::string> Arguments(int argc, char** argv);

// Makes standard output carry UTF-8 with line feeds as they are.
void PrepareStreams();

// Whether standard error is a terminal that a person looks at.
[[nodiscard]] bool ErrorIsTerminal();

}  // namespace tarvelo::cli
