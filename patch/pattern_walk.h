// Steps through the occurrences of a pattern from any position, forwards and backwards, including overlapping
// ones. Unlike with Pattern::FindPat, an occurrence may always end with the image's last byte.
//
// A pattern without bytes, or an invalid one, occurs nowhere.
#pragma once

#include <optional>
#include <vector>

#include "patch/pattern.h"

namespace tarvelo {

// The offset of the first occurrence that begins at or after `start`, or -1.
[[nodiscard]] Offset FirstFrom(const Fullflash& image, const Pattern& pattern, Offset start);

// The offset of the last occurrence that begins before `end`, or -1.
[[nodiscard]] Offset LastBefore(const Fullflash& image, const Pattern& pattern, Offset end);

// The occurrences that do not overlap, from the start on, at most `most` + 1 of them. Nothing if `progress`
// asks to stop.
[[nodiscard]] std::optional<std::vector<Offset>> SeparateHits(const Fullflash& image, const Pattern& pattern,
                                                              Progress& progress, std::size_t most);

}  // namespace tarvelo
