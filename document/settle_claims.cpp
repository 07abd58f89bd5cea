#include "document/settle_claims.h"

#include <algorithm>
#include <queue>
#include <tuple>

namespace tarvelo {
namespace {

bool IsWeaker(const Claim* a, const Claim* b) {
  const auto rank = [](const Claim* claim) {
    return std::tuple(claim->sure, claim->kind->rank, claim->number, claim->offset, claim->source);
  };
  return rank(a) > rank(b);
}

Claim Part(const Claim& claim, Offset begin, Offset end) {
  Claim part = claim;
  part.offset = begin;
  part.size = end - begin;
  return part;
}

}  // namespace

void Append(std::vector<Claim>& regions, const Claim& region) {
  if (!regions.empty()) {
    Claim& last = regions.back();
    if (Part(region, last.offset, last.End()) == last) {
      last.size += region.size;
      return;
    }
  }
  regions.push_back(region);
}

void Claims::Add(const Claim& claim) {
  const Offset begin = std::clamp<Offset>(claim.offset, 0, imageSize_);
  const Offset end = std::clamp<Offset>(claim.End(), begin, imageSize_);
  if (begin < end) claims_.push_back(Part(claim, begin, end));
}

std::vector<Claim> Claims::Settle(const ClaimKind& unclaimed) && {
  std::ranges::sort(claims_, {}, &Claim::offset);
  std::priority_queue<const Claim*, std::vector<const Claim*>, decltype(&IsWeaker)> open(IsWeaker);
  std::vector<Claim> regions;
  auto next = claims_.begin();
  for (Offset p = 0; p < imageSize_;) {
    for (; next != claims_.end() && next->offset <= p; ++next) open.push(&*next);
    while (!open.empty() && open.top()->End() <= p) open.pop();
    const Offset nextBegin = next == claims_.end() ? imageSize_ : next->offset;
    const Offset end = open.empty() ? nextBegin : std::min(nextBegin, open.top()->End());
    Append(regions, Part(open.empty() ? Claim{.kind = &unclaimed} : *open.top(), p, end));
    p = end;
  }
  return regions;
}

}  // namespace tarvelo
