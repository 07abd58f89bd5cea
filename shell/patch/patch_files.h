// The file of the patch document: reading and writing it, and the patch files opened recently.
#pragma once

#include <wx/string.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "core/file.h"
#include "patch/patch_file_text.h"
#include "resources/texts.h"
#include "shell/settings/recent_files.h"

namespace tarvelo {

class Messages;
struct Workbench;

// The file dialog filter for patch files.
[[nodiscard]] wxString PatchFilter(const Messages& texts);

// Asks for a patch file to open; `title` is the command. Offers `own`, or its folder if there is no such
// file.
[[nodiscard]] std::optional<std::filesystem::path> AskForPatch(Workbench& bench, Text title,
                                                               const std::filesystem::path& own);
// Reads a patch file of up to 32 MiB. Throws FileError.
[[nodiscard]] FileBytes ReadPatchBytes(Workbench& bench, const std::filesystem::path& file);

class PatchFiles {
 public:
  explicit PatchFiles(Workbench& bench);

  // The file that was opened or saved last; empty: the document belongs to none.
  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }
  [[nodiscard]] RecentFiles& Recent() { return recent_; }

  // Asks for a patch file to open; `title` is the command.
  [[nodiscard]] std::optional<std::filesystem::path> Ask(Text title);
  // Reads the text of a patch file (ReadPatchBytes). If it has a line that would make the editor too slow,
  // tells the user and returns nothing.
  [[nodiscard]] std::optional<PatchFileText> Read(const std::filesystem::path& file);

  // The document is that of a file now, or of none.
  void Opened(const std::filesystem::path& file, const PatchFileText& text);
  void Forget();

  // The patch file beside the dump.
  [[nodiscard]] std::filesystem::path OwnFile() const;
  // Writes the document to the file beside the dump, with the lines that identify the dump in front, or to
  // any file in the form in which it was opened. Both keep a file that the program has not written before as
  // NAME.bak, and tell the user. They throw FileError.
  void Save(std::string document);
  void SaveTo(const std::filesystem::path& file, std::string document);
  // Writes another document in the same form as SaveTo, without a message.
  void WritePart(const std::filesystem::path& file, std::string document);

 private:
  void Save(const std::filesystem::path& file, const PatchFileText& text);
  // Returns whether it kept the former file.
  bool Write(const std::filesystem::path& file, const PatchFileText& text);
  [[nodiscard]] std::string Phone() const;

  Workbench& bench_;
  std::filesystem::path path_;
  PatchFileText form_;  // of the document, whose text it lacks
  std::vector<std::filesystem::path> written_;
  RecentFiles recent_{"Patches"};
};

}  // namespace tarvelo
