#include "pictures/bitmap.h"

namespace tarvelo {

Bitmap::Bitmap(int w, int h)
    : width(w),
      height(h),
      pixels(static_cast<std::size_t>(w) * static_cast<std::size_t>(h), backgroundColour) {}

}  // namespace tarvelo
