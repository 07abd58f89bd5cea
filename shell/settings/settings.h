// The settings file "Tarvelo.ini": sections of keys with values, all UTF-8.
//
//   [General]      Language     two-letter code of the interface language
//   [History]      File1..5     the files opened last
//   [Integration]  HexEditor, Quillo, Calculator   other programs, edited by the user (external_tools.h)
//   [Window]       Left, Top, Width, Height, Maximized   the main window's place
//
// A file that cannot be read counts as empty; one that cannot be written is left as it is. Keys
// that the program does not know are kept.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarvelo {

class Settings {
 public:
  explicit Settings(std::filesystem::path file) : file_(std::move(file)) {}

  // The value in upper case (callers compare it with upper-case constants), at most 255 characters
  // of it; empty where there is none.
  [[nodiscard]] std::string GetIni(std::string_view section, std::string_view key) const;

  void SetIni(std::string_view section, std::string_view key, std::string_view value);

  // All keys of a section with their values as they stand.
  [[nodiscard]] std::vector<std::pair<std::string, std::string>> GetSec(std::string_view section) const;

  // One value as it stands, such as a command line; empty where there is none.
  [[nodiscard]] std::string GetRaw(std::string_view section, std::string_view key) const;

  // The folder of the settings file: other files of the user's and of the program's lie there too.
  [[nodiscard]] std::filesystem::path Folder() const { return file_.parent_path(); }

  // Where the settings live: beside the program where that folder can be written, else, and where the
  // program was installed as the system's own are, in the user's configuration folder, which is made.
  [[nodiscard]] static std::filesystem::path DefaultFile();

 private:
  std::filesystem::path file_;
};

}  // namespace tarvelo
