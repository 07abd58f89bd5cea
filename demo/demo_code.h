// What fills a firmware between the things that are looked for in it: machine code and the texts
// of its log.
#pragma once

#include "demo/demo_flash.h"

namespace tarvelo {

// Fills the area with made-up functions in the processor's instruction set: they call each other
// and pass pages and offsets of log texts, but do nothing sensible. The last bytes stay erased.
void WriteCode(Flash& flash, Area area);

}  // namespace tarvelo
