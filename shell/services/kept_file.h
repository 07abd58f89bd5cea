// Files that keep what they held before.
#pragma once

#include <filesystem>

#include "core/progress.h"

namespace tarvelo {

// NAME.bak beside the file NAME.
[[nodiscard]] std::filesystem::path BackupOf(std::filesystem::path file);

// Copies an existing file to its backup, in place of an older one. Returns whether the file exists. Throws
// FileError.
bool KeepOld(const std::filesystem::path& file, Progress& progress);

}  // namespace tarvelo
