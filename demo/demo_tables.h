// The picture tables and their data.
//
// A table entry has 8 bytes: width, height, type, 0, and a pointer to the picture's data.
#pragma once

#include "demo/demo_flash.h"
#include "demo/picture_set.h"

namespace tarvelo {

// Writes a table of the pictures, ended as `end` says; their data goes to `data`.
enum class TableEnd { noHeight, fullWidth, reservedByte };
void WritePictureTable(Flash& flash, Area table, const std::vector<EncodedPicture>& pictures, TableEnd end,
                       AreaWriter& data);

// Writes pictures without a table: each is a header in the form of a table entry, followed by its data.
void WriteStandalonePictures(Flash& flash, Area area, const std::vector<EncodedPicture>& pictures);

}  // namespace tarvelo
