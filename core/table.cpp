#include "core/table.h"

#include <algorithm>

#include "resources/messages.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

// Collects text into pieces.
class Pieces {
 public:
  explicit Pieces(const TextSink& write) : write_(write) {}

  void Add(std::string_view text) {
    while (!text.empty()) {
      const std::string_view part = text.substr(0, pieceSize - text_.size());
      text_ += part;
      text.remove_prefix(part.size());
      if (text_.size() == pieceSize) Flush();
    }
  }

  void Flush() {
    if (!text_.empty()) write_(text_);
    text_.clear();
  }

 private:
  static constexpr std::size_t pieceSize = 0x10000;
  const TextSink& write_;
  std::string text_;
};

// Whether a byte of UTF-8 is a control character or may begin one.
bool MayBeControl(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 0x20 || byte == 0x7F || byte == 0xC2;
}

void AddLine(Pieces& text, const std::vector<std::string>& cells, std::string_view lineEnd) {
  for (std::size_t column = 0; column < cells.size(); ++column) {
    if (column > 0) text.Add("\t");
    const std::string& cell = cells[column];
    text.Add(std::ranges::any_of(cell, MayBeControl) ? InOneLine(cell) : cell);
  }
  text.Add(lineEnd);
}

}  // namespace

std::vector<std::string> Captions(const Messages& messages,
                                  std::initializer_list<std::variant<Text, const char*>> captions) {
  std::vector<std::string> texts;
  for (const auto& caption : captions) {
    const Text* message = std::get_if<Text>(&caption);
    texts.emplace_back(message ? messages.Msg(*message) : std::get<const char*>(caption));
  }
  return texts;
}

Table TableRows::All() const {
  Table table{captions, {}};
  table.rows.reserve(count);
  for (std::size_t i = 0; i < count; ++i) table.rows.push_back(row(i));
  return table;
}

TableRows RowsOf(const Table& table) {
  return {table.captions, table.rows.size(), [&table](std::size_t row) { return table.rows[row]; }};
}

std::string TabSeparated(const Table& table, std::string_view lineEnd) {
  std::string text;
  WriteTabSeparated(RowsOf(table), lineEnd, [&](std::string_view piece) { text += piece; });
  return text;
}

void WriteTabSeparated(const TableRows& table, std::string_view lineEnd, const TextSink& write) {
  Pieces text(write);
  AddLine(text, table.captions, lineEnd);
  for (std::size_t i = 0; i < table.count; ++i) AddLine(text, table.row(i).cells, lineEnd);
  text.Flush();
}

}  // namespace tarvelo
