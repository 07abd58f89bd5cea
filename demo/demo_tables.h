// The picture tables and what they point to.
//
// A table entry has 8 bytes: width, height, type, 0, and a pointer to the picture's data.
#pragma once

#include "demo/demo_flash.h"
#include "demo/picture_set.h"

namespace tarvelo {

// A table of the pictures, ended as `end` says; their data goes where `data` stands.
enum class TableEnd { noHeight, fullWidth, reservedByte };
void WritePictureTable(Flash& flash, Area table, const std::vector<EncodedPicture>& pictures, TableEnd end,
                       AreaWriter& data);

// Pictures without a table: each a header like a table's entry, its data behind it.
void WriteStandalonePictures(Flash& flash, Area area, const std::vector<EncodedPicture>& pictures);

}  // namespace tarvelo
