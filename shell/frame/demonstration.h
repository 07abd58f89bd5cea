// The demonstration fullflash as a file of the user's.
#pragma once

#include <filesystem>

namespace tarvelo {

// Writes the demonstration fullflash into a folder, or into the system's folder for temporary files
// where that fails, and returns its path. No file is overwritten: one that holds just this already is
// taken as it is, and where another has the name a number is added. Throws FileError.
[[nodiscard]] std::filesystem::path WriteDemonstration(const std::filesystem::path& folder);

}  // namespace tarvelo
