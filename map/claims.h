// Claims on the bytes of an image, and the regions that are left when they have been settled.
#pragma once

#include <vector>

#include "map/dump_map.h"

namespace tarvelo {

class Claims {
 public:
  explicit Claims(Offset imageSize) : imageSize_(imageSize) {}

  // What of a region lies outside the image is cut off; what is left of it may be nothing.
  void Add(MapRegion region);

  // The regions of the whole image, as the precedence of dump_map.h has it.
  [[nodiscard]] std::vector<MapRegion> Settle() &&;

 private:
  Offset imageSize_;
  std::vector<MapRegion> claims_;
};

// Adds a region behind the last one, or to it where they differ in nothing but their place.
void Append(std::vector<MapRegion>& regions, const MapRegion& region);

}  // namespace tarvelo
