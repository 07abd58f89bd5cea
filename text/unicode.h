// Converts between the firmware's character codes and Unicode.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvelo {

// The character of a Windows-1251 byte. The code page leaves 0x98 undefined; it gives U+0098.
[[nodiscard]] char16_t FromWindows1251(std::uint8_t byte);

// UTF-16 to UTF-8. An unpaired surrogate becomes U+FFFD.
[[nodiscard]] std::string ToUtf8(std::u16string_view text);

// UTF-8 to UTF-16. Each byte outside a well-formed sequence becomes U+FFFD.
[[nodiscard]] std::u16string ToUtf16(std::string_view text);

// Converts Latin, Greek and Cyrillic letters to upper case and leaves all other characters alone. Unlike the
// C library's function, it does not depend on the machine's locale.
[[nodiscard]] char32_t ToUpper(char32_t c);
[[nodiscard]] std::string ToUpper(std::string_view utf8);

// The text with another character in place of each control character (U+0000 .. U+001F, U+007F .. U+009F),
// line breaks included: a blank, or a dot.
[[nodiscard]] std::string InOneLine(std::string_view utf8);
[[nodiscard]] std::string WithDots(std::string_view utf8);

}  // namespace tarvelo
