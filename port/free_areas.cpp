#include "port/free_areas.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

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

FreeAreas::FreeAreas(const Fullflash& image, std::span<const Region> used) : base_(image.CorrBase()) {
  for (const Region& run : ErasedRuns(image.ff())) Add(run.offset, run.End());
  Take({0, BroughtAreas::segment - base_});
  Take({std::ssize(image.ff()) - kept, kept});
  for (const Region& region : used) Take(region);
}

void FreeAreas::Add(Offset offset, Offset end) {
  if (end <= offset) return;
  ends_.emplace(offset, end);
  areas_.insert({offset, end - offset});
}

void FreeAreas::Take(const Region& region) {
  if (region.size <= 0) return;
  auto area = ends_.upper_bound(region.offset);
  if (area != ends_.begin()) --area;
  while (area != ends_.end() && area->first < region.End()) {
    const auto [offset, end] = *area;
    if (end <= region.offset) {
      ++area;
      continue;
    }
    area = ends_.erase(area);
    areas_.erase({offset, end - offset});
    Add(offset, region.offset);
    Add(region.End(), end);
  }
}

std::optional<Offset> FreeAreas::Find(Offset from, Offset size) const {
  for (const Region& area : areas_) {
    if (area.size < size + 2 * margin) break;
    if (const auto place = FindIn(area, from, size)) return place;
  }
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
  const auto after = ends_.upper_bound(to);
  if (after == ends_.begin()) return false;
  const auto& [offset, end] = *std::prev(after);
  return (to + base_ - from) % finest == 0 && KeepsBounds(from, size, to) &&
         HasRoom({offset, end - offset}, {to, size});
}

bool FreeAreas::KeepsBounds(Offset from, Offset size, Offset to) const {
  const Offset address = to + base_;
  const auto keeps = [&](Offset unit) {
    return (address - from) % unit == 0 || (!Crosses(from, size, unit) && !Crosses(address, size, unit));
  };
  return address + size <= 0x1000000 && keeps(BroughtAreas::segment) && keeps(BroughtAreas::page);
}

}  // namespace tarvelo
