// The contents of the demonstration phone's EEPROM blocks.
#pragma once

#include <cstdint>
#include <vector>

namespace tarvelo {

struct BlockContent {
  std::uint8_t v = 0;
  std::vector<std::uint8_t> data;
};

// The numbers of all blocks, ascending. They include all numbers that the viewers know.
[[nodiscard]] std::vector<int> BlockNumbers();

// How often a block was written: 1 to 3 times.
[[nodiscard]] int Generations(int number);

// The block as it was first written (generation 0) or rewritten. Each generation has its own data; layout and
// size stay the same.
[[nodiscard]] BlockContent ContentOf(int number, int generation);

}  // namespace tarvelo
