// EEPROM blocks as files: the unaltered data of one block.
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

// Writes a block's data into a folder, creating the folder if necessary. The live block of its number becomes
// STEM_NNNN.bin, with the number as four decimal digits; every other generation becomes STEM_NNNN_HHHHHH.bin,
// with the header's offset in hexadecimal. An existing file of that name is deleted first. Returns the file's
// path, or nothing if the block has no data or the image does not hold all of it. Throws FileError.
std::optional<std::filesystem::path> SaveBlock(const Fullflash& image, const BlockStore& store,
                                               const EepromBlockRecord& block,
                                               const std::filesystem::path& folder, std::string_view stem);

// Whether a block has data and the image holds all of it.
[[nodiscard]] bool HasData(const Fullflash& image, const EepromBlockRecord& block);

// The blocks to save: the live block of each number, or all generations; of one number, or of all.
[[nodiscard]] std::vector<const EepromBlockRecord*> BlocksToSave(const BlockStore& store, bool allGenerations,
                                                                 std::optional<int> number = {});

// Saves the blocks of all numbers. Returns the paths of the files. Throws FileError.
std::vector<std::filesystem::path> SaveBlocks(const Fullflash& image, const BlockStore& store,
                                              bool allGenerations, const std::filesystem::path& folder,
                                              std::string_view stem);

// STEM_NNNN.bin, the file name for the live block of a number.
[[nodiscard]] std::string BlockFileName(std::string_view stem, int number);

// Creates a new folder in `beside`, under this name or with " (2)", " (3)" ... appended if the name is taken.
// Returns its path. Throws FileError.
std::filesystem::path MakeNewFolder(const std::filesystem::path& beside, std::string_view name);

// A file that differs in size from the block it was meant for. what() names the file and both sizes.
class WrongBlockSize : public std::runtime_error {
 public:
  WrongBlockSize(const std::filesystem::path& path, std::uint64_t fileSize, int blockSize);

  const std::filesystem::path path;
  const std::uint64_t fileSize;  // bytes
  const int blockSize;
};

// The change that replaces the data of a number's live block by a file's bytes, for ImageEdits. Returns
// nothing if there is no such block or the image does not hold all of it. Throws WrongBlockSize and
// FileError.
[[nodiscard]] std::optional<Change> LoadBlock(const Fullflash& image, const BlockStore& store, int number,
                                              const std::filesystem::path& file);

}  // namespace tarvelo
