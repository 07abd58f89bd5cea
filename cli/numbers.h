// Numbers as options have them.
#pragma once

#include <cstdint>
#include <string>

namespace tarvelo::cli {

// A hexadecimal number, with or without 0x (0 where the text is empty), and a decimal one (the largest int
// where it is larger). Both throw WrongArguments, naming the option.
[[nodiscard]] std::uint32_t ParseHex(const std::string& option, std::string text);
[[nodiscard]] int ParseDecimal(const std::string& option, const std::string& text);

}  // namespace tarvelo::cli
