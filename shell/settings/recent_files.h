// The five most recently opened fullflash files, newest first, with the phone and firmware of each.
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

  // Use the settings' section "History", keys "File1" to "File5" and "Phone1" to "Phone5". Write keeps what
  // other windows have stored since Read, and adds this one's files to it.
  void Read(const Settings& settings);
  void Write(Settings& settings) const;

  // Puts a path in front and drops the last one. A path that is already listed, ignoring case, stays where it
  // is. `phone` says what it holds: "C55 v24 FD-02".
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

  std::array<File, count> files_;
  std::vector<File> added_;  // by this window, oldest first
};

}  // namespace tarvelo
