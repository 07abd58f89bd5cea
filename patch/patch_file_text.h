// The text of a patch file, as it is read and written.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvelo {

enum class PatchEncoding : std::uint8_t { Utf8, Windows1251 };

struct PatchFileText {
  std::string document;  // UTF-8 with CR LF
  PatchEncoding encoding = PatchEncoding::Utf8;
  bool hadHeader = true;  // it had the lines that the program writes in front, which `document` lacks
};

// Reads the bytes of a patch file. UTF-16 text begins with a byte order mark; text that is not UTF-8 is
// Windows-1251. Drops bytes 0x1A at the end, a byte order mark, and the introductory lines of PatchFile if
// they name the same phone: a file for another phone keeps them as comments.
[[nodiscard]] PatchFileText ReadPatchFileText(std::string_view bytes, std::string_view phone);

// The bytes of a patch file with this document, the reverse of ReadPatchFileText. The header names the phone.
// In UTF-8 if the encoding lacks one of the characters, or if the file was UTF-16.
[[nodiscard]] std::string PatchFileBytes(const PatchFileText& text, std::string_view phone);

// The length of the longest line of a text, in bytes.
[[nodiscard]] std::size_t LongestLine(std::string_view text);

}  // namespace tarvelo
