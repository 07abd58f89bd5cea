// Measures scans over a whole image as a ratio to a plain pass over the same memory.
#pragma once

#include <functional>

#include "text/bytes.h"

namespace tarvelo {

// Prints how fast `scan` is beside memchr for a byte that is not there: 1.00 is the speed of memory.
// Median of rounds in which both run one after the other, over the same warm image.
void PrintScanRatio(const char* name, Bytes image, const std::function<void()>& scan);

// All scans of the program.
void PrintScanRatios();

}  // namespace tarvelo
