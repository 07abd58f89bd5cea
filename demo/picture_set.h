// The pictures of the demonstration fullflash: the artwork used, its order, and how each is stored.
#pragma once

#include <vector>

#include "demo/picture_encoder.h"

namespace tarvelo {

struct PictureSet {
  std::vector<EncodedPicture> first;       // of the first picture table
  std::vector<EncodedPicture> second;      // of the second one
  std::vector<EncodedPicture> standalone;  // behind headers that no table points to
};

// All pictures. A table begins with the picture that identifies firmware tables: 4 x 4 monochrome in
// page-mode images, 52 x 52 compressed 16-bit in large ones.
[[nodiscard]] PictureSet EncodePictures(bool pageMode);

}  // namespace tarvelo
