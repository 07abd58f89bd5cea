#include "port/free_areas.h"

#include <algorithm>
#include <cstdlib>
#include <functional>

#include "core/erased_runs.h"

namespace tarvelo {
namespace {

constexpr Offset margin = 0x100;  // erased bytes on each side of a place
constexpr Offset finest = 0x100;  // places are moved by a multiple of it
constexpr Offset kept = 0x10000;  // bytes at the end of a dump that stay as they are

bool Crosses(Offset address, Offset size, Offset unit) {
  return address / unit != (address + size - 1) / unit;
}

bool HasRoom(const Region& area, const Region& place) {
  return place.offset >= area.offset + margin && place.End() + margin <= area.End();
}

}  // namespace

FreeAreas::FreeAreas(const Fullflash& image, std::span<const Region> used)
    : base_(image.CorrBase()), areas_(ErasedRuns(image.ff())) {
  Take({0, BroughtAreas::segment - base_});
  Take({std::ssize(image.ff()) - kept, kept});
  for (const Region& region : used) Take(region);
}

void FreeAreas::Take(const Region& region) {
  if (region.size <= 0) return;
  std::vector<Region> left;
  for (const Region& area : areas_) {
    const Offset firstEnd = std::min(area.End(), region.offset);
    const Offset second = std::max(area.offset, region.End());
    if (firstEnd > area.offset) left.push_back({area.offset, firstEnd - area.offset});
    if (second < area.End()) left.push_back({second, area.End() - second});
  }
  areas_ = std::move(left);
}

std::optional<Offset> FreeAreas::Find(Offset from, Offset size) const {
  std::vector<Region> areas = areas_;
  std::ranges::stable_sort(areas, std::greater{}, &Region::size);
  for (const Region& area : areas)
    if (const auto place = FindIn(area, from, size)) return place;
  return {};
}

std::optional<Offset> FreeAreas::FindIn(const Region& area, Offset from, Offset size) const {
  const Offset middle = area.offset + (area.size - size) / 2;
  for (const Offset step : {BroughtAreas::segment, BroughtAreas::page, finest}) {
    std::optional<Offset> best;
    const Offset start = area.offset + margin;
    const Offset rest = ((from - start - base_) % step + step) % step;
    for (Offset to = start + rest; to + size + margin <= area.End(); to += step)
      if (KeepsBounds(from, size, to) && (!best || std::abs(to - middle) < std::abs(*best - middle)))
        best = to;
    if (best) return best;
  }
  return {};
}

bool FreeAreas::Suits(Offset from, Offset size, Offset to) const {
  const auto hasRoom = [&](const Region& area) { return HasRoom(area, {to, size}); };
  return (to + base_ - from) % finest == 0 && KeepsBounds(from, size, to) &&
         std::ranges::any_of(areas_, hasRoom);
}

bool FreeAreas::KeepsBounds(Offset from, Offset size, Offset to) const {
  const Offset address = to + base_;
  const auto keeps = [&](Offset unit) {
    return (address - from) % unit == 0 || (!Crosses(from, size, unit) && !Crosses(address, size, unit));
  };
  return address + size <= 0x1000000 && keeps(BroughtAreas::segment) && keeps(BroughtAreas::page);
}

}  // namespace tarvelo
