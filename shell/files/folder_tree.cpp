#include "shell/files/folder_tree.h"

#include <algorithm>

#include "shell/base/strings.h"
#include "shell/platform/list_keys.h"
#include "text/unicode.h"

namespace tarvelo {

std::vector<bool> EntriesBelow(const FileList& list, FolderPlace place) {
  std::vector<bool> below(list.entries.size());
  for (std::size_t i = 0; i < below.size(); ++i) {
    const FileEntry& entry = list.entries[i];
    if (place.folder != noIndex)  // folders come before what they hold
      below[i] = entry.parent != noIndex && (entry.parent == place.folder || below[entry.parent]);
    else
      below[i] = place.volume < 0 || entry.volume == place.volume;
  }
  return below;
}

// Gives the control its folders. An item's id is 1 for all files, then come the volumes, then the entries.
class FolderTree::Model final : public wxDataViewModel {
 public:
  explicit Model(const FolderTree& tree) : tree_(tree) {}

  unsigned GetChildren(const wxDataViewItem& item, wxDataViewItemArray& children) const override {
    if (!item.IsOk()) {
      children.Add(tree_.ItemOf({}));
      return 1;
    }
    for (const FolderPlace place : tree_.FoldersIn(tree_.PlaceOf(item))) children.Add(tree_.ItemOf(place));
    return static_cast<unsigned>(children.size());
  }
  wxDataViewItem GetParent(const wxDataViewItem& item) const override {
    if (!item.IsOk() || tree_.PlaceOf(item) == FolderPlace{}) return {};
    return tree_.ItemOf(tree_.ParentOf(tree_.PlaceOf(item)));
  }
  bool IsContainer(const wxDataViewItem& item) const override {
    return !item.IsOk() || tree_.HasFolders(tree_.PlaceOf(item));
  }
  void GetValue(wxVariant& value, const wxDataViewItem& item, unsigned) const override {
    value = item.IsOk() ? tree_.NameOf(tree_.PlaceOf(item)) : wxString();
  }
  bool SetValue(const wxVariant&, const wxDataViewItem&, unsigned) override { return false; }

 private:
  const FolderTree& tree_;
};

FolderTree::FolderTree(wxWindow* parent)
    : wxDataViewCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxDV_SINGLE | wxDV_NO_HEADER),
      model_(new Model(*this)) {
  AssociateModel(model_.get());
  platform::LeaveSearchToMenus(*this);
  AppendTextColumn(wxString(), 0, wxDATAVIEW_CELL_INERT, wxCOL_WIDTH_AUTOSIZE);
  Bind(wxEVT_DATAVIEW_SELECTION_CHANGED, [this](wxDataViewEvent&) {
    const wxDataViewItem item = GetSelection();
    if (!item.IsOk() || PlaceOf(item) == chosen_) return;
    chosen_ = PlaceOf(item);
    if (onChoose) onChoose();
  });
}

const FileList& FolderTree::List() const {
  static const FileList none;
  return found_ ? found_->As<FileList>() : none;
}

void FolderTree::ShowFolders(const Fullflash& image, const Findings& found, bool deleted) {
  const std::size_t volumes = List().volumes.size();
  image_ = &image;
  found_ = found;
  deleted_ = deleted;
  contents_.emplace(List());
  hasFolders_.assign(List().entries.size(), false);
  std::vector<Folder> folders;
  for (std::uint32_t i = 0; i < List().entries.size(); ++i) {
    const FileEntry& entry = List().entries[i];
    if (!IsShown(entry)) continue;
    folders.push_back({i, entry.parent, entry.number, entry.volume});
    if (entry.parent != noIndex) hasFolders_[entry.parent] = true;
  }
  if (folders == folders_ && volumes == List().volumes.size()) return Refresh();
  folders_ = std::move(folders);
  chosen_ = {};
  model_->Cleared();
  Expand(ItemOf({}));
  for (std::size_t volume = 0; volume < std::min<std::size_t>(List().volumes.size(), 8); ++volume)
    Expand(ItemOf({.volume = static_cast<int>(volume)}));
  Select(ItemOf({}));
}

