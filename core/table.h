// The form in which every explorer's result is shown, saved and printed: captions and rows of text. The
// desktop's list, the saved list and the command line all read it.
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
    std::vector<std::string> cells;  // one per column, UTF-8
    bool marked = false;             // drawn in the colour of deleted things
  };

  std::vector<std::string> captions;  // one per column
  std::vector<Row> rows;
};

// A table that makes each row on demand: a malformed image may give millions of rows, and a row takes a
// hundred times the memory of the record it describes.
struct TableRows {
  std::vector<std::string> captions;
  std::size_t count = 0;
  std::function<Table::Row(std::size_t row)> row;  // 0 .. count - 1

  [[nodiscard]] Table All() const;
};

// Captions in a language. Each is a message or a fixed text.
[[nodiscard]] std::vector<std::string> Captions(
    const Messages& messages, std::initializer_list<std::variant<Text, const char*>> captions);

// The rows of an existing table, which must outlive them.
[[nodiscard]] TableRows RowsOf(const Table& table);

// The table as tab-separated text: the captions, then one line per row, each line ending in `lineEnd`. A tab
// or other control character inside a cell would break the columns or a terminal, so it becomes a blank.
[[nodiscard]] std::string TabSeparated(const Table& table, std::string_view lineEnd);

// The same, written in pieces of about 64 KiB.
void WriteTabSeparated(const TableRows& table, std::string_view lineEnd, const TextSink& write);

}  // namespace tarvelo
