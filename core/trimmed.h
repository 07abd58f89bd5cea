// A text without the blanks around it.
#pragma once

#include <string_view>

namespace tarvelo {

// Without the spaces, tabs and line breaks in front and behind.
[[nodiscard]] inline std::string_view Trimmed(std::string_view text) {
  constexpr std::string_view blanks = " \t\r\n";
  const auto first = text.find_first_not_of(blanks);
  if (first == text.npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

}  // namespace tarvelo
