// One pass over an image for the searches of several explorers.
#pragma once

#include <span>

#include "core/dump.h"
#include "core/explorer.h"

namespace tarvelo {

// While it lives, the dump has the marks of these explorers' sieves, and each explorer's search looks at the
// marked blocks alone. The image must not change in that time.
class JointSearch {
 public:
  JointSearch(Dump& dump, std::span<const Explorer* const> explorers, Progress& progress);
  ~JointSearch() { dump_.marks = {}; }
  JointSearch(const JointSearch&) = delete;
  JointSearch& operator=(const JointSearch&) = delete;

 private:
  Dump& dump_;
};

}  // namespace tarvelo
