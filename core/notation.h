// Formats numbers and addresses: padded columns, hexadecimal, and the byte order of the firmware's own
// pointers in memory.
//
// Results fit the small buffer of std::string: except for wide columns, none of these functions allocates.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvelo {

// The low 32 bits in upper-case hexadecimal, without leading zeros ("0" for 0).
[[nodiscard]] std::string Hex(std::int64_t value);

// Pads a text on the left to n characters, with at most six zeros (PadZero) or five blanks (PadSpace). A
// longer text loses its first characters.
[[nodiscard]] std::string PadZero(std::string_view text, std::size_t n);
[[nodiscard]] std::string PadSpace(std::string_view text, std::size_t n);

// Columns of n digits: hexadecimal ones are padded with zeros, decimal ones with blanks. A longer number
// keeps its rightmost digits.
[[nodiscard]] std::string HexColumn(std::int64_t value, std::size_t n = 6);
[[nodiscard]] std::string DecimalColumn(std::int64_t value, std::size_t n);

// The same, but a longer number keeps all its digits.
[[nodiscard]] std::string WholeHex(std::int64_t value, std::size_t n = 6);
[[nodiscard]] std::string WholeDecimal(std::int64_t value, std::size_t n);

// A word in memory order, low byte first, as four digits: 0x1234 gives "3412". Only the low 16 bits count.
[[nodiscard]] std::string Word2Str(std::int32_t value);

// The page pointer to a phone address in memory order, offset word before page word: 0xA12345 is page 0x284,
// offset 0x2345, and gives "45238402".
[[nodiscard]] std::string Adr2Str(std::int32_t address);

// A byte as two upper-case hexadecimal digits, or as the last two digits of its decimal value (123 gives
// "23", because date fields have two digits).
[[nodiscard]] std::string HexOfByte(std::uint8_t byte);
[[nodiscard]] std::string DecOfByte(std::uint8_t byte);

}  // namespace tarvelo
