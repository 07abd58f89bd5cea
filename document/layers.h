// What an explorer's findings say about single places.
//
// The dump map gives each byte one label. Here nothing is outweighed: a place has every claim and every
// record that covers it, such as a table, its entry, and the thing that the entry describes.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "core/explorer.h"

namespace tarvelo {

// A claim or a record that covers a place. A record that no claim speaks of has a claim without a kind.
struct Layer {
  Claim claim;
  std::optional<std::size_t> record;
};

class Layers {
 public:
  Layers(const Explorer& explorer, const Dump& dump, const Findings& found);

  // Those that cover the byte at an offset, the largest first.
  [[nodiscard]] std::vector<Layer> At(Offset offset) const;

 private:
  struct Span {
    Claim claim;
    std::optional<std::uint32_t> record = {};
  };

  std::vector<Span> spans_;    // by offset
  std::vector<Offset> reach_;  // the furthest end of all spans up to each
};

}  // namespace tarvelo
