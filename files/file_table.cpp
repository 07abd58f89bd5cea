#include "files/file_table.h"

#include <algorithm>

#include "core/notation.h"
#include "files/file_content.h"
#include "files/file_text.h"
#include "resources/texts.h"

namespace tarvelo {
namespace {

// Which paths do not fit into the room.
std::vector<bool> LongPaths(const FileList& list, const Fullflash& image, std::size_t room) {
  std::vector<bool> isLong;
  for (const std::uint32_t length : PathLengths(image, list)) {
    isLong.push_back(length > room);
    if (length <= room) room -= length;
  }
  return isLong;
}

std::string ShortPath(const FileList& list, const Fullflash& image, const FileEntry& entry) {
  constexpr std::size_t most = 64;
  std::string name = NameOf(image, list, entry);
  if (name.size() > most) {
    std::size_t end = most;
    while (end > 0 && (static_cast<unsigned char>(name[end]) & 0xC0) == 0x80) --end;
    name.resize(end);
  }
  return "..." + name;
}

std::string Mark(const FileEntry& entry) {
  if (entry.isDeleted) return "-";
  return entry.damage != 0 ? "!" : "";
}

struct Counts {
  std::size_t files = 0, folders = 0, damaged = 0, deleted = 0;
};

Counts Count(const FileList& list) {
  Counts counts;
  for (const FileEntry& entry : list.entries) {
    if (entry.isDeleted)
      ++counts.deleted;
    else
      ++(entry.isFolder ? counts.folders : counts.files);
    counts.damaged += !entry.isDeleted && entry.damage != 0;
  }
  return counts;
}

}  // namespace

std::vector<std::string> FileCaptions(const Messages& messages) {
  return Captions(messages, {"N", Text::ColumnName, Text::ColumnSize, Text::ColumnDate, "A",
                             Text::ColumnPieces, Text::ColumnOffset, "-"});
}

TableRows FileRows(const FileList& list, const Fullflash& image, const Messages& messages,
                   std::size_t roomForPaths, bool isPadded) {
  const auto decimal = [isPadded](std::int64_t value, std::size_t width) {
    return WholeDecimal(value, isPadded ? width : 1);
  };
  return {FileCaptions(messages), list.entries.size(),
          [&list, &image, decimal,
           isLong = LongPaths(list, image, roomForPaths + 4 * image.ff().size())](std::size_t row) {
            const FileEntry& entry = list.entries[row];
            const Offset size = SizeOf(image, list, entry);
            const bool hasPieces = entry.pieceCount > 0;
            return Table::Row{
                {decimal(entry.number, 5),
                 isLong[row] ? ShortPath(list, image, entry) : PathOf(image, list, entry),
                 entry.isFolder ? std::string() : decimal(size, 6), DateOf(image, list, entry),
                 AttributesOf(image, list, entry), decimal(entry.pieceCount, 2),
                 hasPieces ? WholeHex(list.records[list.pieces[entry.firstPiece]].offset) : std::string(),
                 Mark(entry)},
                entry.isDeleted};
          }};
}

std::string FileInformation(const FileList& list, const Messages& messages) {
  if (list.entries.empty()) return {};
  const Counts counts = Count(list);
  std::string text;
  const auto add = [&](Text label, std::size_t count) {
    text.append(messages.Msg(label)).append(std::to_string(count)).append("\n");
  };
  add(Text::FileCountLabel, counts.files);
  add(Text::FolderCountLabel, counts.folders);
  if (counts.damaged > 0) add(Text::DamagedFilesLabel, counts.damaged);
  add(Text::DeletedFilesLabel, counts.deleted);
  return text;
}

std::string FileStatus(const FileList& list) {
  if (list.entries.empty()) return {};
  const Counts counts = Count(list);
  return std::to_string(counts.files) + " / " + std::to_string(counts.deleted);
}

}  // namespace tarvelo
