// The map as a list for the user.
#pragma once

#include <string>
#include <string_view>

#include "core/table.h"
#include "document/dump_map.h"
#include "resources/messages.h"

namespace tarvelo {

// The key of a sureness for programs: "certain"; never translated. Empty if unknown.
[[nodiscard]] std::string_view KeyOf(Sureness sure);

// The name of a group of kinds: "EEPROM (deleted)".
[[nodiscard]] std::string NameOf(const ClaimGroup& group, const Messages& messages);

// The name of a region: "EEPROM 5076 (header)", "picture 12", "erased".
[[nodiscard]] std::string WhatOf(const Claim& region, const Messages& messages = Messages());

// The names of the regions in `size` bytes from an offset on, each once, at most three and then "...":
// "EEPROM 5076, erased". Empty outside the image.
[[nodiscard]] std::string LabelOf(const DumpMap& map, Offset offset, Offset size = 1,
                                  const Messages& messages = Messages());

// One row per region in the five columns Offset, Address, Size, What, Sure. Offset and Address are
// hexadecimal and equally long in all rows; Size is decimal. The map and the image must outlive the rows.
[[nodiscard]] TableRows MapRows(const DumpMap& map, const Fullflash& image,
                                const Messages& messages = Messages());

}  // namespace tarvelo
