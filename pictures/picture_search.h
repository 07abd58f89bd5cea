// Finds the pictures of a fullflash.
#pragma once

#include "core/fullflash.h"
#include "core/progress.h"
#include "pictures/picture.h"

namespace tarvelo {

// Looks through the image for picture index tables, up to 99, and lists their entries. A table is
// known by its first entry, a 4 x 4 monochrome picture in page-mode images and a compressed 52 x 52
// one of 16 bits in large ones, with a valid entry behind it; it lies at an even offset. After the
// first table others are looked for only if it held a picture of more than one bit a pixel, up to
// 0x50000 bytes behind the last one's start. If no table held any, stand-alone headers of compressed
// monochrome pictures, up to 101 x 80, are listed from the end of the table on.
//
// Never throws on what the image holds. Works over the image once, whatever it holds.
[[nodiscard]] PictureList GetP(const Fullflash& image, Progress& progress);

}  // namespace tarvelo
