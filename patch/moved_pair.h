// Two constants that may be an address, for another firmware version.
#pragma once

#include <cstdint>
#include <optional>
#include <utility>

#include "patch/port_operands.h"

namespace tarvelo {

struct MovedPair {
  bool isPlain = false;  // no address
  std::optional<std::pair<std::uint32_t, std::uint32_t>>
      words;  // low and high; nothing: it cannot be carried
};

// The words of an address, offset and page or offset and segment, of what they name in the new dump.
[[nodiscard]] MovedPair MovePair(std::uint32_t low, std::uint32_t high, const Fullflash& old,
                                 const CodePairing& pairing, const CarryMaps& maps);

}  // namespace tarvelo
