// What the bytes from an offset on can mean: numbers, pointers, a date, texts, an instruction. Most meanings
// can be written too.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/dump.h"

namespace tarvelo {

class Messages;

struct HexValue {
  std::string name;  // in a language, or a technical term
  std::string text;  // UTF-8, in one line; empty if the image ends first or the bytes have no such meaning
  std::optional<Offset> target;  // where a pointer, jump or call leads, if that is in the image
};

// All meanings of the bytes at an offset of the image, always in the same order.
[[nodiscard]] std::vector<HexValue> ReadValues(const Dump& dump, Offset at, const Messages& messages);

// The text with which editing a value begins; `value` is its index in ReadValues. Nothing if it cannot be
// written: an instruction, a text that would not give its own bytes again, or too few bytes.
[[nodiscard]] std::optional<std::string> EditableText(const Dump& dump, Offset at, std::size_t value);

// The bytes to write at the offset for another text of a value. A shorter text of the phone gets an end mark
// if it has one. Throws std::invalid_argument if the text has no such meaning, and std::overflow_error if it
// does not fit.
[[nodiscard]] std::vector<std::uint8_t> ValueBytes(const Dump& dump, Offset at, std::size_t value,
                                                   std::string_view text);

}  // namespace tarvelo
