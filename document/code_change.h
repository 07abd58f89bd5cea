// A change of bytes as instructions, before and after.
#pragma once

#include <string>

#include "code/functions.h"
#include "core/image_edits.h"

namespace tarvelo {

// The instructions that have bytes of the change, in two groups: with its old bytes ("- " in front of each
// line) and with its new ones ("+ "). Lines: address, bytes, instruction. A long change is cut off after
// some hundred lines; a part of the change outside the image is left out. Empty for a large image.
[[nodiscard]] std::string InstructionsOf(const Change& change, const Fullflash& image,
                                         const FunctionList& functions);

}  // namespace tarvelo
