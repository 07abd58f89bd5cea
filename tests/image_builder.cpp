#include "image_builder.h"

namespace tarvelo {

std::uint32_t ImageBuilder::Address(std::size_t offset) const {
  const std::size_t base = PageMode() ? 0x1000000 - bytes_.size() : 0xA0000000;
  return static_cast<std::uint32_t>(base + offset);
}

std::size_t ImageBuilder::Pointer(std::size_t offset, std::size_t target) {
  const std::uint32_t address = Address(target);
  if (!PageMode()) return DWord(offset, address & 0x1FFFFFF);
  Word(offset, static_cast<std::uint16_t>(address & 0x3FFF));
  return Word(offset + 2, static_cast<std::uint16_t>(address >> 14));
}

}  // namespace tarvelo
