// Walks through code one instruction after the other. After data the walk goes on 2 bytes further, so that it
// falls into step with the code behind it.
#pragma once

#include <algorithm>
#include <utility>

#include "code/ext_range.h"

namespace tarvelo {

// Calls take(offset, instruction, range) for the instructions from `from` on that begin in front of `end`,
// where both are within the bytes; `range` is what holds for that instruction. Ends early if it returns true.
// Nothing in front of `from` has an effect.
template <typename Take>
void Sweep(Bytes bytes, Offset from, Offset end, Take take) {
  ExtRange range;
  end = std::min(end, static_cast<Offset>(bytes.size()));
  for (Offset at = from; at < end;) {
    const Instruction instruction = Instruction::Decode(bytes, at);
    if (take(at, instruction, std::as_const(range))) return;
    range.Pass(instruction);
    at += instruction.Size();
  }
}

}  // namespace tarvelo
