// The differences between two dumps as parts of a strip.
#pragma once

#include <wx/colour.h>

#include <span>
#include <vector>

#include "patch/image_compare.h"
#include "shell/map/image_strip.h"

namespace tarvelo {

// Parts for a strip of an image of which the first `compared` bytes were compared. The image is divided into
// about 1000 cells. A difference colours every cell that it touches, so that a single byte remains visible.
[[nodiscard]] std::vector<StripPart> StripOf(std::span<const Difference> differences, Offset compared,
                                             Offset imageSize, const wxColour& colour);

}  // namespace tarvelo
