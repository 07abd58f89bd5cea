// Finds all occurrences of a pattern in an image that is read piece by piece.
#pragma once

#include <functional>
#include <span>

#include "core/file.h"
#include "patch/pattern.h"

namespace tarvelo {

class HitSearch {
 public:
  // The pattern must outlive the search. `imageSize` is the size of the whole image.
  HitSearch(const Pattern& pattern, Offset imageSize) : pattern_(pattern), imageSize_(imageSize) {}

  // The first start not yet tried. The next piece must hold the image from there on.
  [[nodiscard]] Offset Next() const { return next_; }

  // Tries all starts from Next() on at which the pattern fits into the piece. The piece begins at offset `at`
  // of the image. Adds the hits that FindAll would return.
  void Take(Bytes piece, Offset at, std::vector<Offset>& hits);

  // Whether the search is complete.
  [[nodiscard]] bool IsOver() const { return isOver_; }

 private:
  const Pattern& pattern_;
  const Offset imageSize_;
  Offset next_ = 0;
  bool anyHit_ = false;
  bool isOver_ = false;
};

// Searches a file without holding it in memory. Calls take(hits, piece, offset of the piece) for each piece
// with hits; the piece holds the bytes of all its hits. Throws FileError if reading breaks off.
void FindInFile(FileReader& file, const Pattern& pattern, Progress& progress,
                const std::function<void(std::span<const Offset> hits, Bytes piece, Offset at)>& take);

}  // namespace tarvelo
