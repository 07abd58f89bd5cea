#include "code/functions.h"

#include <algorithm>
#include <utility>

namespace tarvelo {

FunctionList::FunctionList(std::vector<Function> functions, std::vector<std::uint64_t> starts,
                           Offset firstWord)
    : functions_(std::move(functions)), starts_(std::move(starts)), firstWord_(firstWord) {}

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
  const Offset from = offset - firstWord_;
  const auto bit = static_cast<std::uint64_t>(from) / 2;
  return from >= 0 && from % 2 == 0 && bit / 64 < starts_.size() && (starts_[bit / 64] >> bit % 64 & 1) != 0;
}

}  // namespace tarvelo
