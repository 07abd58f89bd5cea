// How numbers and addresses are written: padded columns, hexadecimal, and the byte order in which
// the firmware's own pointers lie in memory.
//
// Results fit the small buffer of std::string: but for wide columns none of these allocates.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvelo {

// The low 32 bits in upper-case hexadecimal without leading zeros ("0" for 0).
[[nodiscard]] std::string Hex(std::int64_t value);

// The last n characters of six zeros (PadZero) or five blanks (PadSpace) with the text behind them: a
// shorter text is filled on the left, by six or five characters at most, a longer one loses its first
// characters.
[[nodiscard]] std::string PadZero(std::string_view text, std::size_t n);
[[nodiscard]] std::string PadSpace(std::string_view text, std::size_t n);

// Columns of n digits, hexadecimal filled with zeros, decimal filled with blanks. A longer number keeps its
// rightmost digits.
[[nodiscard]] std::string HexColumn(std::int64_t value, std::size_t n = 6);
[[nodiscard]] std::string DecimalColumn(std::int64_t value, std::size_t n);

// Columns likewise in which a longer number keeps all its digits.
[[nodiscard]] std::string WholeHex(std::int64_t value, std::size_t n = 6);
[[nodiscard]] std::string WholeDecimal(std::int64_t value, std::size_t n);

// A word as it lies in memory, low byte first, in four digits: 0x1234 gives "3412". Only the low
// 16 bits count.
[[nodiscard]] std::string Word2Str(std::int32_t value);

// The page pointer to a phone address as it lies in memory, offset word before page word:
// 0xA12345 is page 0x284, offset 0x2345, and gives "45238402".
[[nodiscard]] std::string Adr2Str(std::int32_t address);

// A byte in two upper-case hexadecimal digits, and the last two digits of its decimal value
// (123 gives "23": date fields have two).
[[nodiscard]] std::string HexOfByte(std::uint8_t byte);
[[nodiscard]] std::string DecOfByte(std::uint8_t byte);

}  // namespace tarvelo
