#include "shell/frame/demonstration.h"

#include <cstring>
#include <string>
#include <vector>

#include "core/file.h"
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

std::filesystem::path WriteInto(const std::filesystem::path& folder, const std::string& name, Bytes image) {
  std::error_code error;
  for (int i = 1; i <= mostDemonstrations; ++i) {
    const std::string number = i == 1 ? std::string() : " " + std::to_string(i);
    std::filesystem::path path = folder / (name + number + ".bin");
    if (Holds(path, image)) return path;
    if (std::filesystem::exists(path, error)) continue;
    NoProgress progress;
    WriteFile(path, image, progress);
    return path;
  }
  throw FileError(FileError::Kind::CantWrite, folder, "too many demonstrations", FileError::Purpose::Write);
}

}  // namespace

std::filesystem::path WriteDemonstration(const std::filesystem::path& folder, DemoKind kind) {
  const std::vector<std::uint8_t> image = DemoImage(kind);
  const std::string name = kind == DemoKind::Second ? "Tarvelo demo, second firmware" : "Tarvelo demo";
  try {
    return WriteInto(folder, name, image);
  } catch (const FileError&) {
    std::error_code error;
    const std::filesystem::path temporary = std::filesystem::temp_directory_path(error);
    if (error) throw;
    return WriteInto(temporary, name, image);
  }
}

}  // namespace tarvelo
