// Files that are loaded into the image together: what they change, and what the user is told of it.
#pragma once

#include <wx/string.h>

#include <cstdint>
#include <filesystem>
#include <vector>

#include "core/image_edits.h"
#include "resources/texts.h"

namespace tarvelo {

struct Workbench;
class Messages;

// That a file has not the size it must have, and both sizes; `whose` place it is ("of block 5076").
[[nodiscard]] wxString WrongSizeText(const Messages& messages, const std::filesystem::path& file,
                                     std::uint64_t fileSize, Offset placeSize, const wxString& whose);

class LoadedFiles {
 public:
  explicit LoadedFiles(Workbench& bench) : bench_(bench) {}

  // A file that fits. It is refused where it says something else of bytes than a file before it.
  void Add(const std::filesystem::path& file, Change change);
  // A file that does not: a text that names it, or one behind its name.
  void Refuse(const wxString& text);
  void Refuse(const std::filesystem::path& file, const wxString& reason);

  // Changes the image, as one step, and says what was loaded, under the name of the command (a message),
  // and what was not. `done` is the message for what was; without any file, `pattern` is said to be missing.
  void Finish(Text command, Text done, const std::filesystem::path& pattern);

 private:
  [[nodiscard]] bool Contradicts(const Change& change) const;

  Workbench& bench_;
  std::vector<Change> changes_;  // those that change anything
  std::size_t loaded_ = 0;
  std::size_t refused_ = 0;
  wxString differing_;  // names of the files of these changes, a line each
  wxString refusals_;
};

}  // namespace tarvelo
