#include "files/file_search.h"

#include "files/deleted_entries.h"
#include "files/live_entries.h"
#include "files/volume_search.h"

namespace tarvelo {
namespace {

// Adds deleted entries behind all others. Their parents are still indices of either.
void Append(FileList& list, std::vector<FileEntry> deleted) {
  const auto first = static_cast<std::uint32_t>(list.entries.size());
  for (FileEntry& entry : deleted) {
    if (entry.parent != noIndex && entry.parent >= deletedParent) entry.parent += first - deletedParent;
    list.entries.push_back(entry);
  }
}

}  // namespace

FileList FindFiles(const Fullflash& image, Progress& progress, const SieveMarks& marks) {
  FileList list;
  VolumeList found = FindVolumes(image, progress, marks);
  list.maps = std::move(found.maps);
  std::vector<std::vector<FileEntry>> deleted;
  for (const FileVolume& volume : found.volumes) {
    const VolumeRecords records(image, volume, list);
    const std::size_t firstLive = list.entries.size();
    AddLiveEntries(image, records, list);
    deleted.push_back(DeletedEntries(image, records, firstLive, list));
  }
  list.liveCount = list.entries.size();
  for (std::vector<FileEntry>& entries : deleted) Append(list, std::move(entries));
  return list;
}

}  // namespace tarvelo
