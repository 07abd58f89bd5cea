// Two versions of a function side by side: which instruction of one stands beside which of the other.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "versions/code_pairing.h"

namespace tarvelo {

// How the instructions of a row compare.
enum class SideMark : std::uint8_t {
  Same,      // but for addresses that moved
  Constant,  // but for a constant, a displacement, or an address of data that nothing else refers to: it may
             // have moved, or been edited
  Edited,    // they differ, only one version has it, or it refers to something else
};

struct CodeSide {
  std::optional<UnitInstruction> old;
  std::optional<UnitInstruction> now;
  SideMark mark = SideMark::Same;
};

// Two units in rows, which need not be a pair. -1: none; all instructions of the other one are edited then.
[[nodiscard]] std::vector<CodeSide> SidesOf(const CodePairing& pairing, int oldUnit, int newUnit);

// How instructions that stand side by side with equal tokens compare.
[[nodiscard]] SideMark MarkOf(const CodePairing& pairing, const UnitInstruction& old, int oldUnit,
                              const UnitInstruction& now);

}  // namespace tarvelo
