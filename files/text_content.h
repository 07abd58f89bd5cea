// Tells a file that is a text from other files, and decodes it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "text/bytes.h"

namespace tarvelo {

struct TextContent {
  std::string text;  // UTF-8, without a byte order mark
  std::string_view encoding;
};

// The text that these bytes are; nothing if they have characters that no text has. In this order: with a byte
// order mark what that says; ASCII; UTF-8; UTF-16 of Latin, Greek and Cyrillic letters in either byte order;
// Windows-1251. With `isCut`, the bytes are the beginning of a longer text and may end within a character.
[[nodiscard]] std::optional<TextContent> ReadText(Bytes bytes, bool isCut = false);

}  // namespace tarvelo
