// Finds the pictures of a fullflash.
#pragma once

#include "core/fullflash.h"
#include "core/progress.h"
#include "core/sieve_marks.h"
#include "pictures/picture.h"

namespace tarvelo {

// Searches the image for up to 99 picture index tables and lists their entries. A table is recognized by its
// first entry, a 4 x 4 monochrome picture in page-mode images and a compressed 52 x 52 one of 16 bits in
// large ones, with a valid entry behind it; it begins at an even offset.
//
// If the first table has a picture of more than one bit per pixel, the search looks for more tables, each at
// most 0x50000 bytes behind the start of the last one. Otherwise it lists stand-alone headers of compressed
// monochrome pictures, up to 101 x 80, from the end of the table on.
//
// Never throws because of the image's content. Passes over the image once.
[[nodiscard]] PictureList GetP(const Fullflash& image, Progress& progress, const SieveMarks& marks = {});

// The sieve for the tables.
[[nodiscard]] const SieveForm& TableSieve(const Fullflash& image);

}  // namespace tarvelo
