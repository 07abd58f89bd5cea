// Images that push explorers to their limits, and one that contains something of each kind.
#pragma once

#include <span>

#include "images.h"

namespace tarvelo {

struct CraftedImage {
  const char* name;
  std::size_t size;
  void (*fill)(ImageBuilder& image);

  [[nodiscard]] ImageBuilder Build() const {
    ImageBuilder image(size);
    fill(image);
    return image;
  }
};

// Each takes 2 MiB or less, except one of 16 MiB and one large image.
[[nodiscard]] std::span<const CraftedImage> CraftedImages();

// A picture table with entries up to the end of the image.
void PictureTableWithoutEnd(ImageBuilder& image);

// A picture header outside the tables every four bytes. The pointer of each header is the start of the next
// one, and points into an image of 16 MiB.
void HeadersThatOverlap(ImageBuilder& image);

}  // namespace tarvelo
