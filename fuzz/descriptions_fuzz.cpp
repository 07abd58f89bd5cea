// Arbitrary bytes as a file of block descriptions.
#include "eeprom/block_store.h"
#include "eeprom/descriptions.h"
#include "fuzz/target.h"
#include "text/unicode.h"

namespace tarvelo::fuzz {
namespace {

void CheckText(const std::string& text) {
  const std::u16string units = ToUtf16(text);
  Check(units.size() <= 200, "a text has at most 200 units");
  Check(ToUtf8(units) == text, "a text is UTF-8");
  Check(std::ranges::none_of(units, [](char16_t c) { return c < 0x20; }), "a text has no control characters");
  Check(!text.starts_with(' ') && !text.ends_with(' '), "a text has no blanks around it");
}

}  // namespace

void Run(Bytes data) {
  const std::string_view file = TextOf(data);
  const Descriptions read = ParseDescriptions(file);
  const Descriptions all = GetDescriptions(file);
  std::string written;
  for (const auto& [number, text] : read) {
    Check(IsBlockNumber(number), "a described number is a block's");
    CheckText(text);
    Check(Describe(all, number) == text, "the user's text goes before the built-in one");
    written.append(std::to_string(number)).append("\t").append(text).append("\n");
  }
  Check(ParseDescriptions(written) == read, "what was read is read again");
}

}  // namespace tarvelo::fuzz
