// The artwork of the demonstration fullflash, drawn by code and encoded as the firmware stores it.
#pragma once

#include <cstdint>
#include <vector>

namespace tarvelo {

// One picture as the firmware keeps it: a table entry's first three bytes and the data it points
// to.
struct EncodedPicture {
  std::uint8_t width = 0;   // pixels a row
  std::uint8_t height = 0;  // rows
  std::uint8_t type = 0;    // colour type code (1, 3, 5, 7, 8), bit 7 set when compressed
  std::vector<std::uint8_t> data;
};

struct PictureSet {
  std::vector<EncodedPicture> first;       // of the first picture table
  std::vector<EncodedPicture> second;      // of the second one
  std::vector<EncodedPicture> standalone;  // behind headers that no table points to
};

// All pictures. A table begins with the picture by which the firmware's tables are known: 4 x 4
// monochrome in page-mode images, 52 x 52 compressed 16-bit in large ones.
[[nodiscard]] PictureSet DrawPictures(bool pageMode);

}  // namespace tarvelo
