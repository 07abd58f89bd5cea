// The open fullflash: its image, its edits, and everything found in it.
//
// An explorer searches the image when its findings are first needed. The document keeps them until bytes
// change, so that all users see the same findings. A change drops all findings at once and then notifies the
// watchers.
#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "code/functions.h"
#include "code/references.h"
#include "core/dump.h"
#include "core/explorer.h"
#include "core/image_edits.h"
#include "core/progress.h"
#include "document/dump_map.h"
#include "document/layers.h"

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

  // Takes over an image read from a file, and identifies it.
  void Open(Fullflash image, const std::filesystem::path& path);
  // Forgets the image, its edits and its findings. Keeps the names, which file dialogs offer.
  void Close();

  // Sets the folder of the user's own files (Dump::usersFolder), used from the next search on.
  void SetUsersFolder(const std::filesystem::path& folder) { dump_.usersFolder = folder; }

  // --- its names ---

  // The file as the user chose it. All file access uses this path.
  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }
  // The name for display and comparison: in upper case after a dump is opened, otherwise the last file chosen
  // or written.
  [[nodiscard]] const std::string& FileName() const { return fileName_; }
  void SetFileName(std::string name) { fileName_ = std::move(name); }
  // The path without its extension, the base of the names of exported files.
  [[nodiscard]] const std::filesystem::path& FileStem() const { return fileStem_; }
  // The folder of the dump that was opened.
  [[nodiscard]] const std::filesystem::path& FileDir() const { return fileDir_; }
  // Assigns another file to the image.
  void SetPath(const std::filesystem::path& chosen);
  // A file beside the dump: FileStem with `ending` appended ("_E.txt", ".info").
  [[nodiscard]] std::filesystem::path Beside(std::string_view ending) const;

  // --- the user's names for places ---

  [[nodiscard]] const Names& PlaceNames() const { return dump_.names; }
  // Reads the names file beside the dump, if there is one. Throws FileError; there are no names then.
  void ReadNames();
  // Names a place, and writes the file (Names::Set). Reads the file first, so that what others have added
  // stays. Throws FileError.
  void NamePlace(Offset offset, std::string_view name, std::string_view comment);
  // The same for several phone addresses, each once, in or outside the image.
  void NamePlaces(std::span<const Name> names);
  // Call after SetPath: takes the names along, unless a names file is there already, which it reads then.
  // Throws FileError.
  void TakeNamesAlong();
  // The pages that the user states for DPP0 .. DPP3. The names file keeps them.
  [[nodiscard]] const DppPages& Dpps() const { return dpps_; }
  // States them, and writes the file. They hold also if it throws FileError.
  void StateDpps(const DppPages& pages);
  // Calls `named` after names or DPP pages have changed, as long as the result lives.
  using Watch = std::shared_ptr<const std::function<void()>>;
  [[nodiscard]] Watch OnNames(std::function<void()> named);

  // --- edits ---

  // Changes bytes of the image, as one step. If nothing changes, there is no step. Throws std::out_of_range,
  // and changes nothing, unless all of the bytes are in the image.
  void Write(Offset offset, Bytes bytes);
  void Write(std::span<const Change> changes);
  // Undoes the last step, or redoes the step last undone. Both return its region, or nothing if there is no
  // such step.
  std::optional<Region> Undo();
  std::optional<Region> Redo();
  [[nodiscard]] const ImageEdits& Edits() const { return edits_; }

  // Calls `changed` after each Write that changes a byte, and after each Undo or Redo that finds a step, as
  // long as the result lives.
  [[nodiscard]] Watch OnChange(std::function<void()> changed);
  // Likewise, calls `learnt` after each Find that makes the model known.
  [[nodiscard]] Watch OnModel(std::function<void()> learnt);

  // --- its findings ---

  // An explorer's findings in the current image. Throws what its search throws. If the model is unknown and
  // the findings name one (Explorer::model), it becomes the model of Info(), until the dump is closed.
  const Findings& Find(const Explorer& explorer, Progress& progress);
  // The findings if they are already known; null if no search was made since the last change.
  [[nodiscard]] const Findings* Known(const Explorer& explorer) const;
  // How many things the findings list, without deleted ones; nothing before a search.
  [[nodiscard]] std::optional<std::size_t> KnownCount(const Explorer& explorer) const;
  // What the findings say about single places; null before a search. Valid until bytes change.
  [[nodiscard]] const Layers* KnownLayers(const Explorer& explorer) const;
  // The functions of the current image. Known: without a search; empty if none was made yet.
  std::shared_ptr<const FunctionList> Functions(Progress& progress);
  [[nodiscard]] std::shared_ptr<const FunctionList> KnownFunctions() const;
  // The map of the current image, made of all explorers' findings. Throws what their searches throw.
  std::shared_ptr<const DumpMap> Map(Progress& progress);
  [[nodiscard]] std::shared_ptr<const DumpMap> KnownMap() const { return map_; }  // or null

 private:
  using Watches = std::vector<std::weak_ptr<const std::function<void()>>>;
  [[nodiscard]] static Watch Add(Watches& watches, std::function<void()> call);
  static void Call(Watches& watches);
  void Changed();
  void Forget();
  // Changes what the names file holds now, and writes it. Throws FileError.
  void ChangeNames(const std::function<void(Names& names)>& change);

  Dump dump_;
  ImageEdits edits_;
  DppPages dpps_;
  std::filesystem::path path_;
  std::string fileName_;
  std::filesystem::path fileStem_;
  std::filesystem::path fileDir_;
  struct Found {
    Findings findings;
    mutable std::optional<std::size_t> listed = {};          // counted when first needed
    mutable std::unique_ptr<const Layers> layers = nullptr;  // made when first needed
  };
  std::map<const Explorer*, Found> found_;
  std::shared_ptr<const DumpMap> map_;
  Watches changeWatches_;
  Watches modelWatches_;
  Watches nameWatches_;
};

}  // namespace tarvelo
