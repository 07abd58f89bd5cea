// Where the program and what comes with it lie.
#pragma once

#include <filesystem>

namespace tarvelo {

// The folder of the running program.
[[nodiscard]] std::filesystem::path ProgramFolder();

// The folder of the files that come with it, such as the help pages: "../share/tarvelo" of a program
// that was installed as the system's own are, else the program's folder.
[[nodiscard]] std::filesystem::path DataFolder();

}  // namespace tarvelo
