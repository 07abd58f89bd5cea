#include "core/place_text.h"

#include <algorithm>

#include "core/notation.h"

namespace tarvelo {
namespace {

constexpr std::uint32_t pageSize = 0x4000;

}  // namespace

int OffsetWidth(const Fullflash& image) {
  return std::max(image.OffDigits(), static_cast<int>(Hex(image.ffEnd()).size()));
}

std::string OffsetText(const Fullflash& image, Offset offset) {
  return WholeHex(offset, static_cast<std::size_t>(OffsetWidth(image)));
}

std::string AddressText(const Fullflash& image, Offset offset) {
  const std::uint32_t address = image.PhoneAddress(offset);
  if (!image.PageMode()) return WholeHex(address, 8);
  return WholeHex(address / pageSize, 3) + ":" + WholeHex(address % pageSize, 4);
}

}  // namespace tarvelo
