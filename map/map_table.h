// The map as people see it.
#pragma once

#include <string>
#include <string_view>

#include "core/table.h"
#include "map/dump_map.h"
#include "resources/messages.h"

namespace tarvelo {

// The name of a kind and of a step of sureness for programs: "eeprom-data", "certain"; never translated.
// Of what is unknown the sureness is empty.
[[nodiscard]] std::string_view KeyOf(MapKind kind);
[[nodiscard]] std::string_view KeyOf(Sureness sure);

// What a region is: "EEPROM 5076 (header)", "picture 12", "erased"; of a kind without a number what
// such regions are.
[[nodiscard]] std::string WhatOf(const MapRegion& region, const Messages& messages = Messages());

// What lies at `size` bytes from an offset on: the regions' names, each once, at most three and then
// "...": "EEPROM 5076, erased". Empty outside the image.
[[nodiscard]] std::string LabelOf(const DumpMap& map, Offset offset, Offset size = 1,
                                  const Messages& messages = Messages());

// The five columns Offset, Address, Size, What, Sure; a row a region. Offset and Address are hexadecimal
// and as long in all rows, Size is decimal. The map and the image must outlive the rows.
[[nodiscard]] TableRows MapRows(const DumpMap& map, const Fullflash& image,
                                const Messages& messages = Messages());

}  // namespace tarvelo
