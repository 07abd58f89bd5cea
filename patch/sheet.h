// Bytes as they would be with others written over them: what lies underneath stays as it is, and only
// the pages that were written to are copied.
#pragma once

#include <cstdint>
#include <vector>

#include "text/bytes.h"

namespace tarvelo {

class Sheet {
 public:
  // The bytes must outlive the sheet.
  explicit Sheet(Bytes underneath);

  // All regions must lie within the bytes.
  void Write(Offset offset, Bytes bytes);
  [[nodiscard]] bool Holds(Offset offset, Bytes bytes) const;
  // Whether another sheet over the same bytes holds the same in a region.
  [[nodiscard]] bool Equals(const Sheet& other, Offset offset, Offset size) const;
  [[nodiscard]] std::vector<std::uint8_t> Copy(Offset offset, Offset size) const;

 private:
  // What stands from an offset on, to the end of its page and not more than `most` bytes.
  [[nodiscard]] Bytes Piece(std::size_t offset, std::size_t most) const;

  Bytes underneath_;
  std::vector<std::vector<std::uint8_t>> pages_;  // empty where nothing was written
};

}  // namespace tarvelo
