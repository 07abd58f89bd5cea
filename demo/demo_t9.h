// The area of the predictive text input (T9), with dictionaries invented for the demonstration.
//
//   +0   "T9"
//   +2   version, a word
//   +4   size of all data written, a double word
//   +8   number of languages, a byte
//   +16  directory: for each language its name (8 bytes), the offset of its dictionary in the area
//        (a double word), the number of its words and the size of their list (words)
//   each dictionary, in one page: its name and a zero; its words in order, each as the number of
//        letters it shares with the previous word, the other letters, and 1..15 for how common it is;
//        then for each word the number of its keys (a byte) and the keys, two per byte
#pragma once

#include "demo/demo_flash.h"

namespace tarvelo {

// Writes the T9 area at the start of `area`. It ends with the erased rest of its last block.
void WriteT9(Flash& flash, Area area);

}  // namespace tarvelo
