// Files that are loaded into the image together: the changes they make, and the report to the user.
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

// Says that a file has the wrong size, and gives both sizes; `whose` says what the place belongs to ("of
// block 5076").
[[nodiscard]] wxString WrongSizeText(const Messages& messages, const std::filesystem::path& file,
                                     std::uint64_t fileSize, Offset placeSize, const wxString& whose);

class LoadedFiles {
 public:
  explicit LoadedFiles(Workbench& bench) : bench_(bench) {}

  // Adds a file that fits. Refuses it if it contradicts an earlier file about a byte that both cover.
  void Add(const std::filesystem::path& file, Change change);
  // Records a file that does not fit: with a text that names it, or with its name and a reason.
  void Refuse(const wxString& text);
  void Refuse(const std::filesystem::path& file, const wxString& reason);

  // Changes the image as one step and reports under the name of the command (a message) what was loaded and
  // what was not. `done` is the message for what was loaded. If there was no file at all, reports that
  // `pattern` was not found.
  void Finish(Text command, Text done, const std::filesystem::path& pattern);

 private:
  [[nodiscard]] bool Contradicts(const Change& change) const;

  Workbench& bench_;
  std::vector<Change> changes_;  // the ones that change at least one byte
  std::size_t loaded_ = 0;
  std::size_t refused_ = 0;
  wxString differing_;  // the names of their files, a line each
  wxString refusals_;
};

}  // namespace tarvelo
