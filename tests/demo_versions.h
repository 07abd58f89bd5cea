// The two firmwares of the demonstration without most of their code, which takes long to compare.
#pragma once

#include <algorithm>
#include <vector>

#include "demo/demo_image.h"

namespace tarvelo {

// The first functions, the header, the service menu and the texts; all else is erased.
inline std::vector<std::uint8_t> PartOfDemo(DemoKind kind) {
  std::vector<std::uint8_t> bytes = DemoImage(kind);
  for (const auto& [from, end] : {std::pair(0x2000, 0x7FF00), {0x80000, 0x314000}, {0x350000, 0x800000}})
    std::fill(bytes.begin() + from, bytes.begin() + end, 0xFF);
  return bytes;
}

}  // namespace tarvelo
