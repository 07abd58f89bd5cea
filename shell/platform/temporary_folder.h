// Folders for files that other programs are to open.
#pragma once

#include <filesystem>

namespace tarvelo::platform {

// Creates a new folder of the user's own in the system's folder for temporary files. Throws FileError.
[[nodiscard]] std::filesystem::path MakeTemporaryFolder();

// Whether a path leads into a folder that this program has created.
[[nodiscard]] bool IsInTemporaryFolder(const std::filesystem::path& path);

}  // namespace tarvelo::platform
