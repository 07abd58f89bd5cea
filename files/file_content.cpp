#include "files/file_content.h"

#include <algorithm>

#include "files/volume_records.h"

namespace tarvelo {
namespace {

constexpr Offset sizeInSlot = 2;

const FileRecord& Piece(const FileList& list, const FileEntry& entry, std::uint32_t piece) {
  return list.records[list.pieces[entry.firstPiece + piece]];
}

bool Overlap(const FileRecord& a, const FileRecord& b) {
  return a.Bytes().offset < b.Bytes().End() && b.Bytes().offset < a.Bytes().End();
}

// Whether this record describes the same bytes as the piece, as the piece's own slot or a copy of it.
bool IsSame(const FileRecord& record, const FileRecord& piece) {
  const bool isLive = record.state == RecordState::Live || record.state == RecordState::Copy;
  return isLive && record.number == piece.number && record.offset == piece.offset &&
         record.size == piece.size;
}

// Whether two pieces, or a piece and another record, have a byte in common.
bool IsShared(const FileList& list, const FileEntry& entry) {
  std::vector<const FileRecord*> pieces;  // by offset
  for (std::uint32_t i = 0; i < entry.pieceCount; ++i)
    if (const FileRecord& piece = Piece(list, entry, i); piece.size > 0) pieces.push_back(&piece);
  std::ranges::sort(pieces, {}, &FileRecord::offset);
  const auto overlap = [](const FileRecord* a, const FileRecord* b) { return Overlap(*a, *b); };
  if (std::ranges::adjacent_find(pieces, overlap) != pieces.end()) return true;
  const FileVolumeRecords& volume = list.volumes[entry.volume];
  for (std::size_t i = 0; i < list.records.size(); ++i) {
    const FileRecord& record = list.records[i];
    const bool isOfVolume = i >= volume.firstRecord && i < volume.firstRecord + volume.recordCount;
    auto piece = std::ranges::upper_bound(pieces, Offset{record.offset}, {},
                                          [](const FileRecord* each) { return each->Bytes().End(); });
    for (; record.size > 0 && piece != pieces.end() && Overlap(record, **piece); ++piece)
      if (!isOfVolume || !IsSame(record, **piece)) return true;
  }
  return false;
}

FileRefusal Refusal(const Fullflash& image, const FileList& list, const FileEntry& entry, Bytes bytes) {
  constexpr int misread = DamageSecond | DamageCutOff | DamageUnreadable | DamageRing;
  if (entry.isFolder) return FileRefusal::Folder;
  if (entry.isDeleted) return FileRefusal::Deleted;
  if ((entry.damage & misread) != 0) return FileRefusal::Damaged;
  if (std::ssize(bytes) > SizeOf(image, list, entry)) return FileRefusal::TooLong;
  return IsShared(list, entry) ? FileRefusal::Shared : FileRefusal::None;
}

void AddChange(const Fullflash& image, Offset offset, Bytes bytes, std::vector<Change>& changes) {
  const Bytes old = image.Region(offset, std::ssize(bytes));
  if (!std::ranges::equal(old, bytes))
    changes.push_back({offset, {old.begin(), old.end()}, {bytes.begin(), bytes.end()}});
}

struct Resized {
  const FileRecord* piece;
  Offset size;  // the new one
};

// The sizes of pieces, in their slots and in the copies of these.
void Resize(const Fullflash& image, const FileList& list, const FileEntry& entry,
            std::vector<Resized> resized, std::vector<Change>& changes) {
  if (resized.empty()) return;
  const auto offset = [](const Resized& each) { return each.piece->offset; };
  std::ranges::sort(resized, {}, offset);
  const FileVolumeRecords& volume = list.volumes[entry.volume];
  for (std::size_t i = volume.firstRecord; i < volume.firstRecord + volume.recordCount; ++i) {
    const FileRecord& record = list.records[i];
    const auto found = std::ranges::lower_bound(resized, record.offset, {}, offset);
    if (found == resized.end() || !IsSame(record, *found->piece)) continue;
    const std::uint8_t word[] = {static_cast<std::uint8_t>(found->size),
                                 static_cast<std::uint8_t>(found->size >> 8)};
    AddChange(image, record.slot + sizeInSlot, word, changes);
  }
}

}  // namespace

std::vector<Region> PiecesOf(const Fullflash& image, const FileList& list, const FileEntry& entry) {
  std::vector<Region> pieces;
  for (std::uint32_t i = 0; i < entry.pieceCount; ++i)
    pieces.push_back(InImage(image.ff(), Piece(list, entry, i)));
  return pieces;
}

Offset SizeOf(const Fullflash& image, const FileList& list, const FileEntry& entry) {
  Offset size = 0;
  for (std::uint32_t i = 0; i < entry.pieceCount; ++i)
    size += InImage(image.ff(), Piece(list, entry, i)).size;
  return size;
}

std::vector<std::uint8_t> ContentOf(const Fullflash& image, const FileList& list, const FileEntry& entry) {
  std::vector<std::uint8_t> content(static_cast<std::size_t>(SizeOf(image, list, entry)));
  ContentReader(image.ff(), list, entry).Read(content);
  return content;
}

std::size_t ContentReader::Read(std::span<std::uint8_t> bytes) {
  std::size_t done = 0;
  while (done < bytes.size() && piece_ < entry_.pieceCount) {
    const Region piece = InImage(image_, Piece(list_, entry_, piece_));
    const Offset count = std::min(piece.size - at_, std::ssize(bytes) - static_cast<Offset>(done));
    if (count > 0)
      std::copy_n(image_.begin() + piece.offset + at_, count, bytes.begin() + static_cast<Offset>(done));
    done += static_cast<std::size_t>(count);
    at_ += count;
    if (at_ == piece.size) {
      ++piece_;
      at_ = 0;
    }
  }
  return done;
}

FileReplacement ReplaceContent(const Fullflash& image, const FileList& list, const FileEntry& entry,
                               Bytes bytes) {
  FileReplacement replacement{Refusal(image, list, entry, bytes), {}};
  if (replacement.refusal != FileRefusal::None) return replacement;
  std::vector<Resized> resized;
  for (std::uint32_t i = 0; i < entry.pieceCount; ++i) {
    const FileRecord& piece = Piece(list, entry, i);
    const auto size = std::min<std::size_t>(piece.size, bytes.size());
    AddChange(image, piece.offset, bytes.first(size), replacement.changes);
    if (size < piece.size) resized.push_back({&piece, static_cast<Offset>(size)});
    bytes = bytes.subspan(size);
  }
  Resize(image, list, entry, std::move(resized), replacement.changes);
  return replacement;
}

}  // namespace tarvelo
