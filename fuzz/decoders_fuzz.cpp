// Runs every text decoder on arbitrary bytes, at a given offset and at the first offsets; encodes arbitrary
// text in the language pack's encoding and decodes it again.
#include "fuzz/target.h"
#include "text/decoders.h"
#include "text/langpack.h"
#include "text/unicode.h"

namespace tarvelo::fuzz {
namespace {

void DecodeFrom(Bytes bytes, Offset start, int width) {
  for (const auto decoder : {GetSiem, GetUni, GetUni2, GetPDU, GetUniFF, MessageHard}) {
    Offset at = start;
    try {
      const std::string text = ToUtf8(decoder(bytes, at));
      Check(IsUtf8(text), "a decoded text is UTF-8");
    } catch (const std::out_of_range&) {
      Check(decoder != GetSiem && decoder != GetUni2, "some decoders catch their faults");
    }
    const Offset end = std::max<Offset>(start, std::ssize(bytes));
    Check(at >= start - 1 && at <= end + 1, "a text ends in its bytes or right behind them");
  }
  (void)GetStr(bytes, start);
  try {
    Check(GetStrN(bytes, start).size() < 0xFF, "GetStrN takes up to 254 characters");
  } catch (const std::out_of_range&) {
  }
  try {
    Check(GetStrA(bytes, start, width).size() <= static_cast<std::size_t>(width), "a field has its width");
    (void)WordA(bytes, start);
  } catch (const std::out_of_range&) {
  }
}

bool HasPlace(char16_t u) { return u < 0x280 || (u >= 0x300 && u < 0x780); }

// Whether a character decodes to itself. The others come back as tags, and "<" looks like one.
bool ComesBack(char16_t u) { return u != u'<' && ((u >= 0x20 && u < 0x200) || (u >= 0x300 && u < 0x700)); }

// A decoded text without the tags at its changes of page.
std::u16string WithoutTags(std::u16string text) {
  for (auto at = text.find(u'<'); at != text.npos; at = text.find(u'<', at)) text.erase(at, 4);
  return text;
}

void RoundTrip(std::u16string_view text) try {
  const std::vector<std::uint8_t> bytes = EncodeLangpack(text);
  Check(bytes.size() <= 300, "an encoded text has at most 300 bytes");
  if (std::ranges::all_of(text, ComesBack))
    Check(WithoutTags(DecodeLangpack(bytes)) == text, "an encoded text decodes to itself");
} catch (const std::overflow_error&) {
  Check(text.size() > 150 || !std::ranges::all_of(text, HasPlace), "a text that has its place is encoded");
}

}  // namespace

void Run(Bytes data) {
  Input input(data);
  const Offset first = input.DWord();
  const int width = input.Byte();
  const Bytes bytes = input.Rest();
  DecodeFrom(bytes, first, width);
  for (Offset at = -1; at < 8; ++at) DecodeFrom(bytes, at, width);

  std::u16string units;
  while (!input.Rest().empty()) units += static_cast<char16_t>(input.Word());
  RoundTrip(units);
  RoundTrip(ToUtf16(TextOf(bytes)));
  const std::string upper = ToUpper(TextOf(bytes));
  Check(ToUpper(upper) == upper, "an upper-case text stays as it is");
}

}  // namespace tarvelo::fuzz
