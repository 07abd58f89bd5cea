#include "eeprom/descriptions.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

#include "block_descriptions.h"
#include "core/trimmed.h"
#include "eeprom/block_store.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

constexpr std::size_t longestText = 200;
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";  // some editors start every file with it

std::optional<int> BlockNumber(std::string_view text) {
  int number = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc{} || stop != end || !IsBlockNumber(number)) return std::nullopt;
  return number;
}

// A text that any list can show. A UTF-16 unit has at most three bytes in UTF-8, so the rest of a huge line
// is ignored.
std::string CleanText(std::string_view raw) {
  std::u16string text = ToUtf16(Trimmed(raw).substr(0, 4 * longestText));
  std::ranges::replace_if(
      text, [](char16_t c) { return c < 0x20 || (c >= 0x7F && c < 0xA0); }, u' ');
  if (text.size() > longestText) text.resize(longestText);
  const bool isHalf = !text.empty() && text.back() >= 0xD800 && text.back() < 0xDC00;
  if (isHalf) text.pop_back();
  return std::string(Trimmed(ToUtf8(text)));
}

}  // namespace

Descriptions ParseDescriptions(std::string_view file) {
  Descriptions descriptions;
  if (file.starts_with(byteOrderMark)) file.remove_prefix(byteOrderMark.size());
  while (!file.empty()) {
    const std::string_view line = file.substr(0, file.find('\n'));
    file.remove_prefix(std::min(file.size(), line.size() + 1));
    const auto tab = line.find('\t');
    if (line.starts_with('#') || tab == line.npos) continue;
    if (const auto number = BlockNumber(Trimmed(line.substr(0, tab))))
      descriptions.insert_or_assign(*number, CleanText(line.substr(tab + 1)));
  }
  return descriptions;
}

Descriptions GetDescriptions(std::string_view usersFile) {
  Descriptions descriptions = ParseDescriptions(usersFile);
  descriptions.merge(ParseDescriptions(embedded::eeprom_blocks_tsv));
  return descriptions;
}

std::string Describe(const Descriptions& descriptions, int number) {
  const auto found = descriptions.find(number);
  return found == descriptions.end() ? std::string() : found->second;
}

}  // namespace tarvelo
