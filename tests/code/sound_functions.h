// What holds for the functions of any image. For tests and fuzz targets.
#pragma once

#include <string>

#include "code/functions.h"
#include "code/instruction.h"

namespace tarvelo {

// The first rule that the functions break, or an empty text: they are in order, each is within the image and
// a segment and can be found, and their instructions do not overlap.
inline std::string FaultOf(const FunctionList& list, const Fullflash& image) {
  Offset end = 0;
  for (const Function& function : list.All()) {
    const Region code = function.code;
    const bool isInOrder = code.offset >= end && code.size > 0 && code.End() <= std::ssize(image.ff());
    end = code.End();
    if (!isInOrder || image.PhoneAddress(code.offset) >> 16 != image.PhoneAddress(end - 1) >> 16 ||
        list.Entry(code.offset) != &function || list.At(end - 1) != &function ||
        !list.IsInstruction(code.offset))
      return "function at " + std::to_string(code.offset);
  }
  for (Offset p = 0; p < std::ssize(image.ff()); ++p) {
    if (!list.IsInstruction(p)) continue;
    const Instruction instruction = Instruction::Decode(image.ff(), p);
    const bool overlaps = instruction.Size() != 2 && list.IsInstruction(p + 2);
    if (instruction.IsData() || !list.At(p) || overlaps) return "instruction at " + std::to_string(p);
  }
  return {};
}

}  // namespace tarvelo
