// The list in every explorer's panel: a table with sorting, a filter line, search, and copying of rows. Rows
// are made only when they are drawn, so thousands of rows cost nothing. Long lists are sorted and filtered in
// steps while the window stays usable; what needs all rows in order waits for the last step.
#pragma once

#include <wx/dataview.h>
#include <wx/panel.h>
#include <wx/timer.h>

#include <functional>
#include <optional>
#include <vector>

#include "core/table.h"
#include "shell/list/row_order.h"
#include "shell/services/text_search.h"

class wxSearchCtrl;
class wxStaticText;

namespace tarvelo {

class Messages;

class ListView final : public wxPanel {
 public:
  explicit ListView(wxWindow* parent);

  // Shows a new list, unfiltered and in its own order. Each row is made when it is needed.
  void SetRows(TableRows rows);
  [[nodiscard]] const std::vector<std::string>& Captions() const { return rows_.captions; }
  // Shows a new list of the same columns. Keeps filter, order and the numbers of the selected rows.
  void ReplaceRows(TableRows rows);
  // Changes the captions of the columns.
  void SetCaptions(std::vector<std::string> captions);
  // Shows the same rows in different words. Keeps the current row, filter and order.
  void Reword(TableRows rows);

  // Shows a text above a list without rows; an empty text hides it.
  void SetEmptyHint(const wxString& hint);
  [[nodiscard]] const wxString& EmptyHint() const { return hint_; }

  // Leaves out the filter line, for a short list beside another one.
  void HideFilter();

  // The number of columns, from the first on, that are coloured in a marked row. By default all of them.
  void SetMarkedColumns(unsigned count) { markedColumns_ = count; }

  // The rows as they are on the screen: in its order, and only those that the filter shows.
  [[nodiscard]] TableRows ShownRows();
  [[nodiscard]] bool IsListed(std::size_t row);
  // The number of rows in the list, shown or not.
  [[nodiscard]] std::size_t RowCount() const { return rows_.count; }
  // A row of the list. Valid until the next call.
  [[nodiscard]] const Table::Row& Row(std::size_t row) const;

  // Rows are identified by their index in the table, whatever the order and filter on the screen.
  // The current row; none if there is none.
  [[nodiscard]] std::optional<std::size_t> Selected() const;
  // All selected rows, in the order on the screen.
  [[nodiscard]] std::vector<std::size_t> SelectedRows() const;
  // Makes a row current and scrolls to it; clears a filter that hides it. Calls onSelect.
  void Select(std::size_t row);
  // All selected rows, the current one first.
  [[nodiscard]] std::vector<std::size_t> Selection() const;
  // Selects these rows and no others, except those that the filter hides, and makes the first one current.
  // Calls onSelect with it.
  void SelectRows(const std::vector<std::size_t>& rows);

  // Moves the current row by this many rows on the screen, stopping at the first and the last one.
  void Step(int rows);

  // Searches the rows in the order on the screen for a text, ignoring case, in one column or in all: from the
  // top, or from the current row on or back, without that row. Selects the first match.
  bool Find(const std::string& text, SearchFrom from, std::optional<unsigned> column = {});

  // Sorts by a column's text; a second call for the same column reverses the order.
  void SortBy(unsigned column);
  // Shows only rows that contain the text in any column, ignoring case.
  void Filter(const std::string& text);

  // Copies the selected rows to the clipboard, tab-separated: Ctrl+C.
  void CopyRows() const;

  // Switches the filter line to a language; screen readers call the list `name`.
  void Recaption(const Messages& messages, Text name);
  // The width of all columns together with a scrollbar.
  [[nodiscard]] int BestColumnsWidth() const;
  [[nodiscard]] wxDataViewCtrl& Control() { return *control_; }

  std::function<void(std::size_t row)> onSelect;
  std::function<void(std::size_t row)> onActivate;          // double click, Enter
  std::function<void(const wxPoint& place)> onContextMenu;  // on the screen; wxDefaultPosition: at the mouse

 private:
  class Model;

  void ShowCurrent();
  [[nodiscard]] wxPoint MenuPlace() const;
  void FitColumns();
  void Arrange();
  void WorkOn();
  void FinishOrder();
  void ShowOrder();
  void ResetModel();
  void WrapHint();
  void Choose(const std::vector<std::size_t>& rows);
  void ShowCaptions();

  TableRows rows_;
  mutable std::size_t madeIndex_ = 0;  // the index of the row made last
  mutable std::optional<Table::Row> made_;
  unsigned markedColumns_ = static_cast<unsigned>(-1);
  std::vector<std::uint32_t> order_;  // the table's rows in the order on the screen
  std::optional<RowOrder> work_;      // the order to come
  std::vector<std::size_t> kept_;     // the rows to select then
  wxTimer next_;                      // goes on with it
  std::string filter_;                // in upper case
  std::string shownFilter_;           // that order_ was made with
  bool onlySorts_ = false;            // the rows on the screen only change their places
  std::optional<unsigned> sortColumn_;
  bool descending_ = false;
  wxSearchCtrl* filterLine_;
  wxStaticText* emptyHint_;
  wxString hint_;  // before it was wrapped
  wxDataViewCtrl* control_;
  wxObjectDataPtr<wxDataViewVirtualListModel> model_;
};

}  // namespace tarvelo
