// The kinds of regions that belong to no explorer: the firmware's own, and guesses.
#pragma once

#include <span>
#include <vector>

#include "core/claim.h"

namespace tarvelo::map {

inline constexpr ClaimGroup firmware{Text::MapFirmwareHeader, {}, 0xD55E00};
inline constexpr ClaimGroup t9Group{Text::MapT9, {}, 0xF0E442};
inline constexpr ClaimGroup textGroup{Text::MapText, {}, 0xE69F00};
inline constexpr ClaimGroup codeGroup{Text::MapCode, {}, 0x882255};
inline constexpr ClaimGroup erasedGroup{Text::MapErased, {}, 0xDCDCDC};
inline constexpr ClaimGroup fillingGroup{Text::MapFilling, {}, 0x505050};
inline constexpr ClaimGroup unknownGroup{Text::MapUnknown, {}, 0x949494};

inline constexpr ClaimKind firmwareHeader{"firmware-header", Text::MapFirmwareHeader, {}, 0, &firmware};
inline constexpr ClaimKind t9{"t9", Text::MapT9, {}, 10, &t9Group};
inline constexpr ClaimKind t9Free{"t9-free", Text::MapT9, Text::MapFree, 20, &t9Group};
inline constexpr ClaimKind emptyBlock{"empty-block", Text::MapEmptyBlocks, {}, 30, &erasedGroup};
inline constexpr ClaimKind erased{"erased", Text::MapErased, {}, 130, &erasedGroup};
inline constexpr ClaimKind text{"text", Text::MapText, {}, 160, &textGroup};
inline constexpr ClaimKind code{"code", Text::MapCode, {}, 170, &codeGroup};
inline constexpr ClaimKind filling{"filling", Text::MapFilling, {}, 180, &fillingGroup};
inline constexpr ClaimKind unknown{"unknown", Text::MapUnknown, {}, 190, &unknownGroup};

// All groups of kinds, including the explorers', in legend order.
[[nodiscard]] std::vector<const ClaimGroup*> Groups();

}  // namespace tarvelo::map
