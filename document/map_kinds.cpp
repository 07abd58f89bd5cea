#include "document/map_kinds.h"

#include <algorithm>

#include "document/explorers.h"

namespace tarvelo::map {

std::vector<const ClaimGroup*> Groups() {
  std::vector<const ClaimGroup*> groups{&firmware, &t9Group};
  for (const Explorer* explorer : Explorers())
    for (const ClaimKind* kind : explorer->kinds)
      if (std::ranges::find(groups, kind->group) == groups.end()) groups.push_back(kind->group);
  groups.insert(groups.end(), {&textGroup, &codeGroup, &erasedGroup, &fillingGroup, &unknownGroup});
  return groups;
}

}  // namespace tarvelo::map
