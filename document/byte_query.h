// What a user searches for, and the bytes that it means.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/dump.h"

namespace tarvelo {

class Messages;

enum class QueryKind : std::uint8_t {
  Digits,       // hexadecimal, as in a pattern
  Windows1251,  // these four in the order of TextEncoding
  Utf16Little,
  Utf16Big,
  Langpack,
  Number8,
  Number16Little,
  Number16Big,
  Number32Little,
  Number32Big,
  PagePointer,
  SegmentPointer,
};
inline constexpr std::size_t queryKinds = static_cast<std::size_t>(QueryKind::SegmentPointer) + 1;

[[nodiscard]] std::string QueryName(QueryKind kind, const Messages& messages);

// The pattern (patch/pattern.h) of a text of this kind. Bytes are written as in a pattern, numbers and
// pointers as in value_bytes.h. Throws std::invalid_argument if the text is not of this kind or empty, and
// std::overflow_error if a number does not fit.
[[nodiscard]] std::string PatternOf(QueryKind kind, std::string_view text, const Dump& dump);

// The number of bytes of a pattern that PatternOf has made.
[[nodiscard]] Offset PatternSize(std::string_view pattern);

// The bytes of such a pattern, with those of `old` in place of wildcards. Both must have the same size.
[[nodiscard]] std::vector<std::uint8_t> Filled(std::string_view pattern, Bytes old);

}  // namespace tarvelo
