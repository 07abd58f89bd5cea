#include "core/table.h"

namespace tarvelo {
namespace {

void AppendLine(std::string& text, const std::vector<std::string>& cells, std::string_view lineEnd) {
  for (std::size_t column = 0; column < cells.size(); ++column) {
    if (column > 0) text += '\t';
    for (const char c : cells[column]) text += c == '\t' || c == '\n' || c == '\r' ? ' ' : c;
  }
  text += lineEnd;
}

}  // namespace

std::string TabSeparated(const Table& table, std::string_view lineEnd) {
  std::string text;
  AppendLine(text, table.captions, lineEnd);
  for (const Table::Row& row : table.rows) AppendLine(text, row.cells, lineEnd);
  return text;
}

}  // namespace tarvelo
