#include "map/claims.h"

#include <algorithm>
#include <queue>
#include <tuple>

namespace tarvelo {
namespace {

bool IsWeaker(const MapRegion* a, const MapRegion* b) {
  const auto rank = [](const MapRegion* claim) {
    return std::tuple(claim->sure, claim->kind, claim->number, claim->offset, claim->source);
  };
  return rank(a) > rank(b);
}

MapRegion Part(const MapRegion& claim, Offset begin, Offset end) {
  MapRegion part = claim;
  part.offset = begin;
  part.size = end - begin;
  return part;
}

}  // namespace

void Append(std::vector<MapRegion>& regions, const MapRegion& region) {
  if (!regions.empty()) {
    MapRegion& last = regions.back();
    if (Part(region, last.offset, last.End()) == last) {
      last.size += region.size;
      return;
    }
  }
  regions.push_back(region);
}

void Claims::Add(MapRegion region) {
  const Offset begin = std::clamp<Offset>(region.offset, 0, imageSize_);
  const Offset end = std::clamp<Offset>(region.End(), begin, imageSize_);
  if (begin < end) claims_.push_back(Part(region, begin, end));
}

std::vector<MapRegion> Claims::Settle() && {
  std::ranges::sort(claims_, {}, &MapRegion::offset);
  std::priority_queue<const MapRegion*, std::vector<const MapRegion*>, decltype(&IsWeaker)> open(IsWeaker);
  std::vector<MapRegion> regions;
  auto next = claims_.begin();
  for (Offset p = 0; p < imageSize_;) {
    for (; next != claims_.end() && next->offset <= p; ++next) open.push(&*next);
    while (!open.empty() && open.top()->End() <= p) open.pop();
    const Offset nextBegin = next == claims_.end() ? imageSize_ : next->offset;
    const Offset end = open.empty() ? nextBegin : std::min(nextBegin, open.top()->End());
    Append(regions, Part(open.empty() ? MapRegion{} : *open.top(), p, end));
    p = end;
  }
  return regions;
}

}  // namespace tarvelo
