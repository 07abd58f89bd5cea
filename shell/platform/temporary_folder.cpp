#include "shell/platform/temporary_folder.h"

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "core/file.h"

namespace tarvelo::platform {
namespace {

std::vector<std::filesystem::path>& Folders() {
  static std::vector<std::filesystem::path> folders;
  return folders;
}

}  // namespace

std::filesystem::path MakeTemporaryFolder() {
  std::error_code error;
  const std::filesystem::path parent = std::filesystem::temp_directory_path(error);
  std::random_device random;
  for (int i = 0; i < 100 && !error; ++i) {
    const std::filesystem::path folder = parent / ("tarvelo-" + std::to_string(random()));
    if (!std::filesystem::create_directory(folder, error)) continue;  // the name is taken
    std::filesystem::permissions(folder, std::filesystem::perms::owner_all, error);
    Folders().push_back(folder);
    return folder;
  }
  throw FileError(FileError::Kind::CantWrite, parent, error.message(), FileError::Purpose::Write);
}

bool IsInTemporaryFolder(const std::filesystem::path& path) {
  return std::ranges::any_of(Folders(), [&](const std::filesystem::path& folder) {
    return std::ranges::mismatch(folder, path).in1 == folder.end();
  });
}

}  // namespace tarvelo::platform
