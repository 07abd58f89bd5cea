// Writes volumes of the flash file system into images, record by record.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "images.h"

namespace tarvelo {

// The fields of an entry's header. The bytes of the entry are in the record behind it unless `data` says
// otherwise.
struct EntryFields {
  int number = 0;
  int parent = 6;
  std::string_view name = {};
  int attributes = 0;
  int next = 0xFFFF;
  std::uint32_t time = 0x2F788F55;  // 2003-11-24 17:58:42
  int data = -1;                    // -1: the number plus 1
};

class VolumeBuilder {
 public:
  static constexpr std::uint8_t live = 0xFC, deleted = 0xF0;

  // `isWide`: four bytes of 0xFF stand before each name.
  VolumeBuilder(ImageBuilder& image, std::string_view name, bool isWide = false)
      : image_(image), name_(name), isWide_(isWide) {}

  // Formats a unit, or a group of them, and returns its index.
  std::size_t Unit(std::size_t begin, std::size_t size = 0x10000);

  // Writes a record into a unit. Returns the offset of its slot.
  std::size_t Record(std::size_t unit, int number, Bytes bytes, std::uint8_t state = live);
  // Writes a slot alone.
  std::size_t Slot(std::size_t unit, int number, std::uint32_t address, std::uint16_t size,
                   std::uint8_t state = live);

  [[nodiscard]] Data Header(const EntryFields& fields) const;
  // Writes the header of an entry; the others also write its bytes.
  std::size_t Entry(std::size_t unit, const EntryFields& fields, std::uint8_t state = live);
  void File(std::size_t unit, const EntryFields& fields, std::string_view bytes, std::uint8_t state = live);
  void Folder(std::size_t unit, EntryFields fields, const std::vector<int>& members);

  // Writes the firmware's map of all units, 64 KiB or `sizeCode`: map pointer at `pointer`, group table and
  // unit list behind it. Each unit is a group.
  void Map(std::size_t pointer, std::uint16_t sizeCode = 0x40) const;
  // The address of an offset: the image ends at 0x1000000, also if it is longer.
  [[nodiscard]] std::uint32_t Address(std::size_t offset) const {
    return static_cast<std::uint32_t>(offset + 0x1000000 - image_.Size());
  }
  // A page pointer to an offset.
  static void PagePointer(ImageBuilder& image, std::size_t at, std::size_t target);

 private:
  struct Place {
    std::size_t begin, size, next, slot;
  };

  ImageBuilder& image_;
  std::string name_;
  bool isWide_;
  std::vector<Place> units_;
};

inline Bytes AsBytes(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

}  // namespace tarvelo
