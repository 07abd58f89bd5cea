// BFLDL and BFLDH, which write several bits of a word, for another firmware version.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "code/instruction.h"
#include "versions/operand_votes.h"

namespace tarvelo {

// The bytes of the instruction with its bits where the votes say that they went; nothing if they say nothing,
// or the bits do not move together, or not into one byte. Special function registers stay.
[[nodiscard]] std::optional<std::array<std::uint8_t, 4>> MovedField(const Instruction& instruction,
                                                                    const OperandVotes& votes);

}  // namespace tarvelo
