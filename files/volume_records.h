// The records of one volume by number, for those who build its entries.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "core/fullflash.h"
#include "files/file_list.h"

namespace tarvelo {

// The header of an entry (file_list.h).
struct FileHeader {
  static constexpr Offset shortest = 16;

  std::uint16_t number = 0;
  std::uint16_t parent = 0;
  std::uint32_t time = 0;
  std::uint16_t data = 0;
  std::uint16_t attributes = 0;
  std::uint16_t next = noPiece;
  Region name;  // without the zero behind it; empty: none

  [[nodiscard]] bool IsFolder() const { return (attributes & 0x10) != 0; }
};

// The header in a record; nothing if its number is odd, if fewer than 16 of its bytes are
// in the image, or if these are erased.
[[nodiscard]] std::optional<FileHeader> ReadHeader(Bytes image, const FileRecord& record);

// The part of a record's bytes that is in the image.
[[nodiscard]] Region InImage(Bytes image, const FileRecord& record);

class VolumeRecords {
 public:
  // Reads the directories of the units and adds their records to the list as a new volume. A directory ends
  // at a slot that begins with FF FF; slots in states other than live and deleted are skipped.
  VolumeRecords(const Fullflash& image, const FileVolume& volume, FileList& list);

  // The live record of a number, an index in the list's records, or noIndex.
  [[nodiscard]] std::uint32_t Live(int number) const {
    return number < 0 || number > 0xFFFF ? noIndex : live_[static_cast<std::size_t>(number)];
  }
  // All deleted records of a number, and the second live ones, in order.
  [[nodiscard]] std::span<const std::uint32_t> Generations(int number) const;
  // The unit that a record's slot is in.
  [[nodiscard]] Region UnitOf(const FileRecord& record) const {
    return list_.units[firstUnit_ + record.unit].unit;
  }
  // All of them by number.
  [[nodiscard]] std::span<const std::uint32_t> AllGenerations() const { return generations_; }

 private:
  void ReadDirectory(Bytes image, const FileUnit& unit, std::uint16_t index);
  void Add(FileRecord record);

  FileList& list_;
  const std::size_t firstUnit_;  // index in the list's units
  std::vector<std::uint32_t> live_;
  std::vector<std::uint32_t> generations_;
};

}  // namespace tarvelo
