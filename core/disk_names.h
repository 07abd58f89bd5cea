// Names for files on disk, made of names that an image states.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace tarvelo {

// A name that every system takes as that of one file in a folder, as alike as possible: "_" stands for
// control characters and for each of <>:"/\|?*, for dots and blanks at the end, and in front of the names
// that Windows reserves for devices ("_con.txt"). A name longer than `longest` UTF-16 units keeps its
// beginning and a short extension; `longest` is at least 16.
inline constexpr std::size_t longestDiskName = 80;
[[nodiscard]] std::string DiskName(std::string_view utf8, std::size_t longest = longestDiskName);

// Gives each file of a folder a name of its own, whatever the case of its letters: "a.txt", "A (2).TXT".
class UniqueNames {
 public:
  [[nodiscard]] std::string Take(std::string_view name);

 private:
  std::unordered_set<std::string> taken_;                 // in upper case
  std::unordered_map<std::string, std::size_t> numbers_;  // the last number of a name
};

}  // namespace tarvelo
