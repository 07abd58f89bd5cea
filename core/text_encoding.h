// The encodings that text can be written in, and that the hex view can show.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "text/bytes.h"

namespace tarvelo {

enum class TextEncoding : std::uint8_t { Windows1251, Utf16Little, Utf16Big, Langpack };

// In the order of TextEncoding; technical terms, the same in all languages.
inline constexpr std::array<std::string_view, 4> encodingNames{"Windows-1251", "UTF-16LE", "UTF-16BE",
                                                               "Langpack"};

// The bytes of a text, without an end mark. Nothing if a character has none, if the text is empty, or if it
// is too long for the language pack (300 bytes).
[[nodiscard]] std::optional<std::vector<std::uint8_t>> EncodeText(std::u16string_view text,
                                                                  TextEncoding encoding);

// What stands for a byte in a column of text: its character, a blank for the second byte of a UTF-16 unit,
// or a dot, also for characters that are too wide. UTF-16 units begin at even offsets. The page of a language
// pack's byte is that of the last tag in the same text. Throws std::out_of_range outside the bytes.
[[nodiscard]] char16_t ShownCharacter(Bytes bytes, Offset at, TextEncoding encoding);

// The bytes that typing a character writes at an offset. In the language pack it is one byte, in the page of
// the text there. Nothing if the character has no such bytes.
[[nodiscard]] std::optional<std::vector<std::uint8_t>> TypedBytes(char16_t character, Bytes bytes, Offset at,
                                                                  TextEncoding encoding);

}  // namespace tarvelo