void FolderTree::Clear() {
  found_.reset();
  contents_.reset();
  hasFolders_.clear();
  folders_.clear();
  chosen_ = {};
  model_->Cleared();
}

void FolderTree::SetTitle(const wxString& title) {
  title_ = title;
  model_->ItemChanged(ItemOf({}));
}

void FolderTree::Choose(FolderPlace place) {
  constexpr int deepest = 100;  // to open thousands of folders takes the control minutes
  int depth = 0;
  for (FolderPlace above = place; above.folder != noIndex && depth <= deepest; ++depth)
    above = ParentOf(above);
  if (depth <= deepest) {
    const wxDataViewItem item = ItemOf(place);
    ExpandAncestors(item);
    Select(item);
    EnsureVisible(item);
  } else {
    UnselectAll();
  }
  if (chosen_ == place) return;
  chosen_ = place;
  if (onChoose) onChoose();
}

wxDataViewItem FolderTree::ItemOf(FolderPlace place) const {
  std::uintptr_t id = 1;
  if (place.folder != noIndex)
    id += 1 + List().volumes.size() + place.folder;
  else if (place.volume >= 0)
    id += 1 + static_cast<std::uintptr_t>(place.volume);
  return wxDataViewItem(reinterpret_cast<void*>(id));
}

FolderPlace FolderTree::PlaceOf(const wxDataViewItem& item) const {
  const std::uintptr_t id = reinterpret_cast<std::uintptr_t>(item.GetID()) - 1;
  const std::uintptr_t volumes = List().volumes.size();
  if (id == 0) return {};
  if (id <= volumes) return {.volume = static_cast<int>(id - 1)};
  return {.folder = static_cast<std::uint32_t>(id - 1 - volumes)};
}

FolderPlace FolderTree::ParentOf(FolderPlace place) const {
  if (place.folder >= List().entries.size()) return {};
  const FileEntry& entry = List().entries[place.folder];
  if (entry.parent == noIndex || List().entries[entry.parent].isRoot) return {.volume = entry.volume};
  return {.folder = entry.parent};
}

bool FolderTree::HasFolders(FolderPlace place) const {
  return place.folder == noIndex || (place.folder < hasFolders_.size() && hasFolders_[place.folder]);
}

std::vector<FolderPlace> FolderTree::FoldersIn(FolderPlace place) const {
  std::vector<FolderPlace> folders;
  if (!contents_) return folders;
  const auto add = [&](std::uint32_t parent) {
    for (const std::uint32_t member : contents_->In(parent)) {
      const FileEntry& entry = List().entries[member];
      if (IsShown(entry) && (place.volume < 0 || entry.volume == place.volume))
        folders.push_back({.folder = member});
    }
  };
  if (place.folder != noIndex) {
    if (place.folder < List().entries.size()) add(place.folder);
    return folders;
  }
  if (place.volume < 0) {
    for (std::size_t i = 0; i < List().volumes.size(); ++i)
      folders.push_back({.volume = static_cast<int>(i)});
    return folders;
  }
  for (const std::uint32_t root : contents_->In(noIndex))
    if (List().entries[root].isRoot && List().entries[root].volume == place.volume) add(root);
  add(noIndex);
  return folders;
}

wxString FolderTree::NameOf(FolderPlace place) const {
  const FileList& list = List();
  if (place.folder < list.entries.size())
    return Wx(WithDots(tarvelo::NameOf(*image_, list, list.entries[place.folder])));
  if (place.volume >= 0 && static_cast<std::size_t>(place.volume) < list.volumes.size())
    return Wx(list.volumes[static_cast<std::size_t>(place.volume)].name);
  return title_;
}

}  // namespace tarvelo
