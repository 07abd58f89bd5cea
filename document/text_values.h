// The texts that the decoders read from an offset on, and the bytes of other texts in their place.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "text/bytes.h"

namespace tarvelo {

struct TextValue {
  std::string_view encoding;  // a technical term, the same in all languages
  std::string text;           // UTF-8, in one line, at most 200 characters
};

// One for each decoder, always in the same order. Decoders see 4096 bytes; a text that needs more is empty.
[[nodiscard]] std::vector<TextValue> ReadTextValues(Bytes bytes, Offset at);

// The text to edit of the decoder with this index. Nothing if the text is empty, or encoding it would not
// give its own bytes again.
[[nodiscard]] std::optional<std::string> EditableTextValue(Bytes bytes, Offset at, std::size_t decoder);

// The bytes to write at the offset for another text. If it is shorter than the old one, its end mark follows.
// Throws std::invalid_argument if the encoding lacks a character or the text cannot be edited, and
// std::overflow_error if it is longer than the old one.
[[nodiscard]] std::vector<std::uint8_t> TextValueBytes(Bytes bytes, Offset at, std::size_t decoder,
                                                       std::string_view text);

}  // namespace tarvelo
