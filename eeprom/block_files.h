// EEPROM blocks as files: the data of one, as it stands.
#pragma once

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "core/image_edits.h"
#include "eeprom/block_store.h"

namespace tarvelo {

// Writes a block's data into a folder, which is made when it is missing: STEM_NNNN.bin, the number in
// decimal with four digits, for the live block of its number, STEM_NNNN_HHHHHH.bin with the header's
// offset in hexadecimal for every other generation. A file of that name is deleted first. Returns the
// file's path, or nothing where the block has no data or the image does not hold it all. Throws FileError.
std::optional<std::filesystem::path> SaveBlock(const Fullflash& image, const BlockStore& store,
                                               const EepromBlockRecord& block,
                                               const std::filesystem::path& folder, std::string_view stem);

// Whether a block has data and the image holds all of it.
[[nodiscard]] bool HasData(const Fullflash& image, const EepromBlockRecord& block);

// The blocks that are saved: the live block of each number, or all generations; of one number or of all.
[[nodiscard]] std::vector<const EepromBlockRecord*> BlocksToSave(const BlockStore& store, bool allGenerations,
                                                                 std::optional<int> number = {});

// Saves those of all numbers. Returns the paths of the files. Throws FileError.
std::vector<std::filesystem::path> SaveBlocks(const Fullflash& image, const BlockStore& store,
                                              bool allGenerations, const std::filesystem::path& folder,
                                              std::string_view stem);

// STEM_NNNN.bin: how the file of the live block of a number is named.
[[nodiscard]] std::string BlockFileName(std::string_view stem, int number);

// Makes a folder that is not there yet, beside others: of this name, or with " (2)", " (3)" ... behind it.
// Returns its path. Throws FileError.
std::filesystem::path MakeNewFolder(const std::filesystem::path& beside, std::string_view name);

// A file that is not as long as the block it is meant for. what() names the file and both sizes.
class WrongBlockSize : public std::runtime_error {
 public:
  WrongBlockSize(const std::filesystem::path& path, std::uint64_t fileSize, int blockSize);

  const std::filesystem::path path;
  const std::uint64_t fileSize;  // bytes
  const int blockSize;
};

// The change that puts a file's bytes in the place of the live block of a number, for ImageEdits. Nothing
// where there is no such block or the image does not hold all of it. Throws WrongBlockSize and FileError.
[[nodiscard]] std::optional<Change> LoadBlock(const Fullflash& image, const BlockStore& store, int number,
                                              const std::filesystem::path& file);

}  // namespace tarvelo
