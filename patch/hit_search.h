// The search for all occurrences of a pattern in an image that is seen piece by piece.
#pragma once

#include <functional>
#include <span>

#include "core/file.h"
#include "patch/pattern.h"

namespace tarvelo {

class HitSearch {
 public:
  // The pattern must outlive the search; `imageSize` is that of the whole image.
  HitSearch(const Pattern& pattern, Offset imageSize) : pattern_(pattern), imageSize_(imageSize) {}

  // The first start that was not tried yet: the next piece must hold the image from there on.
  [[nodiscard]] Offset Next() const { return next_; }

  // Tries all starts from Next() on at which the pattern lies in the piece, whose first byte is that at
  // `at` of the image. Adds the hits among them, as FindAll would.
  void Take(Bytes piece, Offset at, std::vector<Offset>& hits);

  // Whether no further hit can come.
  [[nodiscard]] bool IsOver() const { return isOver_; }

 private:
  const Pattern& pattern_;
  const Offset imageSize_;
  Offset next_ = 0;
  bool anyHit_ = false;
  bool isOver_ = false;
};

// Searches a file without holding it: gives take(hits, piece, offset of the piece) the hits of each
// piece that has some, with the bytes of them all. Throws FileError where the file breaks off.
void FindInFile(FileReader& file, const Pattern& pattern, Progress& progress,
                const std::function<void(std::span<const Offset> hits, Bytes piece, Offset at)>& take);

}  // namespace tarvelo
