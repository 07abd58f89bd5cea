#include <iostream>

#include "cli/commands.h"
#include "cli/platform/terminal.h"

int main(int argc, char** argv) {
  tarvelo::cli::PrepareStreams();
  return tarvelo::cli::Run(tarvelo::cli::Arguments(argc, argv), std::cout, std::cerr);
}
