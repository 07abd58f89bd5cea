#include "document/text_values.h"

#include <algorithm>
#include <stdexcept>

#include "core/byte_writer.h"
#include "core/text_encoding.h"
#include "eeprom/block_report.h"
#include "text/decoders.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

constexpr Offset mostBytes = 0x1000;
constexpr std::size_t mostShown = 200;  // characters

// A decoder that can be turned round. `head` gives the bytes in front of the text's own.
struct TurnableDecoder {
  std::size_t index;  // in ReadAsText
  TextEncoding encoding;
  std::u16string (*decode)(Bytes bytes);
  ByteBuffer (*head)(Bytes old, std::size_t units);
  ByteBuffer endMark;
};

ByteBuffer NoHead(Bytes, std::size_t) { return {}; }
ByteBuffer Count(Bytes, std::size_t units) { return {static_cast<std::uint8_t>(units)}; }
ByteBuffer CountAndUnused(Bytes old, std::size_t units) { return {static_cast<std::uint8_t>(units), old[1]}; }
ByteBuffer CountOfBytes(Bytes, std::size_t units) { return {static_cast<std::uint8_t>(2 * units)}; }

template <auto decode>
std::u16string FromStart(Bytes bytes) {
  Offset start = 0;
  return decode(bytes, start);
}

// Without the tags, "<95>".
std::u16string LangpackText(Bytes bytes) {
  const std::u16string tagged = FromStart<MessageHard>(bytes);
  std::u16string text;
  for (std::size_t i = 0; i < tagged.size(); ++i)
    if (tagged[i] == u'<' && i + 3 < tagged.size() && tagged[i + 3] == u'>')
      i += 3;
    else
      text += tagged[i];
  return text;
}

const TurnableDecoder* FindDecoder(std::size_t index) {
  static const std::vector<TurnableDecoder> decoders = {
      {0, TextEncoding::Windows1251, FromStart<GetStr>, NoHead, {0}},
      {1, TextEncoding::Windows1251, FromStart<GetStrN>, Count, {}},
      {3, TextEncoding::Utf16Little, FromStart<GetUni>, CountAndUnused, {}},
      {4, TextEncoding::Utf16Big, FromStart<GetUni2>, CountOfBytes, {}},
      {5, TextEncoding::Utf16Little, FromStart<GetUniFF>, NoHead, {0xFF, 0xFF}},
      {7, TextEncoding::Langpack, LangpackText, NoHead, {0}},
  };
  const auto found = std::ranges::find(decoders, index, &TurnableDecoder::index);
  return found == decoders.end() ? nullptr : &*found;
}

Bytes BytesFrom(Bytes bytes, Offset at) {
  const Bytes rest = bytes.subspan(static_cast<std::size_t>(at));
  return rest.first(std::min(rest.size(), std::size_t{mostBytes}));
}

// The bytes of a text without its end mark; nothing if a character has none.
std::optional<ByteBuffer> Encode(const TurnableDecoder& decoder, Bytes old, std::u16string_view text) {
  const auto encoded = EncodeText(text, decoder.encoding);
  if (!encoded) return {};
  ByteBuffer bytes = decoder.head(old, text.size());
  AppendBytes(bytes, *encoded);
  return bytes;
}

// The text of these bytes, and its own bytes; nothing if it cannot be edited.
struct OldText {
  std::u16string text;
  std::size_t bytes = 0;
};

std::optional<OldText> ReadOld(const TurnableDecoder& decoder, Bytes bytes) try {
  OldText old{decoder.decode(bytes)};
  const auto encoded = bytes.size() < 2 ? std::nullopt : Encode(decoder, bytes, old.text);
  if (!encoded || encoded->size() > bytes.size() ||
      !std::equal(encoded->begin(), encoded->end(), bytes.begin()))
    return {};
  old.bytes = encoded->size();
  return old;
} catch (const std::out_of_range&) {
  return {};
}

}  // namespace

std::vector<TextValue> ReadTextValues(Bytes bytes, Offset at) {
  std::vector<TextValue> values;
  for (const BlockReading& reading : ReadAsText(BytesFrom(bytes, at), 0)) {
    std::u16string text = ToUtf16(InOneLine(reading.text));
    if (text.size() > mostShown) text = text.substr(0, mostShown) + u"...";
    values.push_back({reading.encoding, ToUtf8(text)});
  }
  return values;
}

std::optional<std::string> EditableTextValue(Bytes bytes, Offset at, std::size_t decoder) {
  const TurnableDecoder* turnable = FindDecoder(decoder);
  const auto old = turnable ? ReadOld(*turnable, BytesFrom(bytes, at)) : std::nullopt;
  return old ? std::optional(ToUtf8(old->text)) : std::nullopt;
}

std::vector<std::uint8_t> TextValueBytes(Bytes bytes, Offset at, std::size_t decoder, std::string_view text) {
  const TurnableDecoder* turnable = FindDecoder(decoder);
  const Bytes from = BytesFrom(bytes, at);
  const auto old = turnable ? ReadOld(*turnable, from) : std::nullopt;
  const std::u16string wanted = ToUtf16(text);
  auto written = old ? Encode(*turnable, from, wanted) : std::nullopt;
  if (!written) throw std::invalid_argument(std::string(text));
  if (written->size() > old->bytes) throw std::overflow_error(std::string(text));
  if (written->size() < old->bytes) AppendBytes(*written, turnable->endMark);
  ByteBuffer all(from.begin(), from.end());
  PutBytes(all, 0, *written);
  if (turnable->decode(all) != wanted) throw std::invalid_argument(std::string(text));  // a byte ends it
  return *written;
}

}  // namespace tarvelo
