#include "resources/messages.h"

#include <array>
#include <charconv>
#include <unordered_map>

#include "message_tables.h"

namespace tarvelo {
namespace {

using Table = std::unordered_map<int, std::string>;

// In the order of Languages().
constexpr std::array tables{embedded::ru_tsv, embedded::en_tsv, embedded::pl_tsv, embedded::ch_tsv,
                            embedded::hr_tsv, embedded::es_tsv, embedded::it_tsv, embedded::fr_tsv,
                            embedded::de_tsv, embedded::pt_tsv, embedded::gr_tsv, embedded::cz_tsv};

// A text of a table file: `\s` at its end stands for a blank, which editors would strip.
std::string Unescape(std::string_view text) {
  if (text.ends_with("\\s")) return std::string(text.substr(0, text.size() - 2)) + ' ';
  return std::string(text);
}

Table Parse(std::string_view file) {
  Table table;
  while (!file.empty()) {
    std::string_view line = file.substr(0, file.find('\n'));
    file.remove_prefix(std::min(file.size(), line.size() + 1));
    if (line.ends_with('\r')) line.remove_suffix(1);
    const auto tab = line.find('\t');
    int number = 0;
    if (tab == line.npos || std::from_chars(line.data(), line.data() + tab, number).ec != std::errc{})
      continue;
    table.insert_or_assign(number, Unescape(line.substr(tab + 1)));
  }
  return table;
}

// The table of a language, read at its first use.
const Table& TableOf(const Language& language) {
  static std::array<Table, tables.size()> parsed;
  const auto index = static_cast<std::size_t>(&language - Languages().data());
  Table& table = parsed[index];
  if (table.empty()) table = Parse(tables[index]);
  return table;
}

}  // namespace

Messages::Messages(const Language& language) : language_(&language) {}

std::string_view Messages::Msg(int n) const {
  const Table& table = TableOf(*language_);
  const auto found = table.find(n);
  return found == table.end() ? std::string_view{} : found->second;
}

std::string Messages::Label(int n) const { return std::string(Msg(n)).append(Msg(473)); }

std::string Messages::MsgS(int n, std::string_view argument) const {
  constexpr std::string_view mark = "%s";
  std::string result;
  std::string_view text = Msg(n);
  for (auto at = text.find(mark); at != text.npos; at = text.find(mark)) {
    result.append(text.substr(0, at)).append("\"").append(argument).append("\"");
    text.remove_prefix(at + mark.size());
  }
  return result.append(text);
}

}  // namespace tarvelo
