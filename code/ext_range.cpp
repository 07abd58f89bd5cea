#include "code/ext_range.h"

namespace tarvelo {

std::optional<std::uint32_t> ExtRange::Address(std::uint16_t bits) const {
  if (left_ == 0) return {};
  if (space_ == Space::Page) return std::uint32_t{number_} << 14 | (bits & 0x3FFFU);
  if (space_ == Space::Segment) return std::uint32_t{number_} << 16 | bits;
  return {};
}

}  // namespace tarvelo
