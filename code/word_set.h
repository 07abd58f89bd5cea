// A set of even offsets of an image: one bit for each.
#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>
#include <utility>
#include <vector>

#include "text/bytes.h"

namespace tarvelo {

class WordSet {
 public:
  // An empty set of offsets in front of `end`.
  explicit WordSet(Offset end) : words_(static_cast<std::size_t>(end) / 128 + 1) {}

  // Offsets outside the image are not members.
  [[nodiscard]] bool Has(Offset offset) const {
    const auto word = static_cast<std::uint64_t>(offset) / 128;
    return word < words_.size() && (words_[word] >> Bit(offset) & 1) != 0;
  }
  // Add and Remove take offsets within the image.
  void Add(Offset offset) { words_[Word(offset)] |= std::uint64_t{1} << Bit(offset); }
  void Remove(Offset offset) { words_[Word(offset)] &= ~(std::uint64_t{1} << Bit(offset)); }

  // The first member, or the first that is none, from `from` up to `end`; `end` if there is no such offset.
  [[nodiscard]] Offset Next(Offset from, Offset end) const { return Find(from, end, 0); }
  [[nodiscard]] Offset NextFree(Offset from, Offset end) const { return Find(from, end, ~std::uint64_t{0}); }

  // The bits: offset 0 is the lowest bit of the first word, offset 2 the next one.
  [[nodiscard]] std::vector<std::uint64_t> Take() && { return std::move(words_); }

 private:
  static std::size_t Word(Offset offset) { return static_cast<std::size_t>(offset) / 128; }
  static unsigned Bit(Offset offset) { return static_cast<unsigned>(offset) / 2 % 64; }

  // `flip` turns the bits to find into ones.
  [[nodiscard]] Offset Find(Offset from, Offset end, std::uint64_t flip) const {
    if (from >= end) return end;
    std::size_t i = Word(from);
    std::uint64_t bits = (words_[i] ^ flip) >> Bit(from) << Bit(from);
    while (bits == 0) {
      if (static_cast<Offset>(++i) * 128 >= end) return end;
      bits = words_[i] ^ flip;
    }
    return std::min(end, static_cast<Offset>(i) * 128 + 2 * std::countr_zero(bits));
  }

  std::vector<std::uint64_t> words_;
};

}  // namespace tarvelo
