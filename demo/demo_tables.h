// The picture tables and what they point to.
//
// A table entry has 8 bytes: width, height, type, 0, and a pointer to the picture's data.
#pragma once

#include "demo/demo_region.h"
#include "demo/picture_set.h"

namespace tarvelo {

// A table of the pictures, ended as `end` says; their data goes where `data` stands.
enum class TableEnd { noHeight, fullWidth, reservedByte };
void WritePictureTable(ImageBuilder& image, Region table, const std::vector<EncodedPicture>& pictures,
                       TableEnd end, RegionWriter& data);

// Pictures without a table: each a header like a table's entry, its data behind it.
void WriteStandalonePictures(ImageBuilder& image, Region region, const std::vector<EncodedPicture>& pictures);

}  // namespace tarvelo
