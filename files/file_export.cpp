#include "files/file_export.h"

#include <unordered_map>

#include "core/file.h"
#include "files/disk_names.h"
#include "files/file_content.h"
#include "files/file_text.h"

namespace tarvelo {
namespace {

constexpr int deepest = 16;
constexpr Offset mostImages = 16;

}  // namespace

// The paths of entries. Those of folders stay known, so that their members meet there.
class FileExport::Places {
 public:
  Places(const Fullflash& image, const FileList& list, std::filesystem::path folder)
      : image_(image), list_(list), folder_(std::move(folder)) {}

  std::filesystem::path PathFor(const FileEntry& file) {
    const std::size_t folder = FolderOf(file);
    return folders_[folder].path / PathOf(folders_[folder].names.Take(DiskName(NameOf(image_, list_, file))));
  }

 private:
  struct Folder {
    std::filesystem::path path;
    UniqueNames names;
    int depth = 0;
  };

  // The index of the folder that an entry stands in.
  std::size_t FolderOf(const FileEntry& entry) {
    std::vector<std::uint32_t> way;  // folders without a place yet
    std::uint32_t folder = entry.parent;
    for (; folder != noIndex && !list_.entries[folder].isRoot && !places_.contains(folder);
         folder = list_.entries[folder].parent)
      way.push_back(folder);
    const bool isTop = folder == noIndex || list_.entries[folder].isRoot;
    std::size_t place = isTop ? VolumeFolder(entry.volume) : places_.at(folder);
    for (auto step = way.rbegin(); step != way.rend(); ++step) {
      if (folders_[place].depth < deepest) place = Add(place, NameOf(image_, list_, list_.entries[*step]));
      places_[*step] = place;
    }
    return place;
  }

  std::size_t VolumeFolder(std::uint16_t volume) {
    if (folders_.empty()) folders_.push_back({folder_, {}, 0});
    const auto [at, isNew] = volumes_.try_emplace(volume);
    if (isNew) at->second = Add(0, list_.volumes[volume].name);
    return at->second;
  }

  std::size_t Add(std::size_t parent, const std::string& name) {
    const std::string unique = folders_[parent].names.Take(DiskName(name));
    folders_.push_back({folders_[parent].path / tarvelo::PathOf(unique), {}, folders_[parent].depth + 1});
    return folders_.size() - 1;
  }

  const Fullflash& image_;
  const FileList& list_;
  const std::filesystem::path folder_;
  std::vector<Folder> folders_;                            // the first one is `folder_`
  std::unordered_map<std::uint32_t, std::size_t> places_;  // indices in folders_, by index in entries
  std::unordered_map<std::uint16_t, std::size_t> volumes_;
};

FileExport::FileExport(const Fullflash& image, const FileList& list, const std::filesystem::path& folder)
    : image_(image),
      list_(list),
      places_(std::make_unique<Places>(image, list, folder)),
      room_(mostImages * std::ssize(image.ff())) {}

FileExport::~FileExport() = default;

Exported FileExport::Write(std::size_t index) {
  const FileEntry& entry = list_.entries[index];
  if (entry.isFolder) return {};
  const auto refused = [&](std::string_view why) {
    return Exported{{}, "file " + std::to_string(entry.number) + std::string(why)};
  };
  const Offset size = SizeOf(image_, list_, entry);
  if (size == 0 && (entry.damage & DamageUnreadable) != 0) return refused(" has no data in the image");
  if (size > room_) return refused(": the files have far more bytes than the image");
  room_ -= size;
  const std::filesystem::path path = places_->PathFor(entry);
  MakeFolder(path.parent_path());
  // Deleted, not overwritten: a link of that name would lead to another file.
  if (FileExist(path)) RemoveFile(path);
  NoProgress progress;
  WriteFile(path, ContentOf(image_, list_, entry), progress);
  return {path, {}};
}

}  // namespace tarvelo
