// The flash of the demonstration phone: its bytes, its pointers and its areas.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "core/byte_writer.h"

namespace tarvelo {

// The unit in which the phone erases its flash and moves its EEPROM, in bytes.
inline constexpr std::size_t flashBlock = 0x10000;
// The size of the page that the processor reaches through one data page pointer, in bytes.
inline constexpr std::size_t cpuPage = 0x4000;

// An erased image (0xFF). Up to 16 MiB, its pointers are page pointers and its last byte has the phone
// address 0xFFFFFF. Above, its pointers are linear and offset 0 has the phone address 0xA0000000.
struct Flash {
  explicit Flash(std::size_t size) : bytes(size, 0xFF) {}

  [[nodiscard]] bool PageMode() const { return bytes.size() <= 0x1000000; }
  // The phone address of an offset.
  [[nodiscard]] std::uint32_t Address(std::size_t offset) const;
  // Writes the 4-byte pointer to the offset `target`. Returns the offset behind it.
  std::size_t PutPointer(std::size_t offset, std::size_t target);

  ByteBuffer bytes;
};

// The offsets from `begin` (inclusive) to `end` (exclusive).
struct Area {
  std::size_t begin = 0;
  std::size_t end = 0;
};

// Places data one after another in an area. Skipped bytes stay erased.
class AreaWriter {
 public:
  AreaWriter(Flash& flash, Area area) : flash_(flash), area_(area), position_(area.begin) {}

  // The offset of the next data.
  [[nodiscard]] std::size_t Position() const { return position_; }

  // Advances to the next multiple of `unit`.
  void Align(std::size_t unit);

  // Each returns the offset of the data's first byte and throws std::length_error if the area is full.
  std::size_t Put(Bytes data);
  // Data that fits in one page does not cross a page boundary.
  std::size_t PutInPage(Bytes data);
  // Reserves room to be written later.
  std::size_t Reserve(std::size_t count);

 private:
  Flash& flash_;
  Area area_;
  std::size_t position_;
};

}  // namespace tarvelo
