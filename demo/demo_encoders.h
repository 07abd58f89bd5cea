// Writes texts as firmware and EEPROM keep them, one function an encoding. Each gives the bytes
// with all that the encoding itself puts before and behind the text, and throws
// std::invalid_argument for a text that it cannot hold.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/byte_writer.h"

namespace tarvelo {

using TextBytes = ByteBuffer;

// Windows-1251 bytes, then the byte that ends the string: 0x00, 0x01 or 0xFF. The last small
// Russian letter, which would end it too, cannot be held.
[[nodiscard]] TextBytes PlainText(std::u16string_view text, std::uint8_t end = 0x00);

// A length byte, then Windows-1251 bytes.
[[nodiscard]] TextBytes CountedText(std::u16string_view text);

// The phones' Cyrillic form, ended by 0x00: the capital letters and the small ones up to U+043F as
// 0xD0 and a byte, the small ones from U+0440 on as their Windows-1251 byte. The last small letter
// has no byte of its own.
[[nodiscard]] TextBytes CyrillicText(std::u16string_view text);

// A length byte and an unused one, then little-endian units.
[[nodiscard]] TextBytes UnicodeText(std::u16string_view text);

// A byte that counts bytes, then big-endian units below 0x8000.
[[nodiscard]] TextBytes BigEndianText(std::u16string_view text);

// Little-endian units, then 0xFFFF.
[[nodiscard]] TextBytes OpenUnicodeText(std::u16string_view text);

// A count of characters, then characters of 7 bits packed from the low bits up.
[[nodiscard]] TextBytes PackedText(std::u16string_view text);

// The paged encoding of the language packs, ended by 0x00. Begins with a page byte and has another
// one wherever the page changes; control characters stand as they are, in the page of the Latin
// letters. Ideographs are U+4E01 .. U+70FF but for the first of each page of 0x80, whose byte would
// be the end.
[[nodiscard]] TextBytes LanguageText(std::u16string_view text);

}  // namespace tarvelo
