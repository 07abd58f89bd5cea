// The bytes of numbers, pointers and dates as users write them.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "core/places.h"

namespace tarvelo {

enum class ByteOrder : std::uint8_t { Little, Big };

// Which numbers are allowed: those of a type with a sign, without one, or of either.
enum class Sign : std::uint8_t { Signed, Unsigned, Either };

// The bytes of a number of 8, 16 or 32 bits. It is decimal or, with "0x" in front or "h" behind, hexadecimal;
// a minus may precede it. Throws std::invalid_argument if the text is not a number, and std::overflow_error
// if it needs more bits.
[[nodiscard]] std::vector<std::uint8_t> NumberBytes(std::string_view text, int bits, ByteOrder order,
                                                    Sign sign = Sign::Either);

// The four bytes of a pointer to a phone address as the firmware stores it: offset word, then page or segment
// word; in large images one double word. Throws std::overflow_error if page or segment need more than 16
// bits.
[[nodiscard]] std::vector<std::uint8_t> PointerBytes(std::uint32_t address, ColonForm form,
                                                     const Fullflash& image);

// The same for a text: page:offset or segment:offset, a phone address, or the name of a place, all numbers
// hexadecimal. Throws as NumberBytes does.
[[nodiscard]] std::vector<std::uint8_t> PointerBytes(std::string_view text, ColonForm form, const Dump& dump);

// The double word of a date of DOS, written as "2003-11-24 17:58:42". Throws std::invalid_argument if it is
// not a date of this form from 1980 to 2107, with an even second.
[[nodiscard]] std::uint32_t DosDateOf(std::string_view text);

}  // namespace tarvelo
