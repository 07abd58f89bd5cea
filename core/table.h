// The one form in which every explorer's result is shown, saved and printed: captions and rows of
// text. The desktop's list, the saved list and the command line all read it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvelo {

struct Table {
  struct Row {
    std::vector<std::string> cells;  // one a column, UTF-8
    bool marked = false;             // drawn in the colour of deleted things
  };

  std::vector<std::string> captions;  // one a column
  std::vector<Row> rows;
};

// The table as tab-separated text: the captions, then a line a row, each line ended by `lineEnd`.
// A tab or a line break inside a cell would break the columns; it is written as a blank.
[[nodiscard]] std::string TabSeparated(const Table& table, std::string_view lineEnd);

}  // namespace tarvelo
