// Fills the firmware between the things that explorers search for: machine code and the texts of its log.
#pragma once

#include "demo/demo_flash.h"

namespace tarvelo {

// Fills the area with invented functions in the processor's instruction set. They call each other and pass
// pages and offsets of log texts, but do nothing meaningful. The last bytes stay erased.
void WriteCode(Flash& flash, Area area);

}  // namespace tarvelo
