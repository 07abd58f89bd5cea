// The folders of the phone as a tree: all files, the volumes, and their folders.
#pragma once

#include <wx/dataview.h>

#include <functional>
#include <optional>
#include <vector>

#include "core/explorer.h"
#include "core/fullflash.h"
#include "files/file_list.h"
#include "files/file_text.h"

namespace tarvelo {

// A place in the tree. Entries are indices in the list.
struct FolderPlace {
  std::uint32_t folder = noIndex;
  int volume = -1;  // if there is no folder; -1: all files

  bool operator==(const FolderPlace&) const = default;
};

// Which entries are below a place, by index.
[[nodiscard]] std::vector<bool> EntriesBelow(const FileList& list, FolderPlace place);

class FolderTree final : public wxDataViewCtrl {
 public:
  explicit FolderTree(wxWindow* parent);

  // Shows the folders among the findings, which it keeps; the image must outlive that. What is open and
  // chosen stays so if the folders are the same as before; otherwise all files are chosen.
  void ShowFolders(const Fullflash& image, const Findings& found, bool deleted);
  void Clear();
  // The caption of all files.
  void SetTitle(const wxString& title);

  [[nodiscard]] FolderPlace Chosen() const { return chosen_; }
  // Chooses a place, opens what it is in, and calls onChoose. Folders that only malformed volumes nest so
  // deeply stay closed.
  void Choose(FolderPlace place);

  std::function<void()> onChoose;  // another place was chosen

 private:
  class Model;
  // A folder as it can be recognised after a change.
  struct Folder {
    std::uint32_t entry, parent;
    std::uint16_t number, volume;
    bool operator==(const Folder&) const = default;
  };

  [[nodiscard]] const FileList& List() const;
  [[nodiscard]] bool IsShown(const FileEntry& entry) const {
    return entry.isFolder && !entry.isRoot && (deleted_ || !entry.isDeleted);
  }
  [[nodiscard]] wxDataViewItem ItemOf(FolderPlace place) const;
  [[nodiscard]] FolderPlace PlaceOf(const wxDataViewItem& item) const;
  [[nodiscard]] FolderPlace ParentOf(FolderPlace place) const;
  [[nodiscard]] bool HasFolders(FolderPlace place) const;
  [[nodiscard]] std::vector<FolderPlace> FoldersIn(FolderPlace place) const;
  [[nodiscard]] wxString NameOf(FolderPlace place) const;

  const Fullflash* image_ = nullptr;
  std::optional<Findings> found_;
  std::optional<FolderContents> contents_;
  std::vector<bool> hasFolders_;  // by entry
  std::vector<Folder> folders_;
  bool deleted_ = false;
  wxString title_;
  FolderPlace chosen_;
  wxObjectDataPtr<Model> model_;
};

}  // namespace tarvelo
