#include "patch/misfits.h"

#include <algorithm>

namespace tarvelo {

std::size_t CountMisfits(const ReadPatch& patch, const PatchCheck& check) {
  return patch.invalid.size() + check.Count(Fit::Mismatch) + check.Count(Fit::Outside);
}

std::vector<Misfit> MisfitsOf(const ReadPatch& patch, const PatchCheck& check, std::size_t most) {
  std::vector<Misfit> misfits;
  misfits.reserve(std::min(most, CountMisfits(patch, check)));
  std::size_t invalid = 0;
  const auto addInvalid = [&](std::size_t before) {
    for (; invalid < patch.invalid.size() && patch.invalid[invalid].line < before; ++invalid)
      if (misfits.size() < most) misfits.push_back({patch.invalid[invalid].line, true, invalid});
  };
  for (std::size_t i = 0; i < check.changes.size() && misfits.size() < most; ++i) {
    const Fit fit = check.changes[i].fit;
    if (fit == Fit::Fine || fit == Fit::Applied) continue;
    addInvalid(patch.changes[i].line);
    if (misfits.size() < most) misfits.push_back({patch.changes[i].line, false, i});
  }
  addInvalid(std::numeric_limits<std::size_t>::max());
  std::ranges::stable_sort(misfits, {}, &Misfit::line);  // a reversed patch has its last change first
  return misfits;
}

}  // namespace tarvelo
