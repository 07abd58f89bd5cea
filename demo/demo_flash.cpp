#include "demo/demo_flash.h"

#include <stdexcept>

namespace tarvelo {

std::uint32_t Flash::Address(std::size_t offset) const {
  const std::size_t base = PageMode() ? 0x1000000 - bytes.size() : 0xA0000000;
  return static_cast<std::uint32_t>(base + offset);
}

std::size_t Flash::PutPointer(std::size_t offset, std::size_t target) {
  const std::uint32_t address = Address(target);
  if (!PageMode()) return PutDWord(bytes, offset, address & 0x1FFFFFF);
  return PutWord(bytes, PutWord(bytes, offset, address % cpuPage), address / cpuPage);
}

void AreaWriter::Align(std::size_t unit) { position_ = (position_ + unit - 1) / unit * unit; }

std::size_t AreaWriter::Reserve(std::size_t count) {
  if (position_ > area_.end || count > area_.end - position_)
    throw std::length_error("an area of the demonstration fullflash is full");
  const std::size_t start = position_;
  position_ += count;
  return start;
}

std::size_t AreaWriter::Put(Bytes data) {
  const std::size_t start = Reserve(data.size());
  PutBytes(flash_.bytes, start, data);
  return start;
}

std::size_t AreaWriter::PutInPage(Bytes data) {
  if (data.size() <= cpuPage && position_ % cpuPage + data.size() > cpuPage) Align(cpuPage);
  return Put(data);
}

}  // namespace tarvelo
