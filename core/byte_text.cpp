#include "core/byte_text.h"

#include "core/notation.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

constexpr std::uint8_t undefinedByte = 0x98;  // of Windows-1251
constexpr std::string_view separators = " \t\r\n,";

}  // namespace

char16_t ShownCharacter(std::uint8_t byte) {
  constexpr std::uint8_t softHyphen = 0xAD;
  if (byte < 0x20 || byte == 0x7F || byte == undefinedByte || byte == softHyphen) return u'.';
  return FromWindows1251(byte);
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

std::string AsCArray(Bytes bytes) {
  std::string text = "const unsigned char data[" + std::to_string(bytes.size()) + "] = {";
  text.reserve(text.size() + bytes.size() * 7);
  for (std::size_t i = 0; i < bytes.size(); ++i)
    text.append(i % 16 == 0 ? "\n  " : " ").append("0x").append(HexOfByte(bytes[i])).append(",");
  return text + "\n};\n";
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

}  // namespace tarvelo
