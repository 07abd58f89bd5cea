// Carries the addresses in new code over to another firmware version.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "code/sweep.h"
#include "patch/port_place.h"

namespace tarvelo {

// A piece of patched code: bytes of the old dump with new ones written over some of them, and its new place.
struct PatchedCode {
  std::vector<std::uint8_t> bytes;   // begins with an instruction
  std::vector<std::uint8_t> before;  // the old dump's, as many
  std::vector<std::uint8_t> there;   // the new dump's at the new place; as many
  std::uint32_t address = 0;         // phone addresses of the first byte
  std::uint32_t newAddress = 0;
};

// Maps an old phone address of code to the new one; nothing if it cannot.
using MapCode = std::function<std::optional<std::uint32_t>(std::uint32_t address)>;

// Replaces the addresses in the patched bytes by those of the new version. Operands that the patch does not
// change become those of the new dump. Returns false if an address cannot be carried over.
[[nodiscard]] bool CarryOperands(PatchedCode& code, const PlaceFinder& places, const OperandVotes& votes,
                                 const MapCode& mapCode);

}  // namespace tarvelo
