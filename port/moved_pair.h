// Two constants that may be an address, for another firmware version.
#pragma once

#include <cstdint>
#include <optional>
#include <utility>

#include "port/port_operands.h"

namespace tarvelo {

struct MovedPair {
  bool isPlain = false;  // no address
  std::optional<std::pair<std::uint32_t, std::uint32_t>>
      words;  // low and high; nothing: it cannot be carried
};

// The words of an address, offset and page or offset and segment, of what they name in the new dump.
//
// Any two numbers may look like an offset and a page, so they are carried only if code or a text is known
// there. If nothing is known there, they are plain, unless they are loaded as addresses are (`isInOrder`: the
// offset, and at once the page) or code uses the page: then they cannot be carried. Neither can what may be
// an address of both kinds.
[[nodiscard]] MovedPair MovePair(std::uint32_t low, std::uint32_t high, bool isInOrder, const Fullflash& old,
                                 const CodePairing& pairing, const CarryMaps& maps);

// Whether code that has a pair refers to something in a page.
[[nodiscard]] bool IsUsedPage(std::uint32_t page, const CodePairing& pairing);
// Whether printable text begins at a phone address.
[[nodiscard]] bool IsTextAt(std::uint32_t address, const Fullflash& image);
// Whether that is so, or code that has a pair refers to it.
[[nodiscard]] bool IsKnownData(std::uint32_t address, const Fullflash& old, const CodePairing& pairing);

}  // namespace tarvelo
