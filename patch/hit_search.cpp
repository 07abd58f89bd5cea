#include "patch/hit_search.h"

#include <algorithm>

namespace tarvelo {

void HitSearch::Take(Bytes piece, Offset at, std::vector<Offset>& hits) {
  const std::size_t before = hits.size();
  const Offset pieceEnd = at + static_cast<Offset>(piece.size());
  // One that ends with the image's last byte is seen by the first search alone (FindPat).
  const Offset endOfImage = imageSize_ - pattern_.PatCount();
  const Offset last = std::min(pieceEnd - pattern_.PatCount(), endOfImage - 1);
  pattern_.AddMatches(piece, next_ - at, last - at, at, hits);
  anyHit_ = anyHit_ || hits.size() > before;
  if (!anyHit_ && !pattern_.HasWildcard() && pieceEnd == imageSize_ && endOfImage >= next_)
    pattern_.AddMatches(piece, endOfImage - at, endOfImage - at, at, hits);
  const bool hitAtZero = next_ == 0 && hits.size() > before && hits[before] == 0;
  if (hitAtZero) hits.resize(before);
  isOver_ = hitAtZero || pieceEnd == imageSize_;
  next_ = std::max(next_, last + 1);
}

}  // namespace tarvelo
