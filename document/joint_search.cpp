#include "document/joint_search.h"

#include <vector>

namespace tarvelo {

JointSearch::JointSearch(Dump& dump, std::span<const Explorer* const> explorers, Progress& progress)
    : dump_(dump) {
  std::vector<const SieveForm*> forms;
  for (const Explorer* explorer : explorers)
    if (const SieveForm* form = explorer->sieve ? explorer->sieve(dump) : nullptr) forms.push_back(form);
  if (forms.size() > 1) dump.marks = SieveMarks(dump.image.ff(), forms, progress);
}

}  // namespace tarvelo
