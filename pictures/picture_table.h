// The list of pictures as people see it.
#pragma once

#include <string>

#include "core/table.h"
#include "pictures/picture.h"
#include "resources/messages.h"

namespace tarvelo {

// The captions of the ten columns P, N/P, N, X, Y, B, Offset, Size, Uncomp, PIT.
[[nodiscard]] std::vector<std::string> PictureCaptions(const Messages& messages);

// The list: a row a picture, in their order. Numbers keep the rightmost digits that their column holds. The
// list must outlive the rows.
[[nodiscard]] TableRows PictureRows(const PictureList& list, const Messages& messages = Messages());

// The lines that the search adds to the information text: where the tables lie, how many pictures
// there are. Each is ended by a line feed.
[[nodiscard]] std::string PictureInformation(const PictureList& list, const Messages& messages);

}  // namespace tarvelo
