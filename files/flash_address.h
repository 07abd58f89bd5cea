// The phone addresses that the file system uses: linear, 32 bits, modulo 2^32. The image ends at the top of
// the phone's 16 MiB, so offset 0 has the address 0x1000000 minus the image's size.
#pragma once

#include <cstdint>

#include "text/bytes.h"

namespace tarvelo {

// The offset of an address; it may be outside the image.
[[nodiscard]] inline Offset OffsetOfAddress(Bytes image, std::uint32_t address) {
  return static_cast<std::uint32_t>(address + image.size() - 0x1000000);
}

// The offset that the page pointer at `a` leads to: offset word, page word of 16 KiB. Throws
// std::out_of_range unless the pointer is in the image.
[[nodiscard]] inline Offset PagePointerAt(Bytes image, Offset a) {
  return OffsetOfAddress(image, WordAt(image, a) + WordAt(image, a + 2) * 0x4000u);
}

// Whether `size` bytes from an offset are in the image.
[[nodiscard]] inline bool IsInside(Bytes image, Offset a, Offset size) {
  return a >= 0 && size >= 0 && a + size <= static_cast<Offset>(image.size());
}

}  // namespace tarvelo
