// Pseudo-random numbers, the same on every machine.
#pragma once

#include <cstdint>

namespace tarvelo {

class Random {
 public:
  explicit Random(std::uint32_t seed) : state_(seed) {}

  // Returns 0 .. limit - 1, from a linear congruential generator without its weak low bits.
  std::uint32_t Below(std::uint32_t limit) {
    state_ = state_ * 1664525 + 1013904223;
    return static_cast<std::uint32_t>((std::uint64_t{state_ >> 8} * limit) >> 24);
  }

  std::uint8_t Byte() { return static_cast<std::uint8_t>(Below(256)); }

 private:
  std::uint32_t state_;
};

}  // namespace tarvelo
