// What can go wrong with files, brought about on purpose.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>

namespace tarvelo {

// While it lives the disk is full: nothing gets longer than a few bytes. Only where the system can do that
// to one process.
class FullDisk {
 public:
  static const bool isPossible;

  FullDisk();
  ~FullDisk();
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;
};

// While it lives another program has the file open and lets nobody in. On Windows alone.
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

// All files below a folder with their contents; folders have none. Paths are relative, UTF-8.
[[nodiscard]] std::map<std::string, std::optional<std::string>> ContentsOf(
    const std::filesystem::path& folder);

}  // namespace tarvelo
