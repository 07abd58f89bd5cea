#include "patch/patch_file_text.h"

#include <algorithm>
#include <optional>

#include "core/byte_text.h"
#include "patch/patch_document.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

bool IsUtf8(std::string_view bytes) { return ToUtf8(ToUtf16(bytes)) == bytes; }

std::string FromUtf16(std::string_view bytes, bool lowByteFirst) {
  std::u16string units;
  for (std::size_t at = 2; at + 1 < bytes.size(); at += 2) {
    const auto low = static_cast<std::uint8_t>(bytes[at + (lowByteFirst ? 0 : 1)]);
    const auto high = static_cast<std::uint8_t>(bytes[at + (lowByteFirst ? 1 : 0)]);
    units += static_cast<char16_t>(high << 8 | low);
  }
  return ToUtf8(units);
}

std::string FromBytes(std::string_view bytes) {
  std::u16string units;
  for (const char byte : bytes) units += FromWindows1251(static_cast<std::uint8_t>(byte));
  return ToUtf8(units);
}

// The text in Windows-1251; nothing if that lacks a character.
std::optional<std::string> ToBytes(std::string_view utf8) {
  std::string bytes;
  for (const char16_t unit : ToUtf16(utf8)) {
    const auto byte = unit == 0x98 ? std::uint8_t{0x98} : ByteOf(unit);  // the code page's gap
    if (!byte) return {};
    bytes += static_cast<char>(*byte);
  }
  return bytes;
}

std::string HeaderFor(std::string_view phone) {
  std::string header = PatchFile(phone, "");
  header.resize(header.size() - 2);  // the line break behind the empty document
  return header;
}

PatchFileText Decoded(std::string_view bytes) {
  if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF"))
    return {FromUtf16(bytes, bytes.front() == '\xFF'), PatchEncoding::Utf8, false};
  if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
  if (IsUtf8(bytes)) return {std::string(bytes), PatchEncoding::Utf8, false};
  return {FromBytes(bytes), PatchEncoding::Windows1251, false};
}

}  // namespace

PatchFileText ReadPatchFileText(std::string_view bytes, std::string_view phone) {
  PatchFileText read = Decoded(bytes);
  std::string& text = read.document;
  while (text.ends_with('\x1A')) text.pop_back();
  text = WithCrLf(text);
  const std::string header = HeaderFor(phone);
  read.hadHeader = text.starts_with(header) && text.ends_with("\r\n");
  if (read.hadHeader) text = text.substr(header.size(), text.size() - header.size() - 2);
  return read;
}

std::string PatchFileBytes(const PatchFileText& text, std::string_view phone) {
  std::string file = text.hadHeader ? PatchFile(phone, text.document) : WithCrLf(text.document);
  if (text.encoding == PatchEncoding::Windows1251)
    if (auto bytes = ToBytes(file)) return *std::move(bytes);
  return file;
}

std::size_t LongestLine(std::string_view text) {
  std::size_t longest = 0;
  PatchLineReader lines(text);
  while (const auto line = lines.Next()) longest = std::max(longest, line->size());
  return longest;
}

}  // namespace tarvelo
