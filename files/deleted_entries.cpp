#include "files/deleted_entries.h"

#include <algorithm>

#include "files/piece_chain.h"

namespace tarvelo {
namespace {

constexpr int deepestFolders = 16;

// Headers in the order in which they choose their data.
enum class HeaderKind { Named, Nameless, OfOther, None };

class DeletedBuilder {
 public:
  DeletedBuilder(const Fullflash& image, const VolumeRecords& records, std::size_t firstLive, FileList& list)
      : image_(image.ff()),
        records_(records),
        list_(list),
        volume_(list.volumes.back()),
        used_(volume_.recordCount),
        chain_(image_, list, {2 * volume_.recordCount, 2 * volume_.size}),
        liveFolders_(entryNumbers, noIndex),
        deletedFolders_(entryNumbers, noIndex),
        owners_(entryNumbers, noIndex) {
    for (std::size_t i = firstLive; i < list.entries.size(); ++i) {
      const FileEntry& entry = list.entries[i];
      const auto index = static_cast<std::uint32_t>(i);
      if (entry.isRoot) root_ = index;
      if (entry.isFolder && liveFolders_[entry.number] == noIndex) liveFolders_[entry.number] = index;
      const auto header = ReadHeader(image_, list.records[entry.header]);
      const int data = header->data + firstFileRecord;
      if (data < static_cast<int>(entryNumbers)) owners_[static_cast<std::size_t>(data)] = index;
    }
  }

  std::vector<FileEntry> Run() {
    for (const HeaderKind kind : {HeaderKind::Named, HeaderKind::Nameless, HeaderKind::OfOther})
      for (std::size_t i = 0; i < volume_.recordCount; ++i) AddHeader(Index(i), kind);
    for (std::size_t i = 0; i < volume_.recordCount; ++i) AddData(Index(i));
    PlaceFolders();
    for (FileEntry& file : files_) {
      file.parent = FolderOf(file).value_or(root_);
      placed_.push_back(file);
    }
    return std::move(placed_);
  }

 private:
  [[nodiscard]] std::uint32_t Index(std::size_t i) const {
    return static_cast<std::uint32_t>(volume_.firstRecord + i);
  }
  [[nodiscard]] bool IsGeneration(std::uint32_t record) const {
    const RecordState state = list_.records[record].state;
    return state == RecordState::Deleted || state == RecordState::Second;
  }
  [[nodiscard]] bool IsUsed(std::uint32_t record) const { return used_[record - volume_.firstRecord]; }
  void Use(std::uint32_t record) {
    if (IsGeneration(record)) used_[record - volume_.firstRecord] = true;
  }

  [[nodiscard]] bool IsRegular(std::uint32_t record, const FileHeader& header) const {
    return header.number + firstFileRecord == list_.records[record].number;
  }
  // The header in a deleted record, if the number inside it is the record's.
  [[nodiscard]] std::optional<FileHeader> HeaderIn(std::uint32_t record) const {
    const auto header = ReadHeader(image_, list_.records[record]);
    if (!header || !IsRegular(record, *header)) return {};
    return header;
  }
  // Whether a header in a record of another number is still the one that was deleted: bytes in the unit of
  // their slot are not erased before it.
  [[nodiscard]] bool IsIntact(std::uint32_t record, const FileHeader& header) const {
    const Region unit = records_.UnitOf(list_.records[record]), bytes = list_.records[record].Bytes();
    const bool isInUnit = bytes.offset >= unit.offset + unitDataAt && bytes.End() <= unit.End();
    return isInUnit && header.name.size > 0 && header.data == header.number + 1;
  }

  // --- generations ---

  // The record of a number that goes with a deleted record; the live one, or noIndex, if no deleted one does.
  [[nodiscard]] std::uint32_t Partner(int number, std::uint32_t of) const {
    const auto candidates = records_.Generations(number);
    const auto own = records_.Generations(list_.records[of].number);
    const auto place = std::ranges::lower_bound(own, of);
    if (own.size() == candidates.size() && place != own.end() && *place == of) {
      const std::uint32_t paired = candidates[static_cast<std::size_t>(place - own.begin())];
      if (!IsUsed(paired)) return paired;
    }
    const std::uint32_t nearest = Nearest(candidates, of, false);
    const bool isMutual = nearest != noIndex && (own.empty() || Nearest(own, nearest, true) == of);
    return isMutual ? nearest : records_.Live(number);
  }

  // The candidate next to a record, those of its unit before others. Looks at a limited number.
  [[nodiscard]] std::uint32_t Nearest(std::span<const std::uint32_t> candidates, std::uint32_t of,
                                      bool maybeUsed) const {
    constexpr std::ptrdiff_t most = 64;
    const auto middle = std::ranges::lower_bound(candidates, of) - candidates.begin();
    const auto end = std::min(middle + most, std::ssize(candidates));
    std::uint32_t best = noIndex;
    const auto distance = [&](std::uint32_t record) {
      const bool isOther = list_.records[record].unit != list_.records[of].unit;
      return std::pair(isOther, record > of ? record - of : of - record);
    };
    for (auto i = std::max<std::ptrdiff_t>(middle - most, 0); i < end; ++i) {
      const std::uint32_t record = candidates[static_cast<std::size_t>(i)];
      if (!maybeUsed && IsUsed(record)) continue;
      if (best == noIndex || distance(record) < distance(best)) best = record;
    }
    return best;
  }

  // --- entries ---

