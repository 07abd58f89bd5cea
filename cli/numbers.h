// Parses the numbers in options.
#pragma once

#include <cstdint>
#include <string>

namespace tarvelo::cli {

// ParseHex reads a hexadecimal number, with or without 0x; an empty text is 0. ParseDecimal reads a decimal
// one; if it is too large, the result is the largest int. Both throw WrongArguments, naming the option.
[[nodiscard]] std::uint32_t ParseHex(const std::string& option, std::string text);
[[nodiscard]] int ParseDecimal(const std::string& option, const std::string& text);

}  // namespace tarvelo::cli
