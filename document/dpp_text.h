// The stated pages of DPP0 .. DPP3 as the user writes them: "- 204 - 3".
#pragma once

#include <string>
#include <string_view>

#include "code/references.h"
#include "core/names.h"

namespace tarvelo {

[[nodiscard]] std::string DppText(const DppPages& pages);

// Up to four hexadecimal pages with blanks between them; "-" or nothing: unknown. Throws
// std::invalid_argument if one is not a number, and std::overflow_error if it is above 3FF.
[[nodiscard]] DppPages ReadDpps(std::string_view text);

// The pages are kept in a remark of the names file. Reads none from a malformed one.
[[nodiscard]] DppPages DppsOf(const Names& names);
void KeepDpps(const DppPages& pages, Names& names);

}  // namespace tarvelo
