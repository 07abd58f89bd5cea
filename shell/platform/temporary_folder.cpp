#include "shell/platform/temporary_folder.h"

#include <random>
#include <string>

#include "core/file.h"

namespace tarvelo::platform {

std::filesystem::path MakeTemporaryFolder() {
  std::error_code error;
  const std::filesystem::path parent = std::filesystem::temp_directory_path(error);
  std::random_device random;
  for (int i = 0; i < 100 && !error; ++i) {
    const std::filesystem::path folder = parent / ("tarvelo-" + std::to_string(random()));
    if (!std::filesystem::create_directory(folder, error)) continue;  // the name is taken
    std::filesystem::permissions(folder, std::filesystem::perms::owner_all, error);
    return folder;
  }
  throw FileError(FileError::Kind::CantWrite, parent, error.message(), FileError::Purpose::Write);
}

}  // namespace tarvelo::platform
