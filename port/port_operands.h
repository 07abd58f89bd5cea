// Carries the addresses in new code over to another firmware version.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "port/brought_areas.h"
#include "port/port_place.h"

namespace tarvelo {

// A piece of patched code. Around it, `patched` and `old` are read where operands of several instructions
// belong together.
struct PatchedCode {
  Bytes patched;     // the old dump with the patch in it
  Region region;     // whole instructions of it
  Region around;     // what is in step with the region
  Offset there = 0;  // where the region is in the new dump
};

struct CarriedCode {
  std::vector<std::uint8_t> bytes;  // the region, for the new dump
  std::vector<Region> failed;       // instructions, in the old dump, with an address that cannot be carried
};

// Maps an old phone address of code to the new one; nothing if it cannot.
using MapAddress = std::function<std::optional<std::uint32_t>(std::uint32_t address)>;

struct CarryMaps {
  MapAddress code;
  MapAddress jump;  // within a function, whose beginning is an instruction like any other
  MapAddress data;
  BroughtAreas areas;  // what else moves
};

// Replaces the addresses in the patched bytes by those of the new version. Operands that the patch does not
// change become those of the new dump.
[[nodiscard]] CarriedCode CarryOperands(const PatchedCode& code, const Fullflash& old, const Fullflash& now,
                                        const CodePairing& pairing, const CarryMaps& maps);

}  // namespace tarvelo
