// The five most recently opened files of a kind, newest first, with what each holds.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarvelo {

class Settings;

class RecentFiles {
 public:
  static constexpr std::size_t count = 5;

  // `section` is the one of the settings that keeps them, as keys "File1" to "File5", and "Phone1" to
  // "Phone5".
  explicit RecentFiles(std::string section = "History") : section_(std::move(section)) {}
  // Write keeps what other windows have stored since Read, and adds this one's files to it.
  void Read(const Settings& settings);
  void Write(Settings& settings) const;

  // Puts a path in front and drops the last one. A path that is already listed, ignoring case, stays where it
  // is. `phone` says what a dump holds: "C55 v24 FD-02".
  void Add(std::string_view path, std::string_view phone = {});

  // The path at index 0 .. 4, and its phone; empty if there is none.
  [[nodiscard]] const std::string& operator[](std::size_t index) const { return files_[index].path; }
  [[nodiscard]] const std::string& Phone(std::size_t index) const { return files_[index].phone; }

 private:
  struct File {
    std::string path;
    std::string phone;
  };

  void Put(const File& file);

  std::string section_;
  std::array<File, count> files_;
  std::vector<File> added_;  // by this window, oldest first
};

}  // namespace tarvelo
