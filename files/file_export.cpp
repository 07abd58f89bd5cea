#include "files/file_export.h"

#include <algorithm>
#include <unordered_map>
#include <vector>

#include "core/disk_names.h"
#include "core/file.h"
#include "files/file_content.h"
#include "files/file_text.h"

namespace tarvelo {
namespace {

constexpr int deepest = 16;
constexpr Offset mostImages = 16;

// What systems take, in units of the path type, with the current folder in front.
constexpr bool isWide = sizeof(std::filesystem::path::value_type) == 2;
constexpr std::size_t longestPath = isWide ? 259 : 4095;
constexpr std::size_t perCharacter = isWide ? 1 : 3;  // at most, of a UTF-16 unit
constexpr std::size_t shortestName = 16;              // left for names when a path is long
constexpr std::size_t numberRoom = 8;                 // of " (12345)"

// The longest name, in UTF-16 units, in a folder whose path has this length; 0 if none fits.
std::size_t RoomForName(std::size_t folderLength) {
  const std::size_t taken = folderLength + 1 + numberRoom;
  const std::size_t room = taken < longestPath ? (longestPath - taken) / perCharacter : 0;
  return room < shortestName ? 0 : std::min(room, longestDiskName);
}

}  // namespace

// The names of entries on disk. All members of a folder get theirs together, in the order of the list, so
// that a file has the same name whichever files are written.
class FileExport::Places {
 public:
  Places(const Fullflash& image, const FileList& list, const std::filesystem::path& folder)
      : image_(image), list_(list), contents_(list), names_(list.entries.size()) {
    std::error_code ignored;
    const std::size_t outside = std::filesystem::absolute(folder, ignored).native().size();
    folders_.push_back({folder, {}, 0, outside});
  }

  std::filesystem::path PathFor(std::size_t file) {
    const std::size_t folder = FolderOf(list_.entries[file]);  // names it
    return folders_[folder].path / tarvelo::PathOf(names_[file]);
  }

 private:
  struct Folder {
    std::filesystem::path path;
    UniqueNames names;
    int depth = 0;
    std::size_t length = 0;  // of the whole path
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
      place = Add(place, names_[*step]);
      places_[*step] = place;
      NameMembers(place, *step, entry.volume);
    }
    return place;
  }

  std::size_t VolumeFolder(std::uint16_t volume) {
    const auto [at, isNew] = volumes_.try_emplace(volume);
    if (!isNew) return at->second;
    at->second = Add(0, NewName(0, list_.volumes[volume].name));
    for (const std::uint32_t root : contents_.In(noIndex))
      if (list_.entries[root].isRoot) NameMembers(at->second, root, volume);
    NameMembers(at->second, noIndex, volume);
    return at->second;
  }

  // The folder of this name in another, or the other one if it would be too deep.
  std::size_t Add(std::size_t parent, const std::string& name) {
    const std::filesystem::path part = tarvelo::PathOf(name);
    const std::size_t length = folders_[parent].length + 1 + part.native().size();
    if (folders_[parent].depth == deepest || RoomForName(length) == 0) return parent;
    folders_.push_back({folders_[parent].path / part, {}, folders_[parent].depth + 1, length});
    return folders_.size() - 1;
  }

  void NameMembers(std::size_t place, std::uint32_t folder, std::uint16_t volume) {
    for (const std::uint32_t member : contents_.In(folder))
      if (const FileEntry& entry = list_.entries[member]; entry.volume == volume && !entry.isRoot)
        names_[member] = NewName(place, NameOf(image_, list_, entry));
  }

  std::string NewName(std::size_t place, const std::string& name) {
    const std::size_t room = std::max(RoomForName(folders_[place].length), shortestName);
    return folders_[place].names.Take(DiskName(name, room));
  }

  const Fullflash& image_;
  const FileList& list_;
  const FolderContents contents_;
  std::vector<std::string> names_;                         // by index in entries; empty: not yet known
  std::vector<Folder> folders_;                            // the first one is the target
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
  const std::filesystem::path path = places_->PathFor(index);
  MakeFolder(path.parent_path());
  // Not overwritten: a link of that name would lead to another file.
  ReplaceFile(path, ContentOf(image_, list_, entry));
  return {path, {}};
}

}  // namespace tarvelo
