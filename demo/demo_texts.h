// The firmware's texts: the demonstration phone's messages in every encoding that firmware and
// EEPROM know.
//
// From the start of the area, each kind 0x1000 bytes further on; within a kind each text follows
// the one before:
//
//   +0x0000  plain strings, ended by 0x00; the last three by 0x01, 0xFF, 0x00
//   +0x1000  strings with a length byte
//   +0x2000  Cyrillic strings with the prefix 0xD0
//   +0x3000  little-endian Unicode with a length byte
//   +0x4000  big-endian Unicode with a count of bytes
//   +0x5000  little-endian Unicode ended by 0xFFFF
//   +0x6000  packed 7-bit texts
//   +0x7000  language packs: English, German, Russian, Greek, Chinese; then the text that stands
//   for
//            all of them. A pack is the number of its messages (a word), the language's number (a
//            word), a pointer to each message, and the messages.
#pragma once

#include "demo/demo_flash.h"

namespace tarvelo {

void WriteTexts(Flash& flash, Area area);

}  // namespace tarvelo
