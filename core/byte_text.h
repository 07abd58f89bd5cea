// Bytes as text and back: hexadecimal digits, and the characters of Windows-1251.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "text/bytes.h"

namespace tarvelo {

// The Windows-1251 character of a byte, a dot where it has none that can be seen.
[[nodiscard]] char16_t ShownCharacter(std::uint8_t byte);

// Bytes as "45 23 84 02", which the search for bytes takes.
[[nodiscard]] std::string AsHex(Bytes bytes);
// Bytes as Windows-1251 text in UTF-8. What cannot be seen is a dot, but for tabs and line breaks.
[[nodiscard]] std::string AsText(Bytes bytes);

// The bytes of a text of pairs of hexadecimal digits, with blanks, commas and line breaks between them or
// not. Nothing for any other text, an empty one too.
[[nodiscard]] std::optional<std::vector<std::uint8_t>> ReadHex(std::string_view text);

// The Windows-1251 byte of a character, if it has one.
[[nodiscard]] std::optional<std::uint8_t> ByteOf(char32_t character);
// The value of a hexadecimal digit, if it is one.
[[nodiscard]] std::optional<std::uint8_t> DigitOf(char32_t character);

}  // namespace tarvelo
