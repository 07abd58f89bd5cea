// The stretches of the demonstration fullflash, and how they are filled.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "demo/image_builder.h"

namespace tarvelo {

// The offsets from `begin` up to, but not including, `end`.
struct Region {
  std::size_t begin = 0;
  std::size_t end = 0;
};

// The phone's flash is erased, and the phone's EEPROM moved, in blocks of this size.
inline constexpr std::size_t flashBlock = 0x10000;
// What the processor reaches through one data page pointer.
inline constexpr std::size_t cpuPage = 0x4000;

// Lays data into a region one behind the other. What it skips stays erased.
class RegionWriter {
 public:
  RegionWriter(ImageBuilder& image, Region region)
      : image_(image), region_(region), position_(region.begin) {}

  // The offset where the next data goes.
  [[nodiscard]] std::size_t Position() const { return position_; }

  // Moves on to the next multiple of `unit`.
  void Align(std::size_t unit);

  // Each gives the offset of the data's first byte and throws std::length_error when the region is
  // full.
  std::size_t Put(std::span<const std::uint8_t> data);
  // Keeps data that fits in one page out of two.
  std::size_t PutInPage(std::span<const std::uint8_t> data);
  // Leaves room to be written later.
  std::size_t Reserve(std::size_t count);

 private:
  ImageBuilder& image_;
  Region region_;
  std::size_t position_;
};

}  // namespace tarvelo
