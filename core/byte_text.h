// Converts bytes to text and back: hexadecimal digits, and Windows-1251 characters.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "text/bytes.h"

namespace tarvelo {

// Whether a byte is a printable ASCII character.
[[nodiscard]] constexpr bool IsPrintable(std::uint8_t byte) { return byte >= 0x20 && byte <= 0x7E; }

// The Windows-1251 character of a byte, or a dot if it is not visible.
[[nodiscard]] char16_t ShownCharacter(std::uint8_t byte);

// Bytes as "45 23 84 02". The byte search accepts this form.
[[nodiscard]] std::string AsHex(Bytes bytes);
// Bytes as Windows-1251 text in UTF-8. Tabs and line breaks stay; other invisible characters become dots.
[[nodiscard]] std::string AsText(Bytes bytes);

// Bytes as a C array, 16 in a line.
[[nodiscard]] std::string AsCArray(Bytes bytes);

// Reads pairs of hexadecimal digits, with or without blanks, tabs, commas and line breaks between them.
// Returns nothing for any other text, including an empty one.
[[nodiscard]] std::optional<std::vector<std::uint8_t>> ReadHex(std::string_view text);

// The Windows-1251 byte of a character, if it has one.
[[nodiscard]] std::optional<std::uint8_t> ByteOf(char32_t character);
// The value of a hexadecimal digit, if it is one.
[[nodiscard]] std::optional<std::uint8_t> DigitOf(char32_t character);

}  // namespace tarvelo
