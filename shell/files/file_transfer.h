// The commands that take files out of the phone's file system and replace them.
#pragma once

#include <wx/string.h>

#include <filesystem>
#include <functional>
#include <optional>
#include <vector>

#include "files/file_content.h"
#include "files/file_list.h"
#include "shell/services/panel_commands.h"

namespace tarvelo {

struct Workbench;

// What the panel lists and what is chosen there. Entries are indices in the list.
struct FileChoice {
  using Entries = std::function<std::vector<std::size_t>()>;

  std::function<const FileList&()> list;
  std::function<std::optional<std::size_t>()> current;
  Entries selected;  // of the selected rows
  Entries folder;    // in the chosen folder and below it
  Entries all;
};

class FileTransfer {
 public:
  FileTransfer(Workbench& bench, FileChoice choice) : bench_(bench), choice_(std::move(choice)) {}
  // Removes the files of SaveToOpen.
  ~FileTransfer();
  FileTransfer(const FileTransfer&) = delete;
  FileTransfer& operator=(const FileTransfer&) = delete;

  // The entries of the panel's menu.
  [[nodiscard]] std::vector<PanelCommand> Commands();

  // Each does nothing if it has no file to work on. Those that save write to the folder FILES beside the
  // dump, into the phone's folders; a selected folder stands for all that it holds.
  void SaveFiles_Click();
  void SaveFolder_Click();
  void SaveAllFiles_Click();
  void ReplaceFile_Click();
  // Opens the current file with the system's program for it, unless that could run the file as a program.
  void OpenFile_Click();

  // Saves files for other programs in a temporary folder, up to a total size. Throws FileError.
  std::vector<std::filesystem::path> SaveToOpen(const std::vector<std::size_t>& entries);

 private:
  void Save(const std::vector<std::size_t>& entries);
  [[nodiscard]] std::vector<std::size_t> WithContents(const std::vector<std::size_t>& entries) const;
  [[nodiscard]] const FileEntry* CurrentFile() const;
  void Replace(const FileEntry& entry, const std::filesystem::path& file);
  [[nodiscard]] wxString Why(const FileEntry& entry, FileRefusal refusal) const;
  [[nodiscard]] std::filesystem::path Folder() const;

  Workbench& bench_;
  FileChoice choice_;
  std::filesystem::path temporary_;  // empty until it is needed
  int opened_ = 0;                   // files saved there, each time in a folder of its own
};

}  // namespace tarvelo
