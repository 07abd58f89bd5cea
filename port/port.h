// Carries a patch over to a dump of another firmware version.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "core/progress.h"
#include "patch/patch_apply.h"
#include "port/brought_areas.h"
#include "port/port_place.h"

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
// address if the new dump is erased there, too, or else where `moves` says, and all references to it follow.
// The progress counts changes.
[[nodiscard]] std::vector<PortedChange> PortChanges(std::span<const PatchChange> changes,
                                                    const Fullflash& old, const Fullflash& now,
                                                    const CodePairing& pairing, Progress& progress,
                                                    std::span<const AreaMove> moves = {});

// Whether something was refused because the new dump is not erased where the old one is.
[[nodiscard]] bool FindsAreasUsed(std::span<const PortedChange> ported);

// Erased areas of the new dump for what finds its own not erased there, for PortChanges: by their old place.
// Nothing knows what a phone writes into an erased area: ask the user first. Only what carried changes refer
// to has one. `used` are regions of the new dump to keep away from.
[[nodiscard]] std::vector<AreaMove> OfferAreas(std::span<const PatchChange> changes, const Fullflash& old,
                                               const Fullflash& now, const CodePairing& pairing,
                                               Progress& progress, std::span<const Region> used = {});

}  // namespace tarvelo
