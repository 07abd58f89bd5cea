#include "cli/numbers.h"

#include <charconv>
#include <limits>

#include "cli/context.h"
#include "core/calculator.h"

namespace tarvelo::cli {

std::uint32_t ParseHex(const std::string& option, std::string text) {
  if (text.starts_with("0x") || text.starts_with("0X")) text.erase(0, 2);
  try {
    return HexVal(text);
  } catch (const std::exception& error) {
    throw WrongArguments(option + ": " + error.what());
  }
}

int ParseDecimal(const std::string& option, const std::string& text) {
  int value = -1;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  const bool isNumber = !text.empty() && text[0] != '-' && end == text.data() + text.size();
  if (isNumber && error == std::errc::result_out_of_range) return std::numeric_limits<int>::max();
  if (!isNumber || error != std::errc{})
    throw WrongArguments(option + ": " + text + " is not a number from 0 up");
  return value;
}

}  // namespace tarvelo::cli
