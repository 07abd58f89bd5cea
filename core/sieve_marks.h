// Several sieves in one pass over the memory.
//
// A sieve alone waits for the memory. So the image is read once, in chunks that stay in the nearest cache
// while every sieve passes over them. The pass only marks the blocks in which a sieve may match; the sieves
// then look at those few.
#pragma once

#include <map>
#include <span>
#include <vector>

#include "core/progress.h"
#include "core/scan/vector_scan.h"

namespace tarvelo {

class SieveMarks {
 public:
  // No marks.
  SieveMarks() = default;
  // Marks the blocks of an image. The marks hold for these bytes alone, as long as nobody changes them.
  SieveMarks(Bytes image, std::span<const SieveForm* const> forms, Progress& progress);

  // A bit for each 128 positions, as Sieve::Mark has it, and for as many as there are whole groups of 64 in
  // front of the last bytes. Empty if the form was not among those of the pass.
  [[nodiscard]] std::span<const std::uint64_t> Of(const SieveForm& form) const;

 private:
  std::map<const SieveForm*, std::vector<std::uint64_t>> marks_;
};

}  // namespace tarvelo
