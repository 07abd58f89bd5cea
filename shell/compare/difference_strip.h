// Differences of two dumps as parts of a strip.
#pragma once

#include <wx/colour.h>

#include <span>
#include <vector>

#include "patch/image_compare.h"
#include "shell/map/image_strip.h"

namespace tarvelo {

// Parts for a strip of an image, the first bytes of which were compared. A difference colours all of the
// cells, a thousandth of the image each, that it touches, so that a single byte is seen too.
[[nodiscard]] std::vector<StripPart> StripOf(std::span<const Difference> differences, Offset compared,
                                             Offset imageSize, const wxColour& colour);

}  // namespace tarvelo
