#include "core/notation.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace tarvelo {
namespace {

constexpr std::string_view hexDigits = "0123456789ABCDEF";

std::string Pad(std::string_view filling, std::string_view text, std::size_t n) {
  if (text.size() >= n) return std::string(text.substr(text.size() - n));
  const std::size_t missing = std::min(n - text.size(), filling.size());
  return std::string(filling.substr(0, missing)).append(text);
}

}  // namespace

std::string Hex(std::int64_t wide) {
  auto value = static_cast<std::uint32_t>(wide);
  std::array<char, 8> buffer;
  std::size_t first = buffer.size();
  do {
    buffer[--first] = hexDigits[value & 0xF];
    value >>= 4;
  } while (value != 0);
  return {buffer.data() + first, buffer.size() - first};
}

std::string PadZero(std::string_view text, std::size_t n) { return Pad("000000", text, n); }

std::string PadSpace(std::string_view text, std::size_t n) { return Pad("     ", text, n); }

std::string HexColumn(std::int64_t value, std::size_t n) { return PadZero(Hex(value), n); }

std::string DecimalColumn(std::int64_t value, std::size_t n) { return PadSpace(std::to_string(value), n); }

std::string WholeHex(std::int64_t value, std::size_t n) {
  const std::string digits = Hex(value);
  return std::string(n - std::min(n, digits.size()), '0') + digits;
}

std::string WholeDecimal(std::int64_t value, std::size_t n) {
  const std::string digits = std::to_string(value);
  return std::string(n - std::min(n, digits.size()), ' ') + digits;
}

std::string Word2Str(std::int32_t value) {
  const auto word = static_cast<std::uint32_t>(value);
  return HexOfByte(static_cast<std::uint8_t>(word)) + HexOfByte(static_cast<std::uint8_t>(word >> 8));
}

std::string Adr2Str(std::int32_t address) { return Word2Str(address & 0x3FFF) + Word2Str(address >> 14); }

std::string HexOfByte(std::uint8_t byte) { return {hexDigits[byte >> 4], hexDigits[byte & 0xF]}; }

std::string DecOfByte(std::uint8_t byte) { return {hexDigits[byte / 10 % 10], hexDigits[byte % 10]}; }

}  // namespace tarvelo
