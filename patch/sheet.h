// Bytes with changes written over them. The original bytes stay unchanged; only pages that were written to
// are copied.
#pragma once

#include <cstdint>
#include <vector>

#include "text/bytes.h"

namespace tarvelo {

class Sheet {
 public:
  // The bytes must outlive the sheet.
  explicit Sheet(Bytes underneath);

  // All regions must be within the bytes.
  void Write(Offset offset, Bytes bytes);
  [[nodiscard]] bool Holds(Offset offset, Bytes bytes) const;
  // Whether another sheet over the same bytes has the same contents in a region.
  [[nodiscard]] bool Equals(const Sheet& other, Offset offset, Offset size) const;
  [[nodiscard]] std::vector<std::uint8_t> Copy(Offset offset, Offset size) const;

 private:
  // The contents from an offset to the end of its page, at most `most` bytes.
  [[nodiscard]] Bytes Piece(std::size_t offset, std::size_t most) const;

  Bytes underneath_;
  std::vector<std::vector<std::uint8_t>> pages_;  // an empty one was not written to
};

}  // namespace tarvelo
