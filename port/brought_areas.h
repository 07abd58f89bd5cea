// Where what a patch brings into erased areas goes in another firmware version.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "port/patched_image.h"

namespace tarvelo {

// What a patch brings into an erased area, and where it begins in the new dump.
struct AreaMove {
  Region from;  // in the old dump
  Offset to = 0;

  [[nodiscard]] bool operator==(const AreaMove&) const = default;
};

// The first and last offset: "01F000-01F0FF".
[[nodiscard]] std::string TextOf(const Region& area);

class BroughtAreas {
 public:
  static constexpr Offset page = 0x4000;  // of phone addresses
  static constexpr Offset segment = 0x10000;

  BroughtAreas() = default;
  // The erased pieces of a patch. Each keeps its phone address if the new dump is erased there, and goes
  // where `moves` says otherwise.
  BroughtAreas(const PatchedImage& image, const Fullflash& now, std::span<const AreaMove> moves);

  [[nodiscard]] const std::vector<AreaMove>& All() const { return areas_; }
  // Where a byte of an erased piece goes, or the end of a moved one; nothing: it cannot be brought.
  [[nodiscard]] std::optional<Offset> NewOf(Offset old) const;
  // The moved area with an old phone address, or its end; null: none.
  [[nodiscard]] const AreaMove* MovedAt(std::uint32_t address) const;
  // Whether a word may be the page or segment of an old address in a moved area, or the offset in one, and
  // that becomes another. A near pointer goes through a DPP that something in the dump sets to its page.
  [[nodiscard]] bool MayBeNumber(std::uint32_t word) const { return Holds(isNumber_, word); }
  [[nodiscard]] bool MayBeOffset(std::uint32_t word) const { return Holds(isOffset_, word); }

 private:
  using Words = std::vector<bool>;  // by word; empty: none

  [[nodiscard]] static bool Holds(const Words& words, std::uint32_t word) {
    return word < words.size() && words[word];
  }
  [[nodiscard]] const AreaMove* At(Offset old) const;
  [[nodiscard]] bool Moves(const AreaMove& area) const { return Shift(area) != 0; }
  [[nodiscard]] Offset Shift(const AreaMove& area) const;  // of phone addresses
  void FindWords(const PatchedImage& image);
  void AddNumbers(const AreaMove& area);
  void AddOffsets(const AreaMove& area, const std::vector<std::uint8_t>& dpps);

  std::vector<AreaMove> areas_;  // by old place
  Words isNumber_, isOffset_;
  Offset oldBase_ = 0;
  Offset newBase_ = 0;
};

}  // namespace tarvelo
