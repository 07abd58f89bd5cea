// Writes the demonstration fullflash to a file for the user.
#pragma once

#include <filesystem>

namespace tarvelo {

// Writes the demonstration fullflash into a folder, or into the system's temporary folder if that fails, and
// returns its path. Overwrites nothing: a file of this name with the same content is used as it is; if the
// content differs, the new file's name gets a number. Throws FileError.
[[nodiscard]] std::filesystem::path WriteDemonstration(const std::filesystem::path& folder);

}  // namespace tarvelo
