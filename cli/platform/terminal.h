// The operating system's part of the command line and the terminal.
#pragma once

#include <string>
#include <vector>

namespace tarvelo::cli {

// The arguments after the program's name, as UTF-8.
[[nodiscard]] std::vector<std::string> Arguments(int argc, char** argv);

// Makes standard output write UTF-8 and leave line feeds unchanged.
void PrepareStreams();

// Whether standard error is a terminal.
[[nodiscard]] bool ErrorIsTerminal();

}  // namespace tarvelo::cli
