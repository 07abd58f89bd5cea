// The text of a patch that was carried over to another firmware version.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "port/port.h"

namespace tarvelo {

// The patch's text, line by line, with CR LF: carried lines have their new offset and bytes and keep their
// comments; refused and malformed lines are comments that give the reason; all other lines stay. `changes`
// are those of the text (ReadPatchText), `ported` the results for them.
[[nodiscard]] std::string PortedText(std::string_view text, std::span<const PatchChange> changes,
                                     std::span<const PortedChange> ported);

}  // namespace tarvelo
