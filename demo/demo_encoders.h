// Encodes texts as firmware and EEPROM store them, one function per encoding. Each returns the bytes with
// everything that the encoding puts around the text, and throws std::invalid_argument for a text that it
// cannot represent.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/byte_writer.h"

namespace tarvelo {

using TextBytes = ByteBuffer;

// Windows-1251 bytes, then the byte that ends the string: 0x00, 0x01 or 0xFF. The last small Russian letter
// cannot be represented, because its byte is 0xFF too.
[[nodiscard]] TextBytes PlainText(std::u16string_view text, std::uint8_t end = 0x00);

// A length byte, then Windows-1251 bytes.
[[nodiscard]] TextBytes CountedText(std::u16string_view text);

// The phones' Cyrillic form, ended by 0x00. Capital letters and small ones up to U+043F are 0xD0 and a byte;
// small ones from U+0440 on are their Windows-1251 byte. The last small letter cannot be represented.
[[nodiscard]] TextBytes CyrillicText(std::u16string_view text);

// A length byte and an unused one, then little-endian units.
[[nodiscard]] TextBytes UnicodeText(std::u16string_view text);

// A byte count, then big-endian units below 0x8000.
[[nodiscard]] TextBytes BigEndianText(std::u16string_view text);

// Little-endian units, then 0xFFFF.
[[nodiscard]] TextBytes OpenUnicodeText(std::u16string_view text);

// A character count, then characters of 7 bits packed from the low bits up.
[[nodiscard]] TextBytes PackedText(std::u16string_view text);

// The paged encoding of the language packs, ended by 0x00: a page byte at the start and at each change of
// page. Control characters are unencoded, in the page of the Latin letters. Ideographs are U+4E01 .. U+70FF,
// except the first of each page of 0x80, which would be the byte 0x00.
[[nodiscard]] TextBytes LanguageText(std::u16string_view text);

}  // namespace tarvelo
