// The jumps within one function, for lines beside its code.
#pragma once

#include <vector>

#include "code/functions.h"
#include "text/bytes.h"

namespace tarvelo {

struct FunctionJump {
  Offset from = 0;  // of the jump instruction
  Offset to = 0;    // of its target
  int lane = 0;     // 0: next to the code; lines of the same lane do not overlap
};

// The jumps of a function to other places in it, the shortest first. Beyond `mostLanes` lanes, they share the
// last one.
[[nodiscard]] std::vector<FunctionJump> JumpsWithin(const Fullflash& image, const FunctionList& functions,
                                                    const Function& function, int mostLanes);

}  // namespace tarvelo
