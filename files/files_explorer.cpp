#include "files/files_explorer.h"

#include <algorithm>
#include <memory>

#include "files/file_content.h"
#include "files/file_export.h"
#include "files/file_search.h"
#include "files/file_table.h"
#include "files/unit_maps.h"
#include "files/volume_records.h"

namespace tarvelo {
namespace {

const FileList& ListOf(const Findings& found) { return found.As<FileList>(); }

const SieveForm* SieveOf(const Dump&) { return &unitMapPointers; }

Findings Search(const Dump& dump, Progress& progress) {
  return Findings(FindFiles(dump.image, progress, dump.marks));
}

std::size_t Count(const Findings& found) { return ListOf(found).entries.size(); }

Item ItemOf(const Findings& found, std::size_t index) {
  const FileList& list = ListOf(found);
  const FileEntry& entry = list.entries[index];
  Region data = list.records[entry.header].Bytes();
  if (entry.pieceCount > 0) data = list.records[list.pieces[entry.firstPiece]].Bytes();
  return {.number = entry.number,
          .data = data,
          .entry = list.records[entry.header].Bytes(),
          .isDeleted = entry.isDeleted};
}

TableRows Rows(const Dump& dump, const Findings& found, const Messages& messages, CellRoom room) {
  constexpr std::size_t onScreen = 0x1000000;
  constexpr std::size_t inFiles = 0x10000000;
  const bool isScreen = room == CellRoom::Screen;
  return FileRows(ListOf(found), dump.image, messages, isScreen ? onScreen : inFiles, isScreen);
}

std::string Lines(const Findings& found, const Messages& messages) {
  return FileInformation(ListOf(found), messages);
}

std::string Status(const Findings& found) { return FileStatus(ListOf(found)); }

// --- claims ---

constexpr ClaimGroup files{Text::Files, {}, 0x009E73};
constexpr ClaimGroup deletedFiles{Text::Files, Text::Deleted, 0x8FD0B5};
constexpr ClaimGroup freeFiles{Text::Files, Text::MapFree, 0xCFE8DC};

constexpr ClaimKind unitHeader{"file-unit", Text::Files, Text::MapUnitHeader, 61, &files};
constexpr ClaimKind directory{"file-directory", Text::Files, Text::MapRecordDirectory, 62, &files};
constexpr ClaimKind map{"file-map", Text::Files, Text::MapUnitMap, 63, &files};
constexpr ClaimKind header{"file-header", Text::MapFile, Text::MapHeader, 64, &files};
constexpr ClaimKind data{"file-data", Text::MapFile, {}, 65, &files};
constexpr ClaimKind deletedHeader{"file-deleted-header", Text::MapFile, Text::MapDeletedHeader, 121,
                                  &deletedFiles};
constexpr ClaimKind deletedData{"file-deleted-data", Text::MapFile, Text::Deleted, 122, &deletedFiles};
constexpr ClaimKind freeSpace{"file-free", Text::Files, Text::MapFree, 123, &freeFiles};
constexpr const ClaimKind* kinds[] = {&unitHeader, &directory,     &map,         &header,
                                      &data,       &deletedHeader, &deletedData, &freeSpace};

// What is free is only likely, so that records outweigh it; deleted bytes may have been overwritten.
void ClaimUnit(const UnitDirectory& unit, const TakeClaim& take) {
  const auto [begin, size] = unit.unit;
  take({begin, std::min(size, unitDataAt), &unitHeader, Sureness::Certain});
  take({unit.slots.offset, unit.slots.size, &directory, Sureness::Certain});
  const Offset free = begin + unitDataAt;
  const Offset end = unit.slots.size > 0 ? unit.slots.offset : unit.unit.End();
  if (end > free) take({free, end - free, &freeSpace, Sureness::Likely});
}

void ClaimRecord(const FileRecord& record, const TakeClaim& take) {
  const bool isLive = record.state != RecordState::Deleted;
  const bool isHeader = record.number % 2 == 0;
  const int entry = (record.number - firstFileRecord) / 2 * 2;
  const ClaimKind* kind = isLive ? (isHeader ? &header : &data) : (isHeader ? &deletedHeader : &deletedData);
  take({record.offset, record.size, kind, isLive ? Sureness::Certain : Sureness::Likely,
        entry >= 0 ? entry : -1, record.slot});
}

// Only malformed volumes have so many records that claims on them would fill the memory.
void ClaimFiles(const Dump& dump, const Findings& found, const TakeClaim& take) {
  const FileList& list = ListOf(found);
  const std::size_t most = 0x10000 + dump.image.ff().size() / 256;
  for (const UnitDirectory& unit : list.units) ClaimUnit(unit, take);
  for (const Region& table : list.maps) take({table.offset, table.size, &map, Sureness::Certain});
  for (std::size_t i = 0; i < std::min(most, list.records.size()); ++i) ClaimRecord(list.records[i], take);
}

// --- files ---

ExportItem Write(const Dump& dump, const Findings& found, const ExportTarget& target) {
  auto writer = std::make_shared<FileExport>(dump.image, ListOf(found), target.folder);
  return [writer](std::size_t entry) { return writer->Write(entry); };
}

}  // namespace

constinit const Explorer filesExplorer{
    .key = "files",
    .about = "flash files",
    .letter = 'F',
    .name = Text::Files,
    .help = Text::HelpFiles,
    .place = 7,
    .sieve = SieveOf,
    .search = Search,
    .count = Count,
    .item = ItemOf,
    .hasDeleted = true,
    .showDeleted = Text::ShowDeletedFiles,
    .showDeletedHelp = Text::HelpDeletedFiles,
    .captions = FileCaptions,
    .rows = Rows,
    .searchedColumn = 1,
    .lines = Lines,
    .statusPanel = 5,
    .status = Status,
    .statusTip = Text::TipFileCounts,
    .kinds = kinds,
    .claim = ClaimFiles,
    .files =
        ExplorerFiles{
            .about = "flash files, in their folders", .folder = "FILES", .formats = {}, .write = Write},
};

}  // namespace tarvelo
