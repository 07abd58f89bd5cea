#include "core/text_encoding.h"

#include <algorithm>
#include <stdexcept>

#include "core/byte_text.h"
#include "core/byte_writer.h"
#include "text/langpack.h"

namespace tarvelo {
namespace {

constexpr char16_t firstWide = 0x1100;       // from here on, characters are wider than a column
constexpr Offset longestLangpackText = 300;  // bytes that may lie between a tag and what it applies to

// Whether a unit alone makes a visible character. Half of a pair does not.
bool IsVisibleUnit(char16_t unit) {
  const bool isControl = unit < 0x20 || (unit >= 0x7F && unit < 0xA0);
  return !isControl && unit < 0xD800;
}

char16_t ShownUnit(Bytes bytes, Offset at, bool isBig) {
  if (at % 2 != 0) return u' ';
  if (at + 1 >= std::ssize(bytes)) return u'.';
  const std::uint16_t little = WordAt(bytes, at);
  const auto unit = static_cast<char16_t>(isBig ? little << 8 | little >> 8 : little);
  return IsVisibleUnit(unit) ? unit : u'.';
}

char16_t ShownInLangpack(Bytes bytes, Offset at) {
  const std::uint8_t byte = ByteAt(bytes, at);
  if (byte >= 0x80 || byte == 0) return u'.';
  const Offset end = std::max<Offset>(0, at - longestLangpackText);
  for (Offset i = at - 1; i >= end && ByteAt(bytes, i) != 0; --i) {
    if (ByteAt(bytes, i) < 0x80) continue;
    const std::uint8_t tagged[] = {ByteAt(bytes, i), byte};
    const std::u16string text = DecodeLangpack(tagged);
    const bool isTag = text.back() == u'>' && byte != '>';
    return isTag || text.back() >= firstWide ? u'.' : text.back();
  }
  return byte >= 0x20 ? char16_t{byte} : u'.';
}

std::optional<ByteBuffer> EncodeBytes(std::u16string_view text) {
  ByteBuffer bytes;
  for (const char16_t unit : text) {
    const auto byte = ByteOf(unit);
    if (!byte) return {};
    bytes.push_back(*byte);
  }
  return bytes;
}

}  // namespace

std::optional<std::vector<std::uint8_t>> EncodeText(std::u16string_view text, TextEncoding encoding) {
  if (text.empty()) return {};
  if (encoding == TextEncoding::Windows1251) return EncodeBytes(text);
  if (encoding == TextEncoding::Langpack) try {
      return EncodeLangpack(text);
    } catch (const std::overflow_error&) {
      return {};
    }
  ByteBuffer bytes;
  for (const char16_t unit : text)
    if (encoding == TextEncoding::Utf16Big)
      AppendBigWord(bytes, unit);
    else
      AppendWord(bytes, unit);
  return bytes;
}

char16_t ShownCharacter(Bytes bytes, Offset at, TextEncoding encoding) {
  switch (encoding) {
    case TextEncoding::Windows1251: return ShownCharacter(ByteAt(bytes, at));
    case TextEncoding::Langpack: return ShownInLangpack(bytes, at);
    default: return ShownUnit(bytes, at, encoding == TextEncoding::Utf16Big);
  }
}

std::optional<std::vector<std::uint8_t>> TypedBytes(char16_t character, Bytes bytes, Offset at,
                                                    TextEncoding encoding) {
  auto typed = EncodeText({&character, 1}, encoding);
  if (!typed || encoding != TextEncoding::Langpack) return typed;
  typed->erase(typed->begin());  // the tag of the page
  const Offset start = std::max<Offset>(0, at - longestLangpackText);
  const Bytes before = bytes.subspan(static_cast<std::size_t>(start), static_cast<std::size_t>(at - start));
  ByteBuffer text(before.begin(), before.end());
  AppendBytes(text, *typed);
  return ShownInLangpack(text, at - start) == character ? typed : std::nullopt;
}

}  // namespace tarvelo
