// The flash of the demonstration phone: its bytes, its pointers, and the areas that it is filled in.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "core/byte_writer.h"

namespace tarvelo {

// The phone's flash is erased, and the phone's EEPROM moved, in blocks of this size.
inline constexpr std::size_t flashBlock = 0x10000;
// What the processor reaches through one data page pointer.
inline constexpr std::size_t cpuPage = 0x4000;

// An erased image (0xFF). Up to 16 MiB its pointers are page pointers and its last byte lies at phone
// address 0xFFFFFF; above, pointers are linear and offset 0 lies at 0xA0000000.
struct Flash {
  explicit Flash(std::size_t size) : bytes(size, 0xFF) {}

  [[nodiscard]] bool PageMode() const { return bytes.size() <= 0x1000000; }
  // The phone address of an offset.
  [[nodiscard]] std::uint32_t Address(std::size_t offset) const;
  // Writes the 4-byte pointer to the offset `target`. Returns the offset behind it.
  std::size_t PutPointer(std::size_t offset, std::size_t target);

  ByteBuffer bytes;
};

// The offsets from `begin` up to, but not including, `end`.
struct Area {
  std::size_t begin = 0;
  std::size_t end = 0;
};

// Lays data into an area one behind the other. What it skips stays erased.
class AreaWriter {
 public:
  AreaWriter(Flash& flash, Area area) : flash_(flash), area_(area), position_(area.begin) {}

  // The offset where the next data goes.
  [[nodiscard]] std::size_t Position() const { return position_; }

  // Moves on to the next multiple of `unit`.
  void Align(std::size_t unit);

  // Each gives the offset of the data's first byte and throws std::length_error when the area is
  // full.
  std::size_t Put(Bytes data);
  // Keeps data that fits in one page out of two.
  std::size_t PutInPage(Bytes data);
  // Leaves room to be written later.
  std::size_t Reserve(std::size_t count);

 private:
  Flash& flash_;
  Area area_;
  std::size_t position_;
};

}  // namespace tarvelo