  [[nodiscard]] HeaderKind KindOf(std::uint32_t record, const FileHeader& header) const {
    if (!IsRegular(record, header)) return IsIntact(record, header) ? HeaderKind::OfOther : HeaderKind::None;
    return header.name.size > 0 ? HeaderKind::Named : HeaderKind::Nameless;
  }

  void AddHeader(std::uint32_t record, HeaderKind kind) {
    if (!IsGeneration(record) || IsUsed(record)) return;
    const auto header = ReadHeader(image_, list_.records[record]);
    if (!header || KindOf(record, *header) != kind) return;
    Use(record);
    FileEntry entry = EntryOf(record, *header);
    const std::uint32_t data = Partner(header->data + firstFileRecord, record);
    if (data != noIndex) Use(data);
    std::uint32_t last = record;
    chain_.Follow(entry, data, header->next, [&](std::uint16_t number) { return LinkOf(number, last); });
    (entry.isFolder ? folders_ : files_).push_back(entry);
  }

  [[nodiscard]] FileEntry EntryOf(std::uint32_t record, const FileHeader& header) const {
    return {.header = record,
            .number = header.number,
            .volume = static_cast<std::uint16_t>(list_.volumes.size() - 1),
            .isFolder = header.IsFolder() || header.number == rootEntry,
            .isDeleted = true,
            .isRoot = header.number == rootEntry};
  }

  // The next piece, behind the header `last`, which it replaces.
  ChainLink LinkOf(std::uint16_t number, std::uint32_t& last) {
    const std::uint32_t record = Partner(number + firstFileRecord, last);
    if (record == noIndex) return {};
    const auto header = ReadHeader(image_, list_.records[record]);
    if (!header || header->name.size > 0) return {};
    Use(record);
    last = record;
    const std::uint32_t data = Partner(list_.records[record].number + 1, record);
    if (data != noIndex) Use(data);
    return {record, data, header->next};
  }

  // A deleted data record that no deleted header took.
  void AddData(std::uint32_t record) {
    const FileRecord& data = list_.records[record];
    if (!IsGeneration(record) || IsUsed(record) || data.number % 2 == 0) return;
    if (data.size == 0 || InImage(image_, data).size == 0) return;
    const std::uint32_t owner = HeaderFor(record);
    if (owner == noIndex) return;
    const auto header = ReadHeader(image_, list_.records[owner]);
    if (!header || header->name.size == 0) return;
    FileEntry entry = EntryOf(owner, *header);
    if (entry.isFolder) return;
    chain_.Follow(entry, record, noPiece, [](std::uint16_t) { return ChainLink{}; });
    if (header->next != noPiece) entry.damage |= DamageCutOff;
    files_.push_back(entry);
  }

  // The header of the file that has or had these bytes: the live one, or the next deleted one.
  [[nodiscard]] std::uint32_t HeaderFor(std::uint32_t data) const {
    const std::uint16_t number = list_.records[data].number;
    if (owners_[number] != noIndex) return list_.entries[owners_[number]].header;
    const auto headers = records_.Generations(number - 1);
    if (headers.empty()) return noIndex;
    const auto next = std::ranges::lower_bound(headers, data);
    const std::uint32_t header = next == headers.end() ? headers.back() : *next;
    return HeaderIn(header) ? header : noIndex;
  }

  // --- folders ---

  [[nodiscard]] std::uint16_t ParentNumber(const FileEntry& entry) const {
    return ReadHeader(image_, list_.records[entry.header])->parent;
  }

  [[nodiscard]] std::optional<std::uint32_t> FolderOf(const FileEntry& entry) const {
    const std::uint16_t number = ParentNumber(entry);
    if (liveFolders_[number] != noIndex) return liveFolders_[number];
    if (deletedFolders_[number] != noIndex) return deletedFolders_[number] | deletedParent;
    return {};
  }

  // Each folder after the one it is in, which roots are not. Those in rings stand under the root.
  void PlaceFolders() {
    for (int depth = 0; depth <= deepestFolders && !folders_.empty(); ++depth) {
      std::vector<bool> waits(entryNumbers);
      for (const FileEntry& folder : folders_) waits[folder.number] = true;
      std::vector<FileEntry> later;
      for (FileEntry& folder : folders_) {
        const auto parent = folder.isRoot ? noIndex : FolderOf(folder);
        if (!parent && waits[ParentNumber(folder)] && depth < deepestFolders) {
          later.push_back(folder);
          continue;
        }
        folder.parent = parent.value_or(root_);
        deletedFolders_[folder.number] = static_cast<std::uint32_t>(placed_.size());
        placed_.push_back(folder);
      }
      folders_ = std::move(later);
    }
  }

  const Bytes image_;
  const VolumeRecords& records_;
  FileList& list_;
  const FileVolumeRecords& volume_;
  std::vector<bool> used_;  // by index in the volume
  PieceChain chain_;
  std::vector<std::uint32_t> liveFolders_;     // indices in entries, by entry number
  std::vector<std::uint32_t> deletedFolders_;  // indices in placed_, by entry number
  std::vector<std::uint32_t> owners_;          // live entries, by the number of their data record
  std::uint32_t root_ = noIndex;
  std::vector<FileEntry> folders_;
  std::vector<FileEntry> files_;
  std::vector<FileEntry> placed_;
};

}  // namespace

std::vector<FileEntry> DeletedEntries(const Fullflash& image, const VolumeRecords& records,
                                      std::size_t firstLive, FileList& list) {
  return DeletedBuilder(image, records, firstLive, list).Run();
}

}  // namespace tarvelo
