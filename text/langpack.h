// The paged character encoding of the firmware's language packs.
//
// A byte b below 0x80 stands for the unit B + b. B is the base of the current page and is 0 at the start of
// every text. A byte of 0x80 or more is a tag, and in page 0 a control byte is one too. A tag sets the page,
// and the decoded text shows it as "<", two hexadecimal digits, ">".
//
//   bytes 0x95 .. 0x98   pages 0x0000, 0x0080, 0x0100, 0x0180
//   bytes 0x99 .. 0xA0   pages 0x0300, 0x0380, ... 0x0680
//   bytes 0xAA .. 0xEF   pages 0x4E00, 0x4E80, ... (CJK ideographs)
//   all others           page 0x0000
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "text/bytes.h"

namespace tarvelo {

// Decodes the bytes of one text. The text may have four units for each byte; no further memory is needed.
[[nodiscard]] std::u16string DecodeLangpack(Bytes bytes);

// Encodes a text for the language pack: a page byte at the start and at each change of page. A page covers
// 0x80 characters, but page 0x98 also takes U+0200 .. U+027F (as bytes that decode to tags). Throws
// std::overflow_error for characters that no page reaches, U+0280 .. U+02FF and from U+0780 up, and if the
// result would exceed 300 bytes.
[[nodiscard]] std::vector<std::uint8_t> EncodeLangpack(std::u16string_view text);

}  // namespace tarvelo
