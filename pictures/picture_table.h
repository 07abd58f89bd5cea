// The list of pictures for the user.
#pragma once

#include <string>

#include "core/table.h"
#include "pictures/picture.h"
#include "resources/messages.h"

namespace tarvelo {

// The captions of the ten columns P, N/P, N, X, Y, B, Offset, Size, Uncomp, PIT.
[[nodiscard]] std::vector<std::string> PictureCaptions(const Messages& messages);

// The list: one row per picture, in the same order. Numbers keep the rightmost digits that fit their column.
// The list must outlive the rows.
[[nodiscard]] TableRows PictureRows(const PictureList& list, const Messages& messages = Messages());

// The lines for the information text: the addresses of the tables and the number of pictures, each line
// ending in a line feed.
[[nodiscard]] std::string PictureInformation(const PictureList& list, const Messages& messages);

}  // namespace tarvelo
