// Compares the functions of two firmware versions: which stayed, moved, were changed, are gone or new.
#pragma once

#include <cstdint>
#include <vector>

#include "core/region.h"
#include "versions/code_versions.h"

namespace tarvelo {

enum class FunctionState : std::uint8_t {
  Same,     // at the same phone address, equal but for addresses
  Moved,    // elsewhere, equal but for addresses
  Changed,  // instructions were edited, or refer to something else
  Gone,     // only the old version has it
  New,      // only the new version has it
};
inline constexpr int functionStates = 5;

struct ComparedFunction {
  FunctionState state = FunctionState::Same;
  int oldUnit = -1;  // of CodePairing::Old() and New(); -1: none
  int newUnit = -1;
  Region old;  // of no bytes: none
  Region now;
  int edited = 0;     // instructions that differ: an edited, added or removed one counts once
  int constants = 0;  // constants, displacements and lone addresses that differ: moved, or edited
};

// The functions of the old version by offset, then those that only the new one has, by offset.
[[nodiscard]] std::vector<ComparedFunction> CompareFunctions(const CodeVersions& versions);

}  // namespace tarvelo
