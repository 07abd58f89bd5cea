// Runs every text decoder on arbitrary bytes, at a given offset and at the first offsets; encodes arbitrary
// text in the language pack's encoding and decodes it again.
#include <optional>

#include "fuzz/target.h"
#include "text/decoders.h"
#include "text/langpack.h"
#include "text/unicode.h"

namespace {

using namespace tarvelo;
using namespace tarvelo::fuzz;

using Decoder = std::u16string (*)(Bytes, Offset&);

// Returns nothing on a fault.
std::optional<std::u16string> Decode(Decoder decoder, Bytes bytes, Offset& at) try {
  std::u16string text = decoder(bytes, at);
  const std::string utf8 = ToUtf8(text);
  Check(ToUtf8(ToUtf16(utf8)) == utf8, "a decoded text is UTF-8");
  return text;
} catch (const std::out_of_range&) {
  return {};
}

bool IsByte(Bytes bytes, Offset at, std::uint8_t value) {
  return at >= 0 && at < static_cast<Offset>(bytes.size()) && bytes[static_cast<std::size_t>(at)] == value;
}

void DecodeCounted(Bytes bytes, Offset start) {
  Offset at = start;
  if (const auto text = Decode(GetUni, bytes, at))
    Check(at == start + 2 * static_cast<Offset>(text->size()), "GetUni ends on the last unit");
  if (const auto text = Decode(GetPDU, bytes, at = start))
    Check(IsByte(bytes, start, static_cast<std::uint8_t>(text->size())), "GetPDU gives all characters");
  const auto text = Decode(GetUni2, bytes, at = start);
  Check(text && text->size() <= 128, "GetUni2 catches its faults");
}

void DecodeStopped(Bytes bytes, Offset start) {
  Offset at = start;
  if (const auto text = Decode(GetUniFF, bytes, at)) {
    Check(at == start + 2 * static_cast<Offset>(text->size()), "GetUniFF ends behind the last unit");
    Check(IsByte(bytes, at + 1, 0xFF), "GetUniFF ends on a stop");
  }
  if (Decode(MessageHard, bytes, at = start)) Check(IsByte(bytes, at, 0), "MessageHard ends on a stop");
  const auto text = Decode(GetSiem, bytes, at = start);
  Check(text.has_value(), "GetSiem catches its faults");
  if (!text->empty()) Check(IsByte(bytes, at, 0) || IsByte(bytes, at, 0xFF), "GetSiem ends on a stop");
}

void DecodeByteTexts(Bytes bytes, Offset at, int width) {
  (void)GetStr(bytes, at);
  try {
    (void)WordA(bytes, at);
    Check(GetStrN(bytes, at).size() < 0xFF, "GetStrN takes up to 254 characters");
  } catch (const std::out_of_range&) {
  }
  try {
    Check(GetStrA(bytes, at, width).size() <= static_cast<std::size_t>(width), "GetStrA stays in its field");
  } catch (const std::out_of_range&) {
  }
}

bool HasPlace(char16_t u) { return u < 0x280 || (u >= 0x300 && u < 0x780); }

// Whether a character decodes to itself. The others come back as tags.
bool ComesBack(char16_t u) { return (u >= 0x20 && u < 0x200) || (u >= 0x300 && u < 0x700); }

// The text that the decoder must make of an encoded one: each character, and a tag at every change of page.
std::u16string Expected(std::u16string_view text) {
  std::u16string expected;
  unsigned lastPage = 0;
  for (const char16_t u : text) {
    const unsigned page = 0x95 + u / 0x80 - (u < 0x300 ? 0 : 2);
    if (page != lastPage) {
      char tag[8];
      std::snprintf(tag, sizeof tag, "<%02X>", page & 0xFF);
      expected += ToUtf16(tag);
    }
    lastPage = page;
    expected += u;
  }
  return expected;
}

void RoundTrip(std::u16string_view text) try {
  const std::vector<std::uint8_t> bytes = EncodeLangpack(text);
  Check(bytes.size() <= 300, "an encoded text has at most 300 bytes");
  if (std::ranges::all_of(text, ComesBack))
    Check(DecodeLangpack(bytes) == Expected(text), "an encoded text decodes to itself");
} catch (const std::overflow_error&) {
  Check(text.size() > 150 || !std::ranges::all_of(text, HasPlace), "a text that has its place is encoded");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input input({data, size});
  const Offset first = input.DWord();
  const int width = input.Byte();
  const Bytes bytes = input.Rest();
  const auto decode = [&](Offset at) {
    DecodeCounted(bytes, at);
    DecodeStopped(bytes, at);
    DecodeByteTexts(bytes, at, width);
  };
  decode(first);
  for (Offset at = -1; at < 8; ++at) decode(at);

  std::u16string units;
  while (!input.Rest().empty()) units += static_cast<char16_t>(input.Word());
  RoundTrip(units);
  RoundTrip(ToUtf16(TextOf(bytes)));
  const std::string upper = ToUpper(TextOf(bytes));
  Check(ToUpper(upper) == upper, "an upper-case text stays as it is");
  return 0;
}
