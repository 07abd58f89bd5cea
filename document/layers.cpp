#include "document/layers.h"

#include <algorithm>

namespace tarvelo {
namespace {

bool SpeaksOf(const Claim& claim, const Claim& record) {
  return claim.kind && claim.number == record.number && claim.number >= 0;
}

}  // namespace

Layers::Layers(const Explorer& explorer, const Dump& dump, const Findings& found) {
  if (explorer.claim) explorer.claim(dump, found, [this](const Claim& claim) { spans_.push_back({claim}); });
  for (std::size_t record = 0; record < explorer.count(found); ++record) {
    const Item item = explorer.item(found, record);
    for (const Region& region : {item.entry, item.data}) {
      spans_.push_back({{.offset = region.offset, .size = region.size, .number = item.number},
                        static_cast<std::uint32_t>(record)});
      if (item.entry == item.data) break;
    }
  }
  std::erase_if(spans_, [](const Span& span) { return span.claim.size <= 0; });
  std::ranges::stable_sort(spans_, {}, [](const Span& span) { return span.claim.offset; });
  Offset reach = 0;
  for (const Span& span : spans_) reach_.push_back(reach = std::max(reach, span.claim.End()));
}

std::vector<Layer> Layers::At(Offset offset) const {
  std::vector<Layer> layers;
  std::vector<Layer> records;
  const auto behind =
      std::ranges::upper_bound(spans_, offset, {}, [](const Span& span) { return span.claim.offset; });
  for (auto i = static_cast<std::size_t>(behind - spans_.begin()); i > 0 && reach_[i - 1] > offset; --i) {
    const Span& span = spans_[i - 1];
    if (span.claim.End() <= offset) continue;
    (span.record ? records : layers).push_back({span.claim, span.record});
  }
  for (const Layer& record : records) {
    const auto same =
        std::ranges::find_if(layers, [&](const Layer& layer) { return SpeaksOf(layer.claim, record.claim); });
    if (same == layers.end())
      layers.push_back(record);
    else
      same->record = record.record;
  }
  std::ranges::stable_sort(layers, std::greater<>(), [](const Layer& layer) { return layer.claim.size; });
  return layers;
}

}  // namespace tarvelo
