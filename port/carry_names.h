// Carries the names of a dump over to another version of the firmware.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/names.h"
#include "port/port_place.h"
#include "versions/code_versions.h"

namespace tarvelo {

struct CarriedName {
  std::uint32_t oldAddress = 0;  // phone addresses
  std::string name;
  std::string comment;
  std::uint32_t address = 0;           // in the new version, if it is not refused
  std::optional<PortRefusal> refusal;  // NotUnique, NoPlace or SeveralPlaces; nothing: carried over
};

// One result for each name, in order. A function goes where its pair is, a place in code or data where
// PlaceFinder says, and a variable in RAM where the code that uses both says; special function registers
// stay.
[[nodiscard]] std::vector<CarriedName> CarryNames(const Names& names, const CodeVersions& versions,
                                                  Progress& progress);

}  // namespace tarvelo
