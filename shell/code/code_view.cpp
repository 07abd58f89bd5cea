#include "shell/code/code_view.h"

#include <utility>

namespace tarvelo {
namespace {

bool IsData(const ClaimKind& kind) {
  return kind.key != "code" && kind.key != "function" && kind.key != "unknown";
}

// What the map knows to be no code, without its gaps.
std::vector<Region> DataOf(const DumpMap* map) {
  std::vector<Region> data;
  if (!map) return data;
  for (const Claim& claim : map->regions) {
    if (!IsData(*claim.kind)) continue;
    if (!data.empty() && data.back().End() == claim.offset)
      data.back().size += claim.size;
    else
      data.push_back({claim.offset, claim.size});
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
      rows_(dump.image.ff(), *functions_, DataOf(map_.get()), LabelsOf(dump)),
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
