// Folders for files that other programs are to open.
#pragma once

#include <filesystem>

namespace tarvelo::platform {

// Creates a new folder of the user's own in the system's folder for temporary files. Throws FileError.
[[nodiscard]] std::filesystem::path MakeTemporaryFolder();

}  // namespace tarvelo::platform
