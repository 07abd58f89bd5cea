// Bytes with changes written over them. The bytes underneath stay unchanged; only pages that were written to
// are copied.
#pragma once

#include <array>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "text/bytes.h"

namespace tarvelo {

class Sheet {
 public:
  // The bytes must outlive the sheet.
  explicit Sheet(Bytes underneath);

  // The number of bytes.
  [[nodiscard]] Offset Size() const { return std::ssize(underneath_); }

  // All regions must be within the bytes.
  void Write(Offset offset, Bytes bytes);
  [[nodiscard]] bool Holds(Offset offset, Bytes bytes) const;
  // Whether another sheet over the same bytes has the same contents in a region.
  [[nodiscard]] bool Equals(const Sheet& other, Offset offset, Offset size) const;
  // Whether a later version of this sheet, with more written over it, has the same contents everywhere.
  [[nodiscard]] bool EqualsLater(const Sheet& later) const;
  [[nodiscard]] std::vector<std::uint8_t> Copy(Offset offset, Offset size) const;

 private:
  static constexpr std::size_t pageSize = 64;  // small: a patch changes a few bytes each in many places

  // The contents from an offset to the end of its page, at most `most` bytes.
  [[nodiscard]] Bytes Piece(std::size_t offset, std::size_t most) const;

  Bytes underneath_;
  std::unordered_map<std::size_t, std::array<std::uint8_t, pageSize>>
      pages_;  // by page number; the ones written to
};

}  // namespace tarvelo
