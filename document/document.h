// The open fullflash: its image, the edits of it, and everything found in it.
//
// What an explorer finds is searched for when it is first asked for, and kept until bytes change: whoever
// shows it gets the same. A change drops all findings at once, here, and then tells the watchers.
#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/dump.h"
#include "core/explorer.h"
#include "core/image_edits.h"
#include "core/progress.h"
#include "document/dump_map.h"

namespace tarvelo {

class Document {
 public:
  Document() = default;
  Document(const Document&) = delete;
  Document& operator=(const Document&) = delete;

  // --- the dump ---

  [[nodiscard]] bool IsOpen() const { return dump_.image.IsOpen(); }
  [[nodiscard]] const Dump& Get() const { return dump_; }
  [[nodiscard]] const Fullflash& Image() const { return dump_.image; }
  [[nodiscard]] const Identification& Info() const { return dump_.info; }

  // Takes over an image that was read from a file, and identifies it.
  void Open(Fullflash image, const std::filesystem::path& path);
  // Forgets the image, its edits and what was found in it. The names stay, as file dialogs offer them.
  void Close();

  // The folder of the user's own files (Dump::usersFolder), from the next search on.
  void SetUsersFolder(const std::filesystem::path& folder) { dump_.usersFolder = folder; }

  // --- its names ---

  // The file as it was chosen: the file system is always asked with this.
  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }
  // The name for showing and comparing: upper-cased when a dump is opened, else the last file chosen
  // or written.
  [[nodiscard]] const std::string& FileName() const { return fileName_; }
  void SetFileName(std::string name) { fileName_ = std::move(name); }
  // The path without its extension: exported files are named from it.
  [[nodiscard]] const std::filesystem::path& FileStem() const { return fileStem_; }
  // The folder of the dump that was opened.
  [[nodiscard]] const std::filesystem::path& FileDir() const { return fileDir_; }
  // The image has another file from now on.
  void SetPath(const std::filesystem::path& chosen);
  // A file beside the dump: FileStem with this behind it ("_E.txt", ".info").
  [[nodiscard]] std::filesystem::path Beside(std::string_view ending) const;

  // --- edits ---

  // Changes bytes of the image, as one step. Bytes that stand there already are no step. Throws
  // std::out_of_range, and changes nothing, where they do not all lie within the image.
  void Write(Offset offset, Bytes bytes);
  void Write(std::span<const Change> changes);
  // Takes the last step back; does it again. Returns where it was; nothing where there is no such step.
  std::optional<Region> Undo();
  std::optional<Region> Redo();
  [[nodiscard]] const ImageEdits& Edits() const { return edits_; }

  // Calls `changed` after each change of bytes, as long as the result lives.
  using Watch = std::shared_ptr<const std::function<void()>>;
  [[nodiscard]] Watch OnChange(std::function<void()> changed);

  // --- what was found in it ---

  // What an explorer finds in the image as it is now. Throws what its search throws.
  const Findings& Find(const Explorer& explorer, Progress& progress);
  // What is known of it already; nothing where it was not searched for since the last change.
  [[nodiscard]] const Findings* Known(const Explorer& explorer) const;
  // The map of the image as it is now, made of what all explorers find. Throws likewise.
  std::shared_ptr<const DumpMap> Map(Progress& progress);

 private:
  void Changed();
  void Forget();

  Dump dump_;
  ImageEdits edits_;
  std::filesystem::path path_;
  std::string fileName_;
  std::filesystem::path fileStem_;
  std::filesystem::path fileDir_;
  std::map<const Explorer*, Findings> found_;
  std::shared_ptr<const DumpMap> map_;
  std::vector<std::weak_ptr<const std::function<void()>>> watches_;
};

}  // namespace tarvelo
