// The ringtone table and its data.
//
// The area begins with the table; melodies follow at +0x400, complete files at +0x4000. An entry has 8 bytes:
// the ringtone's number, 0, its kind, 0, and a pointer. Kinds 6 to 8 are complete files and point to a
// pointer to the file. The other kinds below 16 are melodies; kind 1 is not for the user.
#pragma once

#include "demo/demo_flash.h"

namespace tarvelo {

void WriteRingtones(Flash& flash, Area area);

}  // namespace tarvelo
