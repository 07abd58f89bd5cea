// Measures work over a whole image relative to a plain pass over the same memory.
#pragma once

#include <functional>

#include "text/bytes.h"

namespace tarvelo {

// The byte that the memory pass searches for; no measured image contains it.
inline constexpr std::uint8_t absentByte = 0xA5;

// The median, over rounds in which `pass` and `work` run one after the other, of the pass's time divided by
// the work's. At 1.00 the work is as fast as the pass.
[[nodiscard]] double SpeedRatio(const std::function<void()>& pass, const std::function<void()>& work);

// The speed of `work` relative to memchr for the absent byte over the same image. Both begin with an image
// that is in memory and in no cache, so that the ratio holds from machine to machine.
[[nodiscard]] double MemoryRatio(Bytes image, const std::function<void()>& work);

}  // namespace tarvelo
