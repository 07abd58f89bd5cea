// Erased areas of a dump for what a patch brings along.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <span>

#include "core/fullflash.h"
#include "core/region.h"
#include "port/brought_areas.h"

namespace tarvelo {

// The erased areas that nothing uses. Never offers segment 0, whose addresses are those of internal memory,
// the last 64 KiB, or the 256 bytes next to anything.
class FreeAreas {
 public:
  // `used` are regions to keep away from although they may be erased.
  FreeAreas(const Fullflash& image, std::span<const Region> used);

  // Keeps away from a region from now on.
  void Take(const Region& region);

  // The place for `size` bytes that are at phone address `from` elsewhere: in the longest area with room, as
  // near to its middle as possible. The offset in the segment stays or else that in the page, or else what
  // fits into one page stays in one. The place never crosses the end of a segment or page that it did not
  // cross before. Nothing if there is none.
  [[nodiscard]] std::optional<Offset> Find(Offset from, Offset size) const;
  // Whether Find could have found the place at `to`.
  [[nodiscard]] bool Suits(Offset from, Offset size, Offset to) const;

 private:
  [[nodiscard]] std::optional<Offset> FindIn(const Region& area, Offset from, Offset size) const;
  [[nodiscard]] bool KeepsBounds(Offset from, Offset size, Offset to) const;

  struct Longer {
    [[nodiscard]] bool operator()(const Region& a, const Region& b) const {
      return a.size != b.size ? a.size > b.size : a.offset < b.offset;
    }
  };

  void Add(Offset offset, Offset end);

  Offset base_;  // phone address of offset 0
  // With their margins: the end by the offset, and the longest first.
  std::map<Offset, Offset> ends_;
  std::set<Region, Longer> areas_;
};

}  // namespace tarvelo
