// The five most recently opened files of a kind, newest first.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <utility>

namespace tarvelo {

class Settings;

class RecentFiles {
 public:
  static constexpr std::size_t count = 5;

  // `section` is the one of the settings that keeps them, as keys "File1" to "File5".
  explicit RecentFiles(std::string section = "History") : section_(std::move(section)) {}
  void Read(const Settings& settings);
  void Write(Settings& settings) const;

  // Puts a path in front and drops the last one. A path that is already listed, ignoring case, stays where it
  // is.
  void Add(std::string_view path);

  // The path at index 0 .. 4; empty if there is none.
  [[nodiscard]] const std::string& operator[](std::size_t index) const { return files_[index]; }

 private:
  std::string section_;
  std::array<std::string, count> files_;
};

}  // namespace tarvelo
