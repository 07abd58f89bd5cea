// The firmware's texts: the demonstration phone's messages in every encoding of firmware and EEPROM.
//
// The kinds of text follow one another at intervals of 0x1000 bytes from the start of the area. Within a
// kind, the texts follow one another:
//
//   +0x0000  plain strings, ended by 0x00; the last three by 0x01, 0xFF, 0x00
//   +0x1000  strings with a length byte
//   +0x2000  Cyrillic strings with the prefix 0xD0
//   +0x3000  little-endian Unicode with a length byte
//   +0x4000  big-endian Unicode with a byte count
//   +0x5000  little-endian Unicode ended by 0xFFFF
//   +0x6000  packed 7-bit texts
//   +0x7000  language packs: English, German, Russian, Greek, Chinese; then the text "All languages".
//            A pack is the number of its messages (a word), the language's number (a word), a pointer
//            to each message, and the messages.
#pragma once

#include "demo/demo_flash.h"

namespace tarvelo {

void WriteTexts(Flash& flash, Area area);

}  // namespace tarvelo
