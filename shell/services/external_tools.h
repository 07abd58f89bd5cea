// The other programs that open a dump or go with it: a hex editor, the patcher Quillo, the system's
// calculator. They are determined once, when the program starts:
//
//   hex editor   section "Integration", key "HexEditor" of the settings:
//                  HEXWORKSHOP         HexWorkshop's open command from the registry
//                  a command with %1   that command; %1 becomes the dump's path, and %2 and %3, if present,
//                                      become the region's offset ("0x01A2B4") and size
//                  another program     this program, with a script file
//                  nothing, WINHEX     WinHex with a script file, if the registry knows its path
//   patcher      the open command of the registry's Quillo.bin, otherwise key "Quillo", a command with %1
//   calculator   key "Calculator", otherwise the system's
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "text/bytes.h"

namespace tarvelo {

class Launcher;
class Settings;

// A command line with the path (in quotes if needed) in place of every "%1", or at the end if there is none.
[[nodiscard]] std::string CommandFor(std::string_view command, const std::filesystem::path& file);

// The command that shows a region in an editor with such switches. If `command` has neither "%2" nor "%3",
// appends " /GOTO:0x01A2B4 /SELECT:20".
[[nodiscard]] std::string EditorCommand(std::string_view command, const std::filesystem::path& dump,
                                        Offset start, Offset size);

// The script that shows a region in an editor that reads scripts: closes all files, opens the dump, goes to
// `start` and selects `size` bytes unless it is 0. Lines end with CR LF.
[[nodiscard]] std::string EditorScript(const std::filesystem::path& dump, Offset start, Offset size);

class ExternalTools {
 public:
  ExternalTools(const Settings& settings, Launcher& launcher);

  // Show a region of the dump, or its beginning, in the hex editor. False if none is configured. Throws
  // FileError if the script cannot be written.
  bool ShowBl(const std::filesystem::path& dump, Offset start, Offset size);
  bool View(const std::filesystem::path& dump);

  [[nodiscard]] bool HasQuillo() const { return !quillo_.empty(); }
  void Quillo(const std::filesystem::path& patch);

  [[nodiscard]] bool HasCalculator() const { return !calculator_.empty(); }
  void Calculator();

  // Removes the script file, if any.
  void Forget() const;

 private:
  Launcher& launcher_;
  std::filesystem::path script_;
  std::string editorCommand_;  // with %1, or empty
  std::string editorProgram_;  // a program that takes a script, or empty
  std::string quillo_;
  std::string calculator_;
};

}  // namespace tarvelo
