#include "eeprom/eeprom_explorer.h"

#include "eeprom/block_files.h"
#include "eeprom/block_report.h"
#include "eeprom/block_table.h"
#include "eeprom/greeting.h"

namespace tarvelo {
namespace {

constexpr std::uint64_t longestDescriptions = 1 << 20;

const BlockStore& StoreOf(const Findings& found) { return found.As<EepromFindings>().store; }

std::string UsersDescriptions(const std::filesystem::path& folder) try {
  if (folder.empty()) return {};
  NoProgress progress;
  const FileBytes file = ReadFile(folder / usersDescriptionsFile, longestDescriptions, progress);
  return {file.data.get(), file.data.get() + file.size};
} catch (const FileError&) {
  return {};
}

const SieveForm* SieveOf(const Dump& dump) { return HeaderSieve(dump.image, dump.info.Model); }

Findings Search(const Dump& dump, Progress& progress) {
  return Findings(EepromFindings{GetEE(dump.image, dump.info.Model, progress, dump.marks),
                                 GetDescriptions(UsersDescriptions(dump.usersFolder))});
}

std::string ModelOf(const Dump& dump, const Findings& found) {
  return GreetingModel(dump.image, StoreOf(found));
}

std::size_t Count(const Findings& found) { return StoreOf(found).records.size(); }

Item ItemOf(const Findings& found, std::size_t record) {
  const BlockStore& store = StoreOf(found);
  const EepromBlockRecord& block = store.records[record];
  return {.number = block.Number,
          .data = {block.DataOffset, block.Size},
          .entry = {block.HeaderPos, blockHeaderLength},
          .isDeleted = block.IsDeleted(),
          .isCurrent = LiveBlock(store, block.Number) == record};
}

TableRows Rows(const Dump&, const Findings& found, const Messages& messages, CellRoom) {
  const auto& [store, descriptions] = found.As<EepromFindings>();
  return ShowEE(store, descriptions, messages);
}

std::string Lines(const Findings& found, const Messages& messages) {
  return BlockInformation(StoreOf(found), messages);
}

std::string Status(const Findings& found) { return BlockStatus(StoreOf(found)); }

// --- claims ---

constexpr ClaimGroup blocks{Text::Eeprom, {}, 0x0072B2};
constexpr ClaimGroup deletedBlocks{Text::Eeprom, Text::Deleted, 0x56B4E9};

constexpr ClaimKind header{"eeprom-header", Text::Eeprom, Text::MapHeader, 40, &blocks};
constexpr ClaimKind deletedHeader{"eeprom-deleted-header", Text::Eeprom, Text::MapDeletedHeader, 50,
                                  &deletedBlocks};
constexpr ClaimKind data{"eeprom-data", Text::Eeprom, {}, 60, &blocks};
constexpr ClaimKind deletedData{"eeprom-deleted-data", Text::Eeprom, Text::Deleted, 120, &deletedBlocks};
constexpr const ClaimKind* kinds[] = {&header, &data, &deletedHeader, &deletedData};

// The data of deleted blocks may have been overwritten.
void ClaimBlocks(const Dump&, const Findings& found, const TakeClaim& take) {
  for (const EepromBlockRecord& block : StoreOf(found).records) {
    const bool isDeleted = block.IsDeleted();
    take({block.HeaderPos, blockHeaderLength, isDeleted ? &deletedHeader : &header, Sureness::Certain,
          block.Number, block.HeaderPos});
    take({block.DataOffset, block.Size, isDeleted ? &deletedData : &data,
          isDeleted ? Sureness::Likely : Sureness::Certain, block.Number, block.HeaderPos});
  }
}

// --- files ---

ExportItem Write(const Dump& dump, const Findings& found, const ExportTarget& target) {
  return [&dump, &store = StoreOf(found), target](std::size_t record) -> Exported {
    const EepromBlockRecord& block = store.records[record];
    const auto file = SaveBlock(dump.image, store, block, target.folder, target.stem);
    if (file) return {*file, {}};
    return {{}, "block " + std::to_string(block.Number) + " has no data in the image"};
  };
}

}  // namespace

constinit const Explorer eepromExplorer{
    .key = "eeprom",
    .about = "EEPROM blocks",
    .letter = 'E',
    .name = Text::Eeprom,
    .help = Text::HelpEeprom,
    .place = 3,
    .sieve = SieveOf,
    .search = Search,
    .tooMany = Text::TooManyBlocks,
    .count = Count,
    .item = ItemOf,
    .hasDeleted = true,
    .model = ModelOf,
    .captions = BlockCaptions,
    .rows = Rows,
    .searchedColumn = 1,
    .markedColumns = 2,
    .lines = Lines,
    .statusPanel = 4,
    .status = Status,
    .statusTip = Text::TipBlockCounts,
    .kinds = kinds,
    .claim = ClaimBlocks,
    .files =
        ExplorerFiles{
            .about = "data of the EEPROM blocks", .folder = "EEPROM", .formats = {}, .write = Write},
};

}  // namespace tarvelo
