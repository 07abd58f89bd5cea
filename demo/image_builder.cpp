#include "demo/image_builder.h"

#include <algorithm>
#include <stdexcept>

namespace tarvelo {

ImageBuilder::ImageBuilder(std::size_t size) : bytes_(size, 0xFF) {}

std::uint32_t ImageBuilder::Address(std::size_t offset) const {
  const std::size_t base = PageMode() ? 0x1000000 - bytes_.size() : 0xA0000000;
  return static_cast<std::uint32_t>(base + offset);
}

std::size_t ImageBuilder::Byte(std::size_t offset, std::uint8_t value) { return Data(offset, {&value, 1}); }

std::size_t ImageBuilder::Word(std::size_t offset, std::uint16_t value) {
  Byte(offset, static_cast<std::uint8_t>(value));
  return Byte(offset + 1, static_cast<std::uint8_t>(value >> 8));
}

std::size_t ImageBuilder::DWord(std::size_t offset, std::uint32_t value) {
  Word(offset, static_cast<std::uint16_t>(value));
  return Word(offset + 2, static_cast<std::uint16_t>(value >> 16));
}

std::size_t ImageBuilder::Data(std::size_t offset, std::span<const std::uint8_t> data) {
  if (offset > bytes_.size() || data.size() > bytes_.size() - offset)
    throw std::out_of_range("written past the end of the image");
  std::ranges::copy(data, bytes_.begin() + static_cast<std::ptrdiff_t>(offset));
  return offset + data.size();
}

std::size_t ImageBuilder::Text(std::size_t offset, std::string_view text) {
  for (const char c : text) offset = Byte(offset, static_cast<std::uint8_t>(c));
  return Byte(offset, 0);
}

std::size_t ImageBuilder::Fill(std::size_t offset, std::size_t count, std::uint8_t value) {
  if (offset > bytes_.size() || count > bytes_.size() - offset)
    throw std::out_of_range("filled past the end of the image");
  std::fill_n(bytes_.begin() + static_cast<std::ptrdiff_t>(offset), count, value);
  return offset + count;
}

std::size_t ImageBuilder::Pointer(std::size_t offset, std::size_t target) {
  const std::uint32_t address = Address(target);
  if (!PageMode()) return DWord(offset, address & 0x1FFFFFF);
  Word(offset, static_cast<std::uint16_t>(address & 0x3FFF));
  return Word(offset + 2, static_cast<std::uint16_t>(address >> 14));
}

}  // namespace tarvelo
