#include "eeprom/block_files.h"

#include <limits>

#include "core/file.h"
#include "core/notation.h"
#include "eeprom/block_report.h"

namespace tarvelo {
namespace {

bool IsLive(const BlockStore& store, const EepromBlockRecord& block) {
  const auto live = LiveBlock(store, block.Number);
  return live && store.records[*live].HeaderPos == block.HeaderPos;
}

std::string NumberedName(std::string_view stem, int number) {
  return std::string(stem) + "_" + PadZero(std::to_string(number), 4);
}

std::string NameOf(const BlockStore& store, const EepromBlockRecord& block, std::string_view stem) {
  if (IsLive(store, block)) return BlockFileName(stem, block.Number);
  return NumberedName(stem, block.Number) + "_" + WholeHex(block.HeaderPos) + ".bin";
}

std::string WrongSizeText(const std::filesystem::path& path, std::uint64_t fileSize, int blockSize) {
  return PathText(path) + ": " + std::to_string(fileSize) + " bytes, the block has " +
         std::to_string(blockSize);
}

}  // namespace

bool HasData(const Fullflash& image, const EepromBlockRecord& block) {
  const Offset end = Offset{block.DataOffset} + block.Size;
  return block.Size > 0 && block.DataOffset >= 0 && end <= std::ssize(image.ff());
}

std::optional<std::filesystem::path> SaveBlock(const Fullflash& image, const BlockStore& store,
                                               const EepromBlockRecord& block,
                                               const std::filesystem::path& folder, std::string_view stem) {
  if (!HasData(image, block)) return {};
  MakeFolder(folder);
  std::filesystem::path file = folder / PathOf(NameOf(store, block, stem));
  // Deleted, not overwritten: a link of that name would lead to another file.
  if (FileExist(file)) RemoveFile(file);
  NoProgress progress;
  WriteFile(file, image.Region(block.DataOffset, block.Size), progress);
  return file;
}

std::vector<const EepromBlockRecord*> BlocksToSave(const BlockStore& store, bool allGenerations,
                                                   std::optional<int> number) {
  std::vector<const EepromBlockRecord*> blocks;
  for (const EepromBlockRecord& block : store.records) {
    if (number && block.Number != *number) continue;
    if (allGenerations || IsLive(store, block)) blocks.push_back(&block);
  }
  return blocks;
}

std::vector<std::filesystem::path> SaveBlocks(const Fullflash& image, const BlockStore& store,
                                              bool allGenerations, const std::filesystem::path& folder,
                                              std::string_view stem) {
  std::vector<std::filesystem::path> files;
  for (const EepromBlockRecord* block : BlocksToSave(store, allGenerations))
    if (const auto file = SaveBlock(image, store, *block, folder, stem)) files.push_back(*file);
  return files;
}

std::string BlockFileName(std::string_view stem, int number) { return NumberedName(stem, number) + ".bin"; }

std::filesystem::path MakeNewFolder(const std::filesystem::path& beside, std::string_view name) {
  for (int count = 1;; ++count) {
    const std::string suffix = count > 1 ? " (" + std::to_string(count) + ")" : "";
    std::filesystem::path folder = beside / PathOf(std::string(name) + suffix);
    std::error_code error;
    if (std::filesystem::create_directory(folder, error)) return folder;
    std::error_code ignored;
    if (!std::filesystem::exists(std::filesystem::symlink_status(folder, ignored)))
      throw FileError(FileError::Kind::CantWrite, folder, error ? error.message() : "it can't be made");
  }
}

WrongBlockSize::WrongBlockSize(const std::filesystem::path& file, std::uint64_t sizeOfFile, int sizeOfBlock)
    : runtime_error(WrongSizeText(file, sizeOfFile, sizeOfBlock)),
      path(file),
      fileSize(sizeOfFile),
      blockSize(sizeOfBlock) {}

std::optional<Change> LoadBlock(const Fullflash& image, const BlockStore& store, int number,
                                const std::filesystem::path& file) {
  const auto live = LiveBlock(store, number);
  if (!live) return {};
  const EepromBlockRecord& block = store.records[*live];
  if (!HasData(image, block)) return {};
  const Bytes old = image.Region(block.DataOffset, block.Size);
  FileReader reader(file, std::numeric_limits<std::uint64_t>::max());
  if (reader.Size() != old.size()) throw WrongBlockSize(file, reader.Size(), block.Size);
  Change change{block.DataOffset, {old.begin(), old.end()}, std::vector<std::uint8_t>(old.size())};
  reader.Read(change.newBytes);
  return change;
}

}  // namespace tarvelo
