// Differences of two dumps as people see them: rows of a list, parts of a strip, figures.
#pragma once

#include <wx/colour.h>

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "core/fullflash.h"
#include "core/table.h"
#include "document/dump_map.h"
#include "patch/image_compare.h"
#include "resources/messages.h"
#include "shell/map/image_strip.h"

namespace tarvelo {

// The captions of the list, and the row of a difference between the open image and other bytes. The map
// is the open image's; of an empty one there are no labels. Throws std::out_of_range where one of both
// does not have all the bytes.
[[nodiscard]] std::vector<std::string> DifferenceCaptions(const Messages& messages);
[[nodiscard]] Table::Row DifferenceRow(const Fullflash& image, Bytes other, const DumpMap& map,
                                       const Difference& difference, const Messages& messages);

// Parts for a strip of an image, the first bytes of which were compared. A difference colours all of the
// cells, a thousandth of the image each, that it touches, so that a single byte is seen too.
[[nodiscard]] std::vector<StripPart> StripOf(std::span<const Difference> differences, Offset compared,
                                             Offset imageSize, const wxColour& colour);

}  // namespace tarvelo
