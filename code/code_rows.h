// The rows of a view of code: where each instruction of an image begins.
//
// Bytes that are known to be data are rows of 8 bytes. Between them, the instructions of functions stand
// where the functions have them. Everything else is swept: what would reach into an instruction of a
// function, or into a labelled place, is data of 2 bytes. So the rows depend on the image alone, not on the
// way there. Rows begin at even phone addresses, as all code does.
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

#include "code/functions.h"
#include "core/region.h"
#include "text/bytes.h"

namespace tarvelo {

struct CodeRow {
  enum class Kind : std::uint8_t { Heading, Code, Data };

  Kind kind = Kind::Code;  // Code: an instruction, or bytes that are none
  Offset offset = 0;
  int size = 0;  // bytes; 0 for a heading, which stands above the row of its offset
};

class CodeRows {
 public:
  static constexpr Offset dataBytes = 8;  // in a row

  CodeRows() = default;
  // `data`: in order, without overlaps. `labels`: offsets that get a heading if a row begins there.
  // `firstWord`: the offset of the first even phone address, 0 or 1; the byte in front of it is a row of its
  // own. Takes a few nanoseconds an instruction and a quarter of a byte of memory for each byte.
  CodeRows(Bytes bytes, const FunctionList& functions, std::vector<Region> data,
           std::span<const Offset> labels, Offset firstWord = 0);

  [[nodiscard]] Offset Count() const { return count_; }
  // A row, from 0 on; `row` must be less than Count().
  [[nodiscard]] CodeRow At(Offset row) const;
  // The row, no heading, that holds the byte at an offset, which must be in the image.
  [[nodiscard]] Offset RowOf(Offset offset) const;

 private:
  using Bits = std::vector<std::uint64_t>;  // one for each word

  // Mark where rows begin among the words from .. end - 1.
  void MarkData(Offset from, Offset end);
  void MarkCode(Bytes bytes, const FunctionList& functions, Offset from, Offset end);
  void CountRows();
  [[nodiscard]] const Region* DataAt(Offset offset) const;
  [[nodiscard]] Offset NextStart(Offset offset) const;
  // The number of the word that holds a byte; the offset of a word, or of the half that is in the image.
  [[nodiscard]] Offset WordAt(Offset offset) const { return (offset + firstWord_) / 2; }
  [[nodiscard]] Offset OffsetOf(Offset word) const { return std::max<Offset>(0, word * 2 - firstWord_); }
  // The first word that begins at an offset or behind it.
  [[nodiscard]] Offset WordFrom(Offset offset) const { return (offset + firstWord_ + 1) / 2; }

  Bits starts_;
  Bits headings_;                      // a part of `starts_`
  std::vector<std::uint32_t> before_;  // the rows in front of each 64 words
  std::vector<Region> data_;
  Offset size_ = 0;  // bytes
  Offset firstWord_ = 0;
  Offset count_ = 0;
};

}  // namespace tarvelo
