#include "shell/code/code_view.h"

#include <utility>

#include "document/short_texts.h"

namespace tarvelo {
namespace {

bool IsData(const ClaimKind& kind) {
  return kind.key != "code" && kind.key != "function" && kind.key != "unknown";
}

// What the map knows to be no code, without its gaps, and short texts outside functions.
std::vector<Region> DataOf(Bytes image, const DumpMap* map) {
  std::vector<Region> data;
  if (!map) return data;
  const auto add = [&data](const Region& region) {
    if (!data.empty() && data.back().End() == region.offset)
      data.back().size += region.size;
    else
      data.push_back(region);
  };
  for (const Claim& claim : map->regions) {
    const Region region{claim.offset, claim.size};
    if (IsData(*claim.kind))
      add(region);
    else if (claim.kind->key != "function")
      for (const Region& text : ShortTexts(image, region)) add(text);
  }
  return data;
}

std::vector<Offset> LabelsOf(const Dump& dump) {
  std::vector<Offset> labels;
  for (std::size_t i = 0; i < dump.names.Count(); ++i) {
    const Name name = dump.names[i];
    if (!name.name.empty()) labels.push_back(Offset{name.address} - dump.image.CorrBase());
  }
  return labels;
}

}  // namespace

CodeView::CodeView(const Dump& dump, const Messages& texts, std::shared_ptr<const FunctionList> functions,
                   std::shared_ptr<const DumpMap> map, const DppPages& dpps)
    : dump_(dump),
      functions_(std::move(functions)),
      map_(std::move(map)),
      rows_(dump.image.ff(), *functions_, DataOf(dump.image.ff(), map_.get()), LabelsOf(dump),
            dump.image.FirstWord()),
      reader_({&dump_, &rows_, functions_.get(), map_.get(), dpps}, texts) {}

const std::vector<FunctionJump>& CodeView::JumpsAt(Offset offset) const {
  static const std::vector<FunctionJump> none;
  const Function* function = functions_->At(offset);
  if (!function) return none;
  const auto [known, isNew] = jumps_.try_emplace(function->code.offset);
  if (isNew) known->second = JumpsWithin(dump_.image, *functions_, *function, lanes);
  return known->second;
}

}  // namespace tarvelo
