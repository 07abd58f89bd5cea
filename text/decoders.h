// Decoders for the text encodings of firmware and EEPROM.
//
// Each takes bytes (a fullflash image; for WordA and GetStrA, the buffer of an address book) and an offset or
// cursor into them, and returns UTF-16 code units. A byte character is the Windows-1251 character of a byte.
// A unit character is a 16-bit unit, unconverted.
//
// A function with a parameter `Offset&` advances it as its comment says. If a fault ends the decoding, the
// parameter keeps the value it had reached. A fault is a read outside the bytes. GetStr, GetSiem and GetUni2
// catch it; all others throw it as std::out_of_range.
#pragma once

#include <string>

#include "text/bytes.h"

namespace tarvelo {

// Byte characters up to the first 0x00, 0x01 or 0xFF. A string that runs past the end is empty.
[[nodiscard]] std::u16string GetStr(Bytes bytes, Offset offset);

// A length byte L, then L byte characters, zeros included. Empty if L is 0 or 0xFF (erased); the decoder then
// reads no further.
[[nodiscard]] std::u16string GetStrN(Bytes bytes, Offset offset);

// Byte characters up to the first 0x00 or 0xFF. A byte 0xD0 is dropped and adds 0x30 to the next byte: D0 90
// .. D0 BF are the Cyrillic letters C0 .. EF. The offset ends on the stop byte. Empty if a read passes the
// end or a shifted byte passes 0xFF; the offset then stays on that byte.
[[nodiscard]] std::u16string GetSiem(Bytes bytes, Offset& offset);

// A length byte L at the cursor, an unused byte, then L little-endian units. The cursor ends on the first
// byte of the last unit. If L is 0 or 0xFF, the text is empty and the cursor does not move.
[[nodiscard]] std::u16string GetUni(Bytes bytes, Offset& cursor);

// A byte count L, then L / 2 big-endian units. Half of an odd count is rounded to the even neighbour (3 gives
// 2 units, 5 gives 2, 7 gives 4). The offset ends on the first byte of the last unit, or at offset - 1 if
// there are no units. A unit of 0x8000 or more, or an unreadable one, ends the text: the function returns the
// text before it, and the offset stays on it.
[[nodiscard]] std::u16string GetUni2(Bytes bytes, Offset& offset);

// A character count N, then N characters of 7 bits, packed from the low bits up as in short messages. The
// values are returned as character codes; no alphabet is applied. The offset ends on the last byte read. If N
// is a multiple of eight, that is the byte behind the packed text.
[[nodiscard]] std::u16string GetPDU(Bytes bytes, Offset& offset);

// Little-endian units from the cursor to the first unit with the high byte 0xFF. The cursor ends on that
// unit.
[[nodiscard]] std::u16string GetUniFF(Bytes bytes, Offset& cursor);

// A firmware text in the paged encoding of the language pack (langpack.h), up to the first 0x00. The offset
// ends on that byte.
[[nodiscard]] std::u16string MessageHard(Bytes bytes, Offset& offset);

// The little-endian word at an offset of an address book.
[[nodiscard]] std::uint16_t WordA(Bytes book, Offset offset);

// A field of `width` bytes of an address book: byte characters up to the first 0x00.
[[nodiscard]] std::u16string GetStrA(Bytes book, Offset offset, int width);

}  // namespace tarvelo
