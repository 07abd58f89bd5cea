// File errors, caused on purpose.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>

namespace tarvelo {

// During its lifetime the disk is full: no file grows beyond a few bytes. Only on systems that can limit a
// single process.
class FullDisk {
 public:
  static const bool isPossible;

  FullDisk();
  ~FullDisk();
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;
};

// During its lifetime another program has the file open exclusively. Only on Windows.
class OpenElsewhere {
 public:
  static const bool isPossible;

  explicit OpenElsewhere(const std::filesystem::path& file);
  ~OpenElsewhere();
  OpenElsewhere(const OpenElsewhere&) = delete;
  OpenElsewhere& operator=(const OpenElsewhere&) = delete;

 private:
  void* handle_ = nullptr;
};

// All files and folders below a folder, by relative UTF-8 path. Files have their contents; folders have none.
[[nodiscard]] std::map<std::string, std::optional<std::string>> ContentsOf(
    const std::filesystem::path& folder);

}  // namespace tarvelo
