#include "demo/demo_region.h"

#include <stdexcept>

namespace tarvelo {

void RegionWriter::Align(std::size_t unit) { position_ = (position_ + unit - 1) / unit * unit; }

std::size_t RegionWriter::Reserve(std::size_t count) {
  if (position_ > region_.end || count > region_.end - position_)
    throw std::length_error("a region of the demonstration fullflash is full");
  const std::size_t start = position_;
  position_ += count;
  return start;
}

std::size_t RegionWriter::Put(std::span<const std::uint8_t> data) {
  const std::size_t start = Reserve(data.size());
  image_.Data(start, data);
  return start;
}

std::size_t RegionWriter::PutInPage(std::span<const std::uint8_t> data) {
  if (data.size() <= cpuPage && position_ % cpuPage + data.size() > cpuPage) Align(cpuPage);
  return Put(data);
}

}  // namespace tarvelo
