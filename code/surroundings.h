// What the bytes around a place say about it, where no flow has reached them.
#pragma once

#include "code/flow_walk.h"

namespace tarvelo {

// Whether a function may begin at `place`: behind a return or a far jump, behind filling, or at the start of
// the segment or image; and no jump in front leads there, as one does behind a return within a function.
[[nodiscard]] bool IsBehindEnd(Offset place, const Fullflash& image, const FlowWalk& walk);

// Whether code in front of a place seems to go on into it.
[[nodiscard]] bool IsBehindCode(Offset place, const Fullflash& image);

// Whether an instruction at `place` is one of code: a walk through the bytes around it is in step with it and
// meets no data.
[[nodiscard]] bool IsAmongCode(Offset place, const Fullflash& image);

}  // namespace tarvelo
