// The demonstration fullflash: an invented C55-like phone with an example of everything that the program
// reads. Its bytes are the same on every machine.
#pragma once

#include <cstdint>
#include <vector>

namespace tarvelo {

// The whole image: 8 MiB with page pointers, or with `large` 32 MiB with linear pointers.
[[nodiscard]] std::vector<std::uint8_t> DemoImage(bool large = false);

}  // namespace tarvelo
