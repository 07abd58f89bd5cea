#include "code/functions.h"

#include <algorithm>
#include <utility>

namespace tarvelo {

FunctionList::FunctionList(std::vector<Function> functions, std::vector<std::uint64_t> starts)
    : functions_(std::move(functions)), starts_(std::move(starts)) {}

const Function* FunctionList::At(Offset offset) const {
  auto after = std::ranges::upper_bound(functions_, offset, {},
                                        [](const Function& function) { return function.code.offset; });
  if (after == functions_.begin()) return nullptr;
  --after;
  return after->code.Holds(offset) ? &*after : nullptr;
}

const Function* FunctionList::Entry(Offset offset) const {
  const Function* const function = At(offset);
  return function && function->code.offset == offset ? function : nullptr;
}

bool FunctionList::IsInstruction(Offset offset) const {
  const auto bit = static_cast<std::uint64_t>(offset) / 2;
  return offset >= 0 && offset % 2 == 0 && bit / 64 < starts_.size() &&
         (starts_[bit / 64] >> bit % 64 & 1) != 0;
}

}  // namespace tarvelo
