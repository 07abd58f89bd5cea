// Other programs that the open dump is handed to: a hex editor, the patcher Quillo, the system's
// calculator. Which they are is settled once, when the program starts:
//
//   hex editor   section "Integration", key "HexEditor" of the settings:
//                  HEXWORKSHOP         the open command that HexWorkshop has left in the registry
//                  a command with %1   that command; %1 becomes the dump's path. Where it has %2 or %3,
//                                      these become the region's offset ("0x1A2B4") and size
//                  another program     it is given a script file
//                  nothing, WINHEX     likewise WinHex, if the registry knows where it lies
//   patcher      the open command of the registry's Quillo.bin, else key "Quillo", a command with %1
//   calculator   key "Calculator", else the system's
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "text/bytes.h"

namespace tarvelo {

class Launcher;
class Settings;

// A command line with the path in place of every "%1" (in quotes where it needs them), or behind it
// where there is none.
[[nodiscard]] std::string CommandFor(std::string_view command, const std::filesystem::path& file);

// The command that shows a region in an editor which takes such switches. Without "%2" and "%3" it ends
// with " /GOTO:0x01A2B4 /SELECT:20".
[[nodiscard]] std::string EditorCommand(std::string_view command, const std::filesystem::path& dump,
                                        Offset start, Offset size);

// The script that shows a region in an editor that reads scripts: closes all, opens the dump, goes to
// `start` and marks `size` bytes if there are any. Lines end with CR LF.
[[nodiscard]] std::string EditorScript(const std::filesystem::path& dump, Offset start, Offset size);

class ExternalTools {
 public:
  ExternalTools(const Settings& settings, Launcher& launcher);

  // Shows a region of the dump in the hex editor, or its beginning. False where none is configured.
  // Throws FileError where the script cannot be written.
  bool ShowBl(const std::filesystem::path& dump, Offset start, Offset size);
  bool View(const std::filesystem::path& dump);

  [[nodiscard]] bool HasQuillo() const { return !quillo_.empty(); }
  void Quillo(const std::filesystem::path& patch);

  [[nodiscard]] bool HasCalculator() const { return !calculator_.empty(); }
  void Calculator();

  // Removes the script file, if there is one.
  void Forget() const;

 private:
  Launcher& launcher_;
  std::filesystem::path script_;
  std::string editorCommand_;  // with %1, or empty
  std::string editorProgram_;  // that takes a script, or empty
  std::string quillo_;
  std::string calculator_;
};

}  // namespace tarvelo
