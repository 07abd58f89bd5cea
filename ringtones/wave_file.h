// Sound as a file.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace tarvelo {

// A RIFF WAVE file of plain samples: mono, 8 bits with silence at 0x80, `rate` samples per second.
[[nodiscard]] std::vector<std::uint8_t> WaveFile(std::span<const std::uint8_t> samples, std::uint32_t rate);

}  // namespace tarvelo
