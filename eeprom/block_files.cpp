#include "eeprom/block_files.h"

#include <algorithm>
#include <limits>

#include "core/file.h"
#include "core/notation.h"
#include "eeprom/block_report.h"

namespace tarvelo {
namespace {

// The block's data; nothing where there is none or the image does not hold it all.
std::optional<Bytes> DataOf(const Fullflash& image, const EepromBlockRecord& block) {
  const Offset end = Offset{block.DataOffset} + block.Size;
  if (block.Size == 0 || block.DataOffset < 0 || end > std::ssize(image.ff())) return {};
  return image.Region(block.DataOffset, block.Size);
}

bool IsLive(const BlockStore& store, const EepromBlockRecord& block) {
  const auto live = LiveBlock(store, block.Number);
  return live && store.records[*live].HeaderPos == block.HeaderPos;
}

std::string NameOf(const BlockStore& store, const EepromBlockRecord& block, std::string_view stem) {
  std::string name = std::string(stem) + "_" + PadZero(std::to_string(block.Number), 4);
  if (!IsLive(store, block)) {
    const std::string digits = Hex(static_cast<std::uint32_t>(block.HeaderPos));
    name += "_" + PadZero(digits, std::max<std::size_t>(6, digits.size()));
  }
  return name + ".bin";
}

std::string WrongSizeText(const std::filesystem::path& path, std::uint64_t fileSize, int blockSize) {
  return PathText(path) + ": " + std::to_string(fileSize) + " bytes, the block has " +
         std::to_string(blockSize);
}

}  // namespace

std::optional<std::filesystem::path> SaveBlock(const Fullflash& image, const BlockStore& store,
                                               const EepromBlockRecord& block,
                                               const std::filesystem::path& folder, std::string_view stem) {
  const std::optional<Bytes> data = DataOf(image, block);
  if (!data) return {};
  MakeFolder(folder);
  std::filesystem::path file = folder / PathOf(NameOf(store, block, stem));
  // Not written over: a link of that name would lead to another file.
  if (FileExist(file)) RemoveFile(file);
  NoProgress progress;
  WriteFile(file, *data, progress);
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
  const std::optional<Bytes> old = DataOf(image, block);
  if (!old) return {};
  FileReader reader(file, std::numeric_limits<std::uint64_t>::max());
  if (reader.Size() != old->size()) throw WrongBlockSize(file, reader.Size(), block.Size);
  Change change{block.DataOffset, {old->begin(), old->end()}, std::vector<std::uint8_t>(old->size())};
  reader.Read(change.newBytes);
  return change;
}

}  // namespace tarvelo
