// A run of bytes of an image.
#pragma once

#include "text/bytes.h"

namespace tarvelo {

struct Region {
  Offset offset = 0;  // of the first byte; may be outside the image
  Offset size = 0;    // bytes

  [[nodiscard]] Offset End() const { return offset + size; }
  [[nodiscard]] bool Holds(Offset place) const { return place >= offset && place < End(); }
  [[nodiscard]] bool operator==(const Region&) const = default;
};

}  // namespace tarvelo
