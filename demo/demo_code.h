// Fills the firmware between the things that explorers search for: machine code and the texts of its log.
#pragma once

#include "demo/demo_flash.h"

namespace tarvelo {

struct CodeVersion {
  std::uint32_t seed = 0;  // of the functions
  bool isLater = false;    // some functions of the seed are edited, and there are new ones between them
};

// Fills the area with invented functions in the processor's instruction set. They call each other and pass
// pages and offsets of log texts, but do nothing meaningful. The last bytes stay erased.
void WriteCode(Flash& flash, Area area, const CodeVersion& version);

}  // namespace tarvelo
