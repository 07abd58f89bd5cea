// Measures work over a whole image as a ratio to a plain pass over the same memory.
#pragma once

#include <functional>

#include "text/bytes.h"

namespace tarvelo {

// The byte that the memory pass looks for; no image that is measured holds it.
inline constexpr std::uint8_t absentByte = 0xA5;

// Median over rounds in which `pass` and `work` run one after the other: how long the pass takes in
// terms of the work. 1.00 is as fast as the pass.
[[nodiscard]] double SpeedRatio(const std::function<void()>& pass, const std::function<void()>& work);

// The speed of `work` beside memchr for the absent byte over the same warm image.
[[nodiscard]] double MemoryRatio(Bytes image, const std::function<void()>& work);

}  // namespace tarvelo
