// Images that bring explorers to their limits, and one that holds something of each kind.
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

// Each in 1 MiB or less, but for one of 16 MiB and a large image.
[[nodiscard]] std::span<const CraftedImage> CraftedImages();

// A picture table that has entries up to the image's end.
void PictureTableWithoutEnd(ImageBuilder& image);

// A picture header outside the tables every four bytes: the pointer of each is the next one, and leads into
// an image of 16 MiB.
void HeadersThatOverlap(ImageBuilder& image);

}  // namespace tarvelo
