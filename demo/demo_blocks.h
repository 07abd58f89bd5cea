// What the demonstration phone keeps in its EEPROM blocks.
#pragma once

#include <cstdint>
#include <vector>

namespace tarvelo {

struct BlockContent {
  std::uint8_t v = 0;
  std::vector<std::uint8_t> data;
};

// The numbers of all blocks, in rising order. All that the viewers know are among them.
[[nodiscard]] std::vector<int> BlockNumbers();

// How often a block was written: 1 to 3 times.
[[nodiscard]] int Generations(int number);

// The block as it was written the first time (generation 0) or a later one. Every generation has
// its own data; the layout and with it the size stay.
[[nodiscard]] BlockContent ContentOf(int number, int generation);

}  // namespace tarvelo
