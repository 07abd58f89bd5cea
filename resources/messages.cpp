#include "resources/messages.h"

#include <array>
#include <charconv>
#include <mutex>
#include <vector>

#include "message_tables.h"
#include "resources/texts.h"

namespace tarvelo {
namespace {

// A language's texts, indexed by message number.
using Table = std::vector<std::string>;

// In the order of Languages().
constexpr std::array tables{embedded::ru_tsv, embedded::en_tsv, embedded::pl_tsv, embedded::ch_tsv,
                            embedded::hr_tsv, embedded::es_tsv, embedded::it_tsv, embedded::fr_tsv,
                            embedded::de_tsv, embedded::pt_tsv, embedded::gr_tsv, embedded::cz_tsv};

// A text as the table file stores it: a final `\s` stands for a blank, which editors would strip.
std::string Unescape(std::string_view text) {
  if (text.ends_with("\\s")) return std::string(text.substr(0, text.size() - 2)) + ' ';
  return std::string(text);
}

// The first column is the number, the last one the text. In between, the English table has the name.
void Enter(Table& table, std::string_view line) {
  const auto tab = line.find('\t');
  std::size_t number = 0;
  if (tab == line.npos || std::from_chars(line.data(), line.data() + tab, number).ec != std::errc{}) return;
  if (number >= table.size()) table.resize(number + 1);
  table[number] = Unescape(line.substr(line.rfind('\t') + 1));
}

Table Parse(std::string_view file) {
  Table table;
  while (!file.empty()) {
    std::string_view line = file.substr(0, file.find('\n'));
    file.remove_prefix(std::min(file.size(), line.size() + 1));
    if (line.ends_with('\r')) line.remove_suffix(1);
    Enter(table, line);
  }
  return table;
}

// A language's table. The first thread to ask for it reads it.
const Table& TableOf(const Language& language) {
  static std::array<Table, tables.size()> parsed;
  static std::array<std::once_flag, tables.size()> once;
  const auto index = static_cast<std::size_t>(&language - Languages().data());
  std::call_once(once[index], [&] { parsed[index] = Parse(tables[index]); });
  return parsed[index];
}

}  // namespace

Messages::Messages(const Language& language) : language_(&language) {}

std::string_view Messages::Msg(Text text) const {
  const Table& table = TableOf(*language_);
  const auto number = static_cast<std::size_t>(text);
  return number < table.size() ? std::string_view(table[number]) : std::string_view();
}

std::string Messages::Label(Text text) const { return std::string(Msg(text)).append(Msg(Text::Colon)); }

std::string Messages::MsgS(Text message, std::string_view argument) const {
  constexpr std::string_view mark = "%s";
  std::string result;
  std::string_view text = Msg(message);
  for (auto at = text.find(mark); at != text.npos; at = text.find(mark)) {
    result.append(text.substr(0, at)).append("\"").append(argument).append("\"");
    text.remove_prefix(at + mark.size());
  }
  return result.append(text);
}

}  // namespace tarvelo
