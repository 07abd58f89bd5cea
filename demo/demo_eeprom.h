// The demonstration phone's EEPROM blocks: live ones, deleted ones, and bytes that only look like blocks.
#pragma once

#include "demo/demo_flash.h"

namespace tarvelo {

// Fills the store in `eeprom`, the last 0xA0000 bytes of the image. The data of two blocks is in `oldSector`,
// at a phone address that ends in 0xBF0000 .. 0xBFFFFF.
void WriteEeprom(Flash& flash, Area eeprom, Area oldSector);

}  // namespace tarvelo
