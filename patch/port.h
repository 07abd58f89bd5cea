// Carries a patch over to a dump of another firmware version.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "patch/patch_apply.h"
#include "patch/port_place.h"

namespace tarvelo {

struct PortedChange {
  std::optional<PortRefusal> refusal;  // nothing: carried over
  Offset offset = 0;                   // in the new dump
  std::vector<std::uint8_t> oldBytes;  // of the new dump
  std::vector<std::uint8_t> newBytes;  // with the addresses in them carried over
  int context = 0;                     // as in NewPlace
};

// Why a line was refused, in one line of English.
[[nodiscard]] std::string_view ReasonOf(PortRefusal refusal);

// Carries changes over, one result for each, in order. A change of erased bytes goes to the same phone
// address if the new dump is erased there, too.
[[nodiscard]] std::vector<PortedChange> PortChanges(std::span<const PatchChange> changes,
                                                    const Fullflash& old, const Fullflash& now,
                                                    const CodePairing& pairing);

}  // namespace tarvelo
