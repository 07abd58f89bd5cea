// The map as people see it.
#pragma once

#include <string>
#include <string_view>

#include "core/table.h"
#include "map/dump_map.h"

namespace tarvelo {

// The name of a kind and of a step of sureness for programs: "eeprom-data", "certain"; never translated.
// Of what is unknown the sureness is empty.
[[nodiscard]] std::string_view KeyOf(MapKind kind);
[[nodiscard]] std::string_view KeyOf(Sureness sure);

// What a region is: "EEPROM 5076", "picture 12", "erased".
[[nodiscard]] std::string WhatOf(const MapRegion& region);

// What lies at `size` bytes from an offset on: the regions' names, each once, at most three and then
// "...": "EEPROM 5076, erased". Empty outside the image.
[[nodiscard]] std::string LabelOf(const DumpMap& map, Offset offset, Offset size = 1);

// The five columns Offset, Address, Size, What, Sure; a row a region. Offset and Address are hexadecimal
// and as long in all rows, Size is decimal. The map and the image must outlive the rows.
[[nodiscard]] TableRows MapRows(const DumpMap& map, const Fullflash& image);

}  // namespace tarvelo
