#include <unistd.h>

#include "cli/platform/terminal.h"

namespace tarvelo::cli {

std::vector<std::string> Arguments(int argc, char** argv) { return {argv + 1, argv + argc}; }

void PrepareStreams() {}

bool ErrorIsTerminal() { return isatty(STDERR_FILENO) != 0; }

}  // namespace tarvelo::cli
