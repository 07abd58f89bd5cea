// Where two dumps differ, as a list for the user.
#pragma once

#include <span>

#include "core/table.h"
#include "document/dump_map.h"
#include "patch/image_compare.h"
#include "resources/messages.h"

namespace tarvelo {

// A row a difference between an image and other bytes, in the columns Offset, Address, Length, Old, New and
// "What lies there", of the image's map; without a map that column is empty. A row throws std::out_of_range
// where one of both does not have its bytes. All but the messages must outlive the rows.
[[nodiscard]] TableRows DifferenceRows(const Fullflash& image, Bytes other,
                                       std::span<const Difference> differences, const DumpMap* map,
                                       const Messages& messages = Messages());

}  // namespace tarvelo
