#include "shell/hex/hex_rows.h"

#include <algorithm>

#include "core/calculator.h"
#include "core/notation.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

constexpr std::uint32_t pageSize = 0x4000;
constexpr std::uint8_t undefinedByte = 0x98;  // of Windows-1251
constexpr std::string_view separators = " \t\r\n,";

std::string Digits(std::uint32_t value, int count) {
  std::string text = Hex(value);
  const auto width = static_cast<std::size_t>(count);
  return text.size() < width ? std::string(width - text.size(), '0') + text : text;
}

std::optional<Offset> Within(const Fullflash& image, Offset offset) {
  if (!image.IsOpen() || offset < 0 || offset > image.ffEnd()) return {};
  return offset;
}

std::optional<Offset> OffsetOf(const Fullflash& image, std::uint32_t address) {
  // Addresses of large images are negative as the base has it.
  return Within(image, static_cast<std::uint32_t>(address - static_cast<std::uint32_t>(image.CorrBase())));
}

std::string_view Trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(" \t\r\n");
  if (first == text.npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

std::uint32_t Number(std::string_view text) {
  text = Trimmed(text);
  if (text.starts_with("0x") || text.starts_with("0X")) text.remove_prefix(2);
  if (text.empty()) throw std::invalid_argument("no number");
  return HexVal(text);
}

}  // namespace

HexColumns::HexColumns(const Fullflash& image) : offsetDigits_(OffsetWidth(image)) {}

int HexColumns::ByteAt(int column) const {
  if (IsInText(column)) return std::clamp(column - Text(0), 0, bytesInRow - 1);
  int digits = std::max(0, column - Hex(0));
  if (column >= Hex(bytesInRow / 2) - 1) --digits;  // the gap in the middle
  return std::min(digits / 3, bytesInRow - 1);
}

int OffsetWidth(const Fullflash& image) {
  return std::max(image.OffDigits(), static_cast<int>(Hex(image.ffEnd()).size()));
}

std::string OffsetText(const Fullflash& image, Offset offset) {
  return Digits(static_cast<std::uint32_t>(offset), OffsetWidth(image));
}

std::string AddressText(const Fullflash& image, Offset offset) {
  const std::uint32_t address = image.PhoneAddress(offset);
  if (!image.PageMode()) return Digits(address, 8);
  return Digits(address / pageSize, 3) + ":" + Digits(address % pageSize, 4);
}

char16_t ShownCharacter(std::uint8_t byte) {
  constexpr std::uint8_t softHyphen = 0xAD;
  if (byte < 0x20 || byte == 0x7F || byte == undefinedByte || byte == softHyphen) return u'.';
  return FromWindows1251(byte);
}

std::string Reading(const Fullflash& image, Offset offset) {
  std::string text = image.ByteHex(offset);
  if (offset + 1 > image.ffEnd()) return text;
  const std::uint32_t word = image.Word(offset);
  text += " / " + Digits(word, 4);
  if (offset + 3 > image.ffEnd()) return text;
  const std::uint32_t dword = word | std::uint32_t{image.Word(offset + 2)} << 16;
  text += " / " + Digits(dword, 8);
  if (dword == 0 || dword == 0xFFFFFFFF) return text;
  const auto target = Within(image, Offset{image.GetAdr(offset)} - image.CorrBase());
  return target ? text + "  -> " + OffsetText(image, *target) : text;
}

std::string AsHex(Bytes bytes) {
  std::string text;
  text.reserve(bytes.size() * 3);
  for (const std::uint8_t byte : bytes) text.append(HexOfByte(byte)).append(1, ' ');
  if (!text.empty()) text.pop_back();
  return text;
}

std::string AsText(Bytes bytes) {
  std::u16string text;
  text.reserve(bytes.size());
  for (const std::uint8_t byte : bytes) {
    const bool isLayout = byte == '\t' || byte == '\r' || byte == '\n';
    text += isLayout ? char16_t{byte} : ShownCharacter(byte);
  }
  return ToUtf8(text);
}

std::optional<std::vector<std::uint8_t>> ReadHex(std::string_view text) {
  std::vector<std::uint8_t> bytes;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (separators.find(text[i]) != separators.npos) continue;
    const auto high = DigitOf(static_cast<unsigned char>(text[i]));
    if (!high || ++i == text.size()) return {};
    const auto low = DigitOf(static_cast<unsigned char>(text[i]));
    if (!low) return {};
    bytes.push_back(static_cast<std::uint8_t>(*high << 4 | *low));
  }
  if (bytes.empty()) return {};
  return bytes;
}

std::optional<std::uint8_t> ByteOf(char32_t character) {
  for (int byte = 0; byte <= 0xFF; ++byte)
    if (byte != undefinedByte && FromWindows1251(static_cast<std::uint8_t>(byte)) == character)
      return static_cast<std::uint8_t>(byte);
  return {};
}

std::optional<std::uint8_t> DigitOf(char32_t character) {
  const auto digit = std::u32string_view(U"0123456789ABCDEF").find(ToUpper(character));
  if (digit == std::u32string_view::npos) return {};
  return static_cast<std::uint8_t>(digit);
}

std::optional<Offset> ReadPlace(std::string_view text, PlaceKind kind, const Fullflash& image) {
  if (const auto colon = text.find(':'); colon != text.npos) {
    const std::uint64_t page = Number(text.substr(0, colon));
    const std::uint64_t address = page * pageSize + Number(text.substr(colon + 1));
    if (address > 0xFFFFFFFF) return {};
    return OffsetOf(image, static_cast<std::uint32_t>(address));
  }
  const std::uint32_t number = Number(text);
  if (kind == PlaceKind::AsOffset)
    if (const auto offset = Within(image, number)) return offset;
  return OffsetOf(image, number);
}

}  // namespace tarvelo
