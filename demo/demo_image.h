// The demonstration fullflash: an invented C55-like phone with an example of everything that the program
// reads. Its bytes are the same on every machine.
#pragma once

#include <cstdint>
#include <vector>

namespace tarvelo {

enum class DemoKind {
  First,   // 8 MiB with page pointers
  Second,  // the same phone with a later firmware: code and data moved, some functions edited, gone, or new
  Large,   // 32 MiB with linear pointers
};

// The whole image.
[[nodiscard]] std::vector<std::uint8_t> DemoImage(DemoKind kind = DemoKind::First);

}  // namespace tarvelo
