// The list that every explorer's panel shows: a table with sorting, a line to filter it, search, and
// copying of rows. Rows are asked for when they are drawn, so that thousands cost nothing.
#pragma once

#include <wx/dataview.h>
#include <wx/panel.h>

#include <functional>
#include <optional>
#include <vector>

#include "core/table.h"

class wxSearchCtrl;

namespace tarvelo {

class Messages;

class ListView final : public wxPanel {
 public:
  explicit ListView(wxWindow* parent);

  // Shows a list from now on, unfiltered, in its own order. Each row is made when it is needed.
  void SetRows(TableRows rows);
  [[nodiscard]] const std::vector<std::string>& Captions() const { return rows_.captions; }
  // Other captions of the same columns.
  void SetCaptions(std::vector<std::string> captions);
  // Shows the same rows in other words. The current row stays so; order and filter do not.
  void Reword(TableRows rows);

  // How many columns of a marked row, from the first on, are drawn in colour; all of them otherwise.
  void SetMarkedColumns(unsigned count) { markedColumns_ = count; }

  // Rows of the list, whether shown or not.
  [[nodiscard]] std::size_t RowCount() const { return rows_.count; }
  // One of them. Stays as it is until the next row is asked for.
  [[nodiscard]] const Table::Row& Row(std::size_t row) const;

  // Rows are told by their index in the table, whatever the order and filter on the screen.
  // The current row; nothing when there is none.
  [[nodiscard]] std::optional<std::size_t> Selected() const;
  // All selected rows, as they stand on the screen.
  [[nodiscard]] std::vector<std::size_t> SelectedRows() const;
  // Makes a row the current one and scrolls to it; a filter that hides it is cleared. Calls onSelect.
  void Select(std::size_t row);

  // Moves on from the current row by so many rows as they stand on the screen, not beyond the first or
  // the last one.
  void Step(int rows);

  // Searches the rows as they stand on the screen for a text, in one column or in any, upper and lower
  // case alike: from the top, or from behind the current row. Selects the first that matches.
  bool Find(const std::string& text, bool behindCurrent, std::optional<unsigned> column = {});

  // Sorts by a column's text; by the same one again: the other way round.
  void SortBy(unsigned column);
  // Shows only rows that hold the text in any column, upper and lower case alike.
  void Filter(const std::string& text);

  // The selected rows, tab-separated, into the clipboard: Ctrl+C.
  void CopyRows() const;

  // Puts the filter line in a language; screen readers call the list by its name.
  void Recaption(const Messages& messages, Text name);
  // What all columns need, with a scrollbar beside them.
  [[nodiscard]] int BestColumnsWidth() const;
  [[nodiscard]] wxDataViewCtrl& Control() { return *control_; }

  std::function<void(std::size_t row)> onSelect;
  std::function<void(std::size_t row)> onActivate;  // double click, Enter
  std::function<void()> onContextMenu;

 private:
  class Model;

  void FitColumns();
  void Arrange();
  [[nodiscard]] bool RowHolds(std::size_t row, const std::string& upperText,
                              std::optional<unsigned> column = {}) const;
  void ShowCaptions();

  TableRows rows_;
  mutable std::size_t madeIndex_ = 0;  // the row made last
  mutable std::optional<Table::Row> made_;
  unsigned markedColumns_ = static_cast<unsigned>(-1);
  std::vector<std::size_t> order_;  // rows of the table as they stand on the screen
  std::string filter_;              // in upper case
  std::optional<unsigned> sortColumn_;
  bool descending_ = false;
  wxSearchCtrl* filterLine_;
  wxDataViewCtrl* control_;
  wxObjectDataPtr<Model> model_;
};

}  // namespace tarvelo
