// The code of one version that is paired with none of the other, to be asked for stretches of instructions.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <utility>
#include <vector>

#include "versions/code_units.h"

namespace tarvelo {

class UnpairedCode {
 public:
  static constexpr std::size_t shortest = 8;  // instructions

  // `pairs` has the pair of each unit, or -1. The units must outlive this.
  UnpairedCode(const CodeUnits& units, std::span<const int> pairs);

  // Calls take(unit, first) for each place where a stretch of at least `shortest` instructions stands, but
  // for what moves; `first` counts from the unit's first instruction. A true result ends the search.
  bool Any(std::span<const UnitInstruction> stretch, const std::function<bool(int, int)>& take) const;

 private:
  struct Place {
    std::uint64_t hash = 0;  // of the first `shortest` instructions
    int unit = 0;
    int first = 0;

    auto operator<=>(const Place&) const = default;
  };

  const CodeUnits& units_;
  std::vector<Place> places_;
};

}  // namespace tarvelo
