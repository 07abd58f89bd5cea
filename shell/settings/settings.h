// The settings file "Tarvelo.ini": sections of keys with values, all UTF-8.
//
//   [General]      Language     two-letter code of the interface language
//   [History]      File1..5     the most recently opened files
//                  Phone1..5    what they hold
//   [Patches]      File1..5     the most recently opened patch files
//   [Session]      File, Panel, Place   where the user left off (dump_commands.h)
//   [Integration]  HexEditor, Quillo, Calculator   other programs, edited by the user (external_tools.h)
//   [HexView]      how the hex view looks (hex_look.h)
//   [Window]       Left, Top, Width, Height, Maximized   the main window's place
//                  PanelBar     0: hidden
//
// A file that cannot be read counts as empty; one that cannot be written stays unchanged. The program
// keeps keys that it does not know.
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

  // At most 255 characters of the value, in upper case (callers compare it with upper-case constants); empty
  // if there is none.
  [[nodiscard]] std::string GetIni(std::string_view section, std::string_view key) const;

  void SetIni(std::string_view section, std::string_view key, std::string_view value);

  // All keys of a section with their unchanged values.
  [[nodiscard]] std::vector<std::pair<std::string, std::string>> GetSec(std::string_view section) const;

  // One unchanged value, such as a command line; empty if there is none.
  [[nodiscard]] std::string GetRaw(std::string_view section, std::string_view key) const;

  // The folder of the settings file, which also holds other files of the user and of the program.
  [[nodiscard]] std::filesystem::path Folder() const { return file_.parent_path(); }

  // The path of the settings file: beside the program if its folder is writable; otherwise, and if the
  // program is installed as part of the system, in the user's configuration folder, which is created.
  [[nodiscard]] static std::filesystem::path DefaultFile();

 private:
  std::filesystem::path file_;
};

}  // namespace tarvelo
