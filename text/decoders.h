// One small decoder for each way in which firmware and EEPROM keep text.
//
// Each takes the bytes (a fullflash image, or the buffer of an address book for WordA and GetStrA)
// and an offset or cursor into them, and gives back UTF-16 code units. A byte character is the
// Windows-1251 character of a byte; a unit character is a 16-bit unit as it stands.
//
// A parameter `Offset&` is advanced as each function says, and keeps the value it had reached when
// a fault ends the decoding. A fault is a read outside the bytes, thrown as std::out_of_range by
// all but GetStr, GetSiem and GetUni2, which catch it themselves.
#pragma once

#include <string>

#include "text/bytes.h"

namespace tarvelo {

// Byte characters up to the first 0x00, 0x01 or 0xFF. A string that runs past the end is empty.
[[nodiscard]] std::u16string GetStr(Bytes bytes, Offset offset);

// A length byte L, then L byte characters taken as they are, zeros included. Empty for L = 0 and for
// the erased L = 0xFF, where nothing more is read.
[[nodiscard]] std::u16string GetStrN(Bytes bytes, Offset offset);

// Byte characters up to the first 0x00 or 0xFF, where a byte 0xD0 is dropped and adds 0x30 to the
// byte after it: D0 90 .. D0 BF are the Cyrillic letters C0 .. EF. The offset ends on the stop byte.
// Empty on a read past the end and where a shifted byte passes 0xFF; the offset then stands on the
// byte that could not be read or shifted.
[[nodiscard]] std::u16string GetSiem(Bytes bytes, Offset& offset);

// A length byte L at the cursor, a byte that is skipped, then L little-endian units. The cursor ends
// on the first byte of the last unit. Empty for L = 0 and L = 0xFF, the cursor unmoved.
[[nodiscard]] std::u16string GetUni(Bytes bytes, Offset& cursor);

// A count of bytes L, then L / 2 big-endian units; the half of an odd count is rounded to the even
// neighbour (3 gives 2 units, 5 gives 2, 7 gives 4). The offset ends on the first byte of the last
// unit, at offset - 1 without one. A unit of 0x8000 and above, or one that cannot be read, ends the
// text: what stands before it is returned, the offset stands on it.
[[nodiscard]] std::u16string GetUni2(Bytes bytes, Offset& offset);

// A count of characters N, then N characters of 7 bits, packed from the low bits up as in short
// messages. The values are character codes as they stand; no alphabet is applied. The offset ends on
// the last byte read, which for a multiple of eight is the one behind the packed text.
[[nodiscard]] std::u16string GetPDU(Bytes bytes, Offset& offset);

// Little-endian units from the cursor up to the first one whose high byte is 0xFF, where the cursor
// ends.
[[nodiscard]] std::u16string GetUniFF(Bytes bytes, Offset& cursor);

// A firmware text in the language pack's paged encoding (langpack.h), up to the first 0x00, where the
// offset ends.
[[nodiscard]] std::u16string MessageHard(Bytes bytes, Offset& offset);

// The little-endian number of the two bytes at an offset of an address book.
[[nodiscard]] std::uint16_t WordA(Bytes book, Offset offset);

// A field of `width` bytes of an address book: byte characters up to the first 0x00.
[[nodiscard]] std::u16string GetStrA(Bytes book, Offset offset, int width);

}  // namespace tarvelo
