// The differences of two dumps, as a list for the user.
#pragma once

#include <span>

#include "core/table.h"
#include "document/dump_map.h"
#include "patch/image_compare.h"
#include "resources/messages.h"

namespace tarvelo {

// One row per difference between an image and other bytes, in the columns Offset, Address, Length, Old, New
// and "What lies there". The last one comes from the image's map; without a map it is empty. A row throws
// std::out_of_range unless both sides have all its bytes. `shift` is Comparison::shift. Everything but the
// messages must outlive the rows.
[[nodiscard]] TableRows DifferenceRows(const Fullflash& image, Bytes other,
                                       std::span<const Difference> differences, const DumpMap* map,
                                       const Messages& messages = Messages(), Offset shift = 0);

}  // namespace tarvelo
