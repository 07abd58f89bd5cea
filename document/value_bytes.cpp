#include "document/value_bytes.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>
#include <string>

#include "core/byte_writer.h"
#include "core/trimmed.h"
#include "files/file_text.h"

namespace tarvelo {
namespace {

constexpr std::uint32_t largestWord = 0xFFFF;

// Reads digits of a base up to the end of the text.
std::uint64_t ReadDigits(std::string_view digits, int base) {
  std::uint64_t value = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, base);
  if (error == std::errc::result_out_of_range) throw std::overflow_error(std::string(digits));
  if (error != std::errc{} || end != digits.data() + digits.size())
    throw std::invalid_argument(std::string(digits));
  return value;
}

std::uint64_t ReadMagnitude(std::string_view text) {
  if (text.starts_with("0x") || text.starts_with("0X")) return ReadDigits(text.substr(2), 16);
  if (text.ends_with('h') || text.ends_with('H')) return ReadDigits(text.substr(0, text.size() - 1), 16);
  return ReadDigits(text, 10);
}

std::uint32_t ReadHexNumber(std::string_view text, std::uint32_t largest) {
  text = Trimmed(text);
  if (text.starts_with("0x") || text.starts_with("0X")) text.remove_prefix(2);
  const std::uint64_t value = ReadDigits(text, 16);
  if (value > largest) throw std::overflow_error(std::string(text));
  return static_cast<std::uint32_t>(value);
}

}  // namespace

std::vector<std::uint8_t> NumberBytes(std::string_view text, int bits, ByteOrder order, Sign sign) {
  text = Trimmed(text);
  const bool isNegative = text.starts_with('-');
  const std::uint64_t magnitude = ReadMagnitude(text.substr(isNegative ? 1 : 0));
  const std::uint64_t half = std::uint64_t{1} << (bits - 1);
  const std::uint64_t most =
      isNegative ? (sign == Sign::Unsigned ? 0 : half) : (sign == Sign::Signed ? half - 1 : 2 * half - 1);
  if (magnitude > most) throw std::overflow_error(std::string(text));
  const std::uint64_t value = isNegative ? 0 - magnitude : magnitude;
  ByteBuffer bytes;
  for (int i = 0; i < bits; i += 8)
    bytes.push_back(static_cast<std::uint8_t>(value >> (order == ByteOrder::Little ? i : bits - 8 - i)));
  return bytes;
}

std::vector<std::uint8_t> PointerBytes(std::uint32_t address, ColonForm form, const Fullflash& image) {
  const int offsetBits = form == ColonForm::Page ? 14 : 16;
  ByteBuffer bytes;
  if (!image.PageMode()) {
    AppendDWord(bytes, address);
  } else if (address >> offsetBits > largestWord) {
    throw std::overflow_error("no pointer to " + std::to_string(address));
  } else {
    AppendWord(bytes, address & ((1U << offsetBits) - 1));
    AppendWord(bytes, address >> offsetBits);
  }
  return bytes;
}

std::vector<std::uint8_t> PointerBytes(std::string_view text, ColonForm form, const Dump& dump) {
  text = Trimmed(text);
  if (const auto known = dump.names.Find(text)) return PointerBytes(*known, form, dump.image);
  const auto colon = text.find(':');
  if (colon == text.npos || !dump.image.PageMode())
    return PointerBytes(ReadHexNumber(text, 0xFFFFFFFF), form, dump.image);
  ByteBuffer bytes;
  AppendWord(bytes, ReadHexNumber(text.substr(colon + 1), largestWord));
  AppendWord(bytes, ReadHexNumber(text.substr(0, colon), largestWord));
  return bytes;
}

std::uint32_t DosDateOf(std::string_view text) {
  text = Trimmed(text);
  std::uint32_t parts[6] = {};  // year .. second
  std::string_view rest = text;
  for (std::uint32_t& part : parts) {
    const std::string_view digits = rest.substr(0, rest.find_first_of("-: "));
    part = static_cast<std::uint32_t>(std::min<std::uint64_t>(ReadDigits(digits, 10), largestWord));
    rest.remove_prefix(std::min(digits.size() + 1, rest.size()));
  }
  const std::uint32_t date = (parts[0] - 1980) << 25 | parts[1] << 21 | parts[2] << 16 | parts[3] << 11 |
                             parts[4] << 5 | parts[5] / 2;
  if (DateText(date) != text) throw std::invalid_argument(std::string(text));
  return date;
}

}  // namespace tarvelo
