// The one form in which every explorer's result is shown, saved and printed: captions and rows of
// text. The desktop's list, the saved list and the command line all read it.
#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/text_sink.h"
#include "resources/texts.h"

namespace tarvelo {

class Messages;

struct Table {
  struct Row {
    std::vector<std::string> cells;  // one a column, UTF-8
    bool marked = false;             // drawn in the colour of deleted things
  };

  std::vector<std::string> captions;  // one a column
  std::vector<Row> rows;
};

// A table of which each row is made when it is asked for: a senseless image may have millions of them,
// and a row takes a hundred times the room of what it tells of.
struct TableRows {
  std::vector<std::string> captions;
  std::size_t count = 0;
  std::function<Table::Row(std::size_t row)> row;  // 0 .. count - 1

  [[nodiscard]] Table All() const;
};

// Captions in a language: each a message, or as it stands.
[[nodiscard]] std::vector<std::string> Captions(
    const Messages& messages, std::initializer_list<std::variant<Text, const char*>> captions);

// The rows of a table that exists already, which must outlive them.
[[nodiscard]] TableRows RowsOf(const Table& table);

// The table as tab-separated text: the captions, then a line a row, each line ended by `lineEnd`.
// A tab or a line break inside a cell would break the columns; it is written as a blank.
[[nodiscard]] std::string TabSeparated(const Table& table, std::string_view lineEnd);

// The same, handed out in pieces of some 64 KiB.
void WriteTabSeparated(const TableRows& table, std::string_view lineEnd, const TextSink& write);

}  // namespace tarvelo
