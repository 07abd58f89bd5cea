// Addresses in two registers: MOV Rn, #offset and MOV Rm, #page or #segment, in either order. Usually m is
// n + 1, and a few other instructions may stand between the two.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>

#include "code/instruction.h"

namespace tarvelo {

// A constant in a register.
struct Load {
  int reg = 0;  // 0 .. 15
  std::uint16_t value = 0;
};

// What MOV Rn, #data16 or MOV Rn, #data4 loads; nothing for any other instruction, or data.
[[nodiscard]] std::optional<Load> LoadOf(const Instruction& instruction);

// Whether an instruction gives a register another value that does not depend on the old one: the usual ones,
// MOV, MOVBZ, MOVBS, POP.
[[nodiscard]] bool Replaces(const Instruction& instruction, int reg);

// Instructions of which each goes on to the next one, around the one at a place.
struct StraightLine {
  static constexpr std::size_t here = 8;  // as many may be in front of that one, and behind it

  std::array<Instruction, 2 * here + 1> code;
  std::size_t first = here, end = here + 1;  // which of them there are

  [[nodiscard]] std::span<const Instruction> All() const {
    return std::span(code).subspan(first, end - first);
  }
};

// The line from the instruction at `at`, with nothing in front of it.
[[nodiscard]] StraightLine LineFrom(Bytes bytes, Offset at);

// Of a line: the load of the next register that is in force together with the load at `load`. The one behind
// it counts, as no program loads a register in vain; but if the registers seem to be used before that, the
// one in front does.
[[nodiscard]] std::optional<std::size_t> PartnerOf(std::span<const Instruction> line, std::size_t load);

// The two words of an address in two registers.
struct RegisterPair {
  std::uint16_t offset = 0;
  std::uint16_t pageOrSegment = 0;
};

// The pair whose first MOV is at `at`, which must be within the bytes.
[[nodiscard]] std::optional<RegisterPair> PairFrom(Bytes bytes, Offset at);

}  // namespace tarvelo
