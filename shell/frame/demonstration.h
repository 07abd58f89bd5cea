// Writes the demonstration fullflash to a file for the user.
#pragma once

#include <filesystem>

#include "demo/demo_image.h"

namespace tarvelo {

// Writes a demonstration fullflash into a folder, or into the system's temporary folder if that fails, and
// returns its path. Overwrites nothing: a file of this name with the same content is used as it is; if the
// content differs, the new file's name gets a number. Throws FileError.
[[nodiscard]] std::filesystem::path WriteDemonstration(const std::filesystem::path& folder, DemoKind kind);

}  // namespace tarvelo
