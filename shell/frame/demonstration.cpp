#include "shell/frame/demonstration.h"

#include <cstring>
#include <vector>

#include "core/file.h"
#include "demo/demo_image.h"
#include "text/bytes.h"

namespace tarvelo {
namespace {

constexpr int mostDemonstrations = 99;  // how many files of its name may have other contents

// Whether a file's content is exactly these bytes.
bool Holds(const std::filesystem::path& path, Bytes bytes) try {
  NoProgress progress;
  const FileBytes file = ReadFile(path, bytes.size(), progress);
  return file.size == bytes.size() && std::memcmp(file.data.get(), bytes.data(), bytes.size()) == 0;
} catch (const FileError&) {
  return false;
}

std::filesystem::path WriteInto(const std::filesystem::path& folder, Bytes image) {
  std::error_code error;
  for (int i = 1; i <= mostDemonstrations; ++i) {
    const std::string number = i == 1 ? std::string() : " " + std::to_string(i);
    std::filesystem::path path = folder / ("Tarvelo demo" + number + ".bin");
    if (Holds(path, image)) return path;
    if (std::filesystem::exists(path, error)) continue;
    NoProgress progress;
    WriteFile(path, image, progress);
    return path;
  }
  throw FileError(FileError::Kind::CantWrite, folder, "too many demonstrations", FileError::Purpose::Write);
}

}  // namespace

std::filesystem::path WriteDemonstration(const std::filesystem::path& folder) {
  const std::vector<std::uint8_t> image = DemoImage();
  try {
    return WriteInto(folder, image);
  } catch (const FileError&) {
    std::error_code error;
    const std::filesystem::path temporary = std::filesystem::temp_directory_path(error);
    if (error) throw;
    return WriteInto(temporary, image);
  }
}

}  // namespace tarvelo
