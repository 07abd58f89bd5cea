// The differences between two dumps as parts of a strip.
#pragma once

#include <wx/colour.h>

#include <vector>

#include "patch/image_compare.h"
#include "shell/map/image_strip.h"

namespace tarvelo {

// Parts for a strip of the comparison's first dump. The image is divided into about 1000 cells. A difference
// colours every cell that it touches, as far as it was compared, so that a single byte remains visible.
[[nodiscard]] std::vector<StripPart> StripOf(const Comparison& comparison, Offset imageSize,
                                             const wxColour& colour);

}  // namespace tarvelo
