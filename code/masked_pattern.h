// Instructions as a search pattern (patch/pattern.h) that also finds them in another version of the firmware:
// whatever a linker or a moved variable changes is masked.
//
// Masked are targets of calls and jumps, relative distances, addresses of data and bits, displacements, pages
// and segments of EXT*, and #data16. Special function registers never move and are kept.
#pragma once

#include <cstdint>
#include <string>

#include "code/ext_range.h"
#include "core/region.h"

namespace tarvelo {

// The bytes of an instruction that may differ in another version: bit i stands for byte i. None of data.
// `range` is what holds for the instruction.
[[nodiscard]] std::uint8_t MovableBytes(const Instruction& instruction, const ExtRange& range);

// The instructions that begin in the region, which is clipped to the bytes: "E6FC????DA??????DB00".
[[nodiscard]] std::string MaskedPattern(Bytes bytes, Region region);

}  // namespace tarvelo
