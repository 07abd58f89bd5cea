// The folders of the program and its data files.
#pragma once

#include <filesystem>

namespace tarvelo {

// The running program, and its folder.
[[nodiscard]] std::filesystem::path ProgramFile();
[[nodiscard]] std::filesystem::path ProgramFolder();

// The folder of its data files, such as the help pages: "../share/tarvelo" if that exists (the program is
// installed as part of the system), otherwise the program's folder.
[[nodiscard]] std::filesystem::path DataFolder();

}  // namespace tarvelo
