// Which two MOVs load the registers of an address.
#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "code/ext_range.h"
#include "code/instruction.h"

namespace tarvelo {

struct DecodedCode {
  Offset at = 0;  // in the old dump
  Instruction instruction;
  ExtRange range;
};

// The load of the next register that belongs to a load (MOV Rn, #data16): the nearest one without a jump or
// call, or another constant for the same register, between. Nothing if another load of the register is nearer
// to it.
[[nodiscard]] std::optional<std::size_t> PartnerOf(std::span<const DecodedCode> code, std::size_t load);

}  // namespace tarvelo
