// The flash file system of the demonstration phone: one volume and the firmware's map of its units.
//
// A unit has its header at +0x80 and its records' bytes from +0x90 on. Its last bytes are the record
// directory, which grows downwards in slots of 12 bytes:
//
//   +0   state: 0xFC live, 0xF0 deleted         +4   phone address of the bytes, a double word
//   +1   0                                      +8   record number, a word
//   +2   number of bytes, a word                +10  0
//                                               +11  the state again
//
// The volume has pictures, a melody, texts, a hidden and an empty file. One text was rewritten, one deleted.
#pragma once

#include "demo/demo_flash.h"

namespace tarvelo {

// Fills `units` with units of 64 KiB or, for a large image, of 128 KiB, whose headers are longer; and `map`
// with their map. The addresses are those of a phone whose flash ends at 0x1000000, also in a large image.
void WriteFiles(Flash& flash, Area units, Area map);

}  // namespace tarvelo
