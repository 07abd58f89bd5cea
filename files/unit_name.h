// The name in the header of a unit.
#pragma once

#include <optional>
#include <string>

#include "text/bytes.h"

namespace tarvelo {

// The name of the unit that begins at an offset, up to its first zero; nothing if a character is not
// printable ASCII. Throws std::out_of_range unless the name is in the image.
[[nodiscard]] std::optional<std::string> UnitName(Bytes image, Offset unit);

// Whether a volume of this name holds files. Others belong to the EEPROM and the like.
[[nodiscard]] inline bool NamesFiles(const std::string& name) { return name.find("FFS") != name.npos; }

}  // namespace tarvelo
