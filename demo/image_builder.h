// Builds flash images byte by byte, in the encodings that the firmware uses. The demonstration
// fullflash and the tests' images are made with it.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace tarvelo {

class ImageBuilder {
 public:
  // An image of `size` erased (0xFF) bytes. Up to 16 MiB its pointers are page pointers and its
  // last byte lies at phone address 0xFFFFFF; above, pointers are linear and offset 0 lies at
  // 0xA0000000.
  explicit ImageBuilder(std::size_t size);

  [[nodiscard]] std::size_t Size() const { return bytes_.size(); }
  [[nodiscard]] bool PageMode() const { return bytes_.size() <= 0x1000000; }

  // The phone address of an offset, as an unsigned 32-bit number.
  [[nodiscard]] std::uint32_t Address(std::size_t offset) const;

  // Each writes at an offset and throws std::out_of_range where it would pass the end.
  // They return the offset behind what was written, so that calls can be chained.
  std::size_t Byte(std::size_t offset, std::uint8_t value);
  std::size_t Word(std::size_t offset, std::uint16_t value);   // little-endian
  std::size_t DWord(std::size_t offset, std::uint32_t value);  // little-endian
  std::size_t Data(std::size_t offset, std::span<const std::uint8_t> data);
  std::size_t Text(std::size_t offset, std::string_view text);  // the bytes as they are, then 0x00
  std::size_t Fill(std::size_t offset, std::size_t count, std::uint8_t value);
  // The 4-byte pointer to `target` in the image's own encoding: offset word and page word, or the
  // low 25 bits of the address as a linear double word.
  std::size_t Pointer(std::size_t offset, std::size_t target);

  [[nodiscard]] std::uint8_t operator[](std::size_t offset) const { return bytes_[offset]; }
  [[nodiscard]] std::vector<std::uint8_t> Take() && { return std::move(bytes_); }

 private:
  std::vector<std::uint8_t> bytes_;
};

}  // namespace tarvelo
