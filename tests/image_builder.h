// Builds flash images byte by byte, in the encodings that the firmware uses.
#pragma once

#include <cstdint>
#include <string_view>
#include <utility>

#include "core/byte_writer.h"

namespace tarvelo {

class ImageBuilder {
 public:
  // An image of `size` erased (0xFF) bytes. Up to 16 MiB its pointers are page pointers and its
  // last byte lies at phone address 0xFFFFFF; above, pointers are linear and offset 0 lies at
  // 0xA0000000.
  explicit ImageBuilder(std::size_t size) : bytes_(size, 0xFF) {}

  [[nodiscard]] std::size_t Size() const { return bytes_.size(); }
  [[nodiscard]] bool PageMode() const { return bytes_.size() <= 0x1000000; }

  // The phone address of an offset, as an unsigned 32-bit number.
  [[nodiscard]] std::uint32_t Address(std::size_t offset) const;

  // Each writes at an offset and throws std::out_of_range if it would pass the end. They return the offset
  // after the written bytes, so that calls can be chained.
  std::size_t Byte(std::size_t offset, std::uint8_t value) { return PutByte(bytes_, offset, value); }
  std::size_t Word(std::size_t offset, std::uint16_t value) { return PutWord(bytes_, offset, value); }
  std::size_t DWord(std::size_t offset, std::uint32_t value) { return PutDWord(bytes_, offset, value); }
  std::size_t Data(std::size_t offset, Bytes data) { return PutBytes(bytes_, offset, data); }
  // The bytes unchanged, then 0x00.
  std::size_t Text(std::size_t offset, std::string_view text) {
    return Byte(PutText(bytes_, offset, text), 0);
  }
  std::size_t Fill(std::size_t offset, std::size_t count, std::uint8_t value) {
    return PutFill(bytes_, offset, count, value);
  }
  // The 4-byte pointer to `target` in the image's own encoding: offset word and page word, or the
  // low 25 bits of the address as a linear double word.
  std::size_t Pointer(std::size_t offset, std::size_t target);

  [[nodiscard]] std::uint8_t operator[](std::size_t offset) const { return bytes_[offset]; }
  [[nodiscard]] ByteBuffer Take() && { return std::move(bytes_); }

 private:
  ByteBuffer bytes_;
};

}  // namespace tarvelo
