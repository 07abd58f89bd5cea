#include "shell/list/list_view.h"

#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/srchctrl.h>
#include <wx/stattext.h>

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include "resources/messages.h"
#include "resources/texts.h"
#include "shell/base/blend.h"
#include "shell/base/legible_red.h"
#include "shell/base/strings.h"
#include "shell/platform/accessible_name.h"
#include "shell/platform/list_keys.h"
#include "shell/services/clipboard.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

constexpr int widestColumn = 60;  // characters; longer texts are cut off on the screen
constexpr std::size_t rowsMeasured = 500;
constexpr int usualHeight = 200;  // of the list on the screen, in pixels of 96 dots per inch; lower ones grow
constexpr std::size_t longestDrawn = 2000;  // bytes of a cell; a melody may have millions

// The ground of every second row, where the system has none: a little off the list's, in light and dark
// themes.
wxColour SecondRowColour() {
  return Blend(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT),
               wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW), 0.05);
}

// The part of a cell that can be visible, in one line as in saved lists.
std::string Drawn(std::string_view cell) {
  std::size_t end = std::min(cell.size(), longestDrawn);
  while (end > 0 && end < cell.size() && (cell[end] & 0xC0) == 0x80) --end;  // do not split a character
  return InOneLine(cell.substr(0, end));
}

// The width of a text in characters. Three-byte characters count twice, because most of them are wide in a
// monospaced font and the others are rare.
std::size_t WidthOf(std::string_view text) {
  const auto starts = std::ranges::count_if(text, [](unsigned char c) { return (c & 0xC0) != 0x80; });
  const auto wide = std::ranges::count_if(text, [](unsigned char c) { return c >= 0xE0; });
  return static_cast<std::size_t>(starts + wide);
}

}  // namespace

// Gives the control the cells to draw.
class ListView::Model final : public wxDataViewVirtualListModel {
 public:
  explicit Model(const ListView& view) : view_(view) {}

  void GetValueByRow(wxVariant& value, unsigned row, unsigned column) const override {
    const Table::Row* found = Find(row);
    value = found && column < found->cells.size() ? Wx(Drawn(found->cells[column])) : wxString();
  }

  bool GetAttrByRow(unsigned row, unsigned column, wxDataViewItemAttr& attr) const override {
    const Table::Row* found = column < view_.markedColumns_ ? Find(row) : nullptr;
    if (!found || !found->marked) return false;
    attr.SetColour(LegibleRed());
    return true;
  }

  bool SetValueByRow(const wxVariant&, unsigned, unsigned) override { return false; }

 private:
  [[nodiscard]] const Table::Row* Find(unsigned row) const {
    return row < view_.order_.size() ? &view_.Row(view_.order_[row]) : nullptr;
  }

  const ListView& view_;
};

ListView::ListView(wxWindow* parent)
    : wxPanel(parent),
      filterLine_(new wxSearchCtrl(this, wxID_ANY)),
      emptyHint_(new wxStaticText(this, wxID_ANY, wxString())),
      control_(new wxDataViewCtrl(this, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                  wxDV_MULTIPLE | wxDV_ROW_LINES | wxDV_VERT_RULES)),
      model_(new Model(*this)) {
  filterLine_->ShowCancelButton(true);
  control_->SetFont(wxFont(wxFontInfo().Family(wxFONTFAMILY_TELETYPE)));
  control_->SetAlternateRowColour(SecondRowColour());
  control_->AssociateModel(model_.get());
  platform::LeaveSearchToMenus(*control_);
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(filterLine_, 0, wxEXPAND | wxBOTTOM, FromDIP(4));
  column->Add(emptyHint_, 0, wxALL, FromDIP(6));
  column->Add(control_, 1, wxEXPAND);
  emptyHint_->Hide();
  SetSizer(column);

  next_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { WorkOn(); });
  Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent& event) {
    event.Skip();
    control_->SetAlternateRowColour(SecondRowColour());
  });
  Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    event.Skip();
    if (!hint_.empty()) WrapHint();
  });
  // A row that is chosen before the list has its height may stay scrolled out of it.
  Bind(wxEVT_SIZE, [this, height = 0](wxSizeEvent& event) mutable {
    event.Skip();
    const int before = std::exchange(height, event.GetSize().y);
    if (before < height && before < FromDIP(usualHeight)) CallAfter([this] { ShowCurrent(); });
  });
  filterLine_->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { Filter(Utf8(filterLine_->GetValue())); });
  control_->Bind(wxEVT_DATAVIEW_SELECTION_CHANGED, [this](wxDataViewEvent&) {
    if (const auto row = Selected(); row && onSelect) onSelect(*row);
  });
  control_->Bind(wxEVT_DATAVIEW_ITEM_ACTIVATED, [this](wxDataViewEvent&) {
    if (const auto row = Selected(); row && onActivate) onActivate(*row);
  });
  control_->Bind(wxEVT_DATAVIEW_ITEM_CONTEXT_MENU, [this](wxDataViewEvent& event) {
    // The context menu applies to the row under the mouse, even if the event of its selection is still to
    // come; a selection of several rows stays.
    if (event.GetItem().IsOk() && control_->GetSelectedItemsCount() <= 1)
      Select(order_[model_->GetRow(event.GetItem())]);
    if (onContextMenu) CallAfter([this] { onContextMenu(wxDefaultPosition); });
  });
  control_->Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    const int key = event.GetKeyCode();
    const bool isMenuKey =
        key == WXK_WINDOWS_MENU || key == WXK_MENU || (key == WXK_F10 && event.GetModifiers() == wxMOD_SHIFT);
    if (event.GetModifiers() == wxMOD_CONTROL && key == 'C')
      CopyRows();
    else if (isMenuKey && onContextMenu)
      onContextMenu(MenuPlace());
    else
      event.Skip();
  });
  control_->Bind(wxEVT_DATAVIEW_COLUMN_HEADER_CLICK, [this](wxDataViewEvent& event) {
    if (event.GetColumn() >= 0) SortBy(static_cast<unsigned>(event.GetColumn()));
  });
}

// Below the current row, for a context menu that a key opens.
wxPoint ListView::MenuPlace() const {
  const wxDataViewItem item = control_->GetCurrentItem();
  if (!item.IsOk()) return control_->ClientToScreen(FromDIP(wxPoint(24, 24)));
  control_->EnsureVisible(item);
  return control_->ClientToScreen(control_->GetItemRect(item).GetBottomLeft() + FromDIP(wxPoint(24, 0)));
}

void ListView::ShowCurrent() {
  const wxDataViewItem current = control_->GetCurrentItem();
  if (current.IsOk() && model_->GetRow(current) < order_.size()) control_->EnsureVisible(current);
}

void ListView::SetRows(TableRows rows) {
  control_->UnselectAll();
  work_.reset();
  filter_.clear();
  filterLine_->ChangeValue(wxString());
  sortColumn_.reset();
  ReplaceRows(std::move(rows));
}

void ListView::ReplaceRows(TableRows rows) {
  rows_ = std::move(rows);
  onlySorts_ = false;
  made_.reset();
  FitColumns();
  Arrange();
}

TableRows ListView::ShownRows() {
  FinishOrder();
  return {rows_.captions, order_.size(), [this](std::size_t i) { return Row(order_[i]); }};
}

bool ListView::IsListed(std::size_t row) {
  FinishOrder();
  return std::ranges::find(order_, row) != order_.end();
}

const Table::Row& ListView::Row(std::size_t row) const {
  if (!made_ || madeIndex_ != row) made_ = rows_.row(row);
  madeIndex_ = row;
  return *made_;
}

void ListView::SetEmptyHint(const wxString& hint) {
  hint_ = hint;
  emptyHint_->Show(!hint.empty());
  WrapHint();
}

void ListView::WrapHint() {
  emptyHint_->SetLabelText(hint_);
  emptyHint_->Wrap(std::max(1, GetClientSize().x - FromDIP(12)));
  Layout();
}

void ListView::HideFilter() {
  filterLine_->Hide();
  Layout();
}

void ListView::SetCaptions(std::vector<std::string> captions) {
  rows_.captions = std::move(captions);
  FitColumns();
}

void ListView::Reword(TableRows rows) {
  ReplaceRows(std::move(rows));
  if (!work_) SelectRows(Selection());
}

// Makes the columns as wide as the texts of the first rows; figures are padded to the same width in all rows.
void ListView::FitColumns() {
  if (control_->GetColumnCount() != rows_.captions.size()) control_->ClearColumns();
  const int character = control_->GetTextExtent("0").x;
  const std::size_t measured = std::min(rows_.count, rowsMeasured);
  for (unsigned i = 0; i < rows_.captions.size(); ++i) {
    std::size_t longest = WidthOf(rows_.captions[i]) + 2;  // room for the sort mark
    for (std::size_t row = 0; row < measured; ++row) longest = std::max(longest, WidthOf(Row(row).cells[i]));
    const int width = std::min(static_cast<int>(longest), widestColumn) * character + FromDIP(14);
    if (i == control_->GetColumnCount())
      control_->AppendTextColumn(wxString(), i, wxDATAVIEW_CELL_INERT, width, wxALIGN_LEFT,
                                 wxDATAVIEW_COL_RESIZABLE);
    else
      control_->GetColumn(i)->SetWidth(width);
  }
  ShowCaptions();
}

std::optional<std::size_t> ListView::Selected() const {
  const wxDataViewItem item = control_->GetCurrentItem();
  if (!item.IsOk() || control_->GetSelectedItemsCount() == 0) return {};
  const unsigned row = model_->GetRow(item);
  if (row >= order_.size()) return {};
  return order_[row];
}

std::vector<std::size_t> ListView::SelectedRows() const {
  wxDataViewItemArray items;
  control_->GetSelections(items);
  std::vector<std::size_t> rows;
  for (const wxDataViewItem& item : items) rows.push_back(model_->GetRow(item));
  std::ranges::sort(rows);
  std::erase_if(rows, [this](std::size_t row) { return row >= order_.size(); });
  for (std::size_t& row : rows) row = order_[row];
  return rows;
}

std::vector<std::size_t> ListView::Selection() const {
  std::vector<std::size_t> rows = SelectedRows();
  const auto current = Selected();
  const auto place = current ? std::ranges::find(rows, *current) : rows.end();
  if (place != rows.end()) std::rotate(rows.begin(), place, place + 1);
  return rows;
}

void ListView::SelectRows(const std::vector<std::size_t>& rows) {
  FinishOrder();
  Choose(rows);
  if (const auto current = Selected(); current && onSelect) onSelect(*current);
}

void ListView::Select(std::size_t row) {
  if (row >= rows_.count) return;
  FinishOrder();
  if (std::ranges::find(order_, row) == order_.end()) {
    filterLine_->ChangeValue(wxString());
    Filter({});
  }
  SelectRows({row});
}

void ListView::Step(int rows) {
  FinishOrder();
  if (order_.empty()) return;
  const auto current = Selected();
  if (!current) return Select(order_.front());
  const auto place = std::ranges::find(order_, *current) - order_.begin() + rows;
  Select(order_[static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(place, 0, std::ssize(order_) - 1))]);
}

bool ListView::Find(const std::string& text, SearchFrom from, std::optional<unsigned> column) {
  FinishOrder();
  const std::string upper = ToUpper(text);
  const auto holds = [&](std::size_t row) { return RowHolds(Row(row), upper, column); };
  const auto current = from == SearchFrom::Top ? std::nullopt : Selected();
  const auto place = current ? std::ranges::find(order_, *current) : order_.begin();
  std::optional<std::size_t> found;
  if (from == SearchFrom::Before) {
    const auto last = std::find_if(std::reverse_iterator(place), order_.rend(), holds);
    if (last != order_.rend()) found = *last;
  } else {
    const auto first = std::find_if(current ? place + 1 : place, order_.end(), holds);
    if (first != order_.end()) found = *first;
  }
  if (found) Select(*found);
  return found.has_value();
}

void ListView::SortBy(unsigned column) {
  descending_ = sortColumn_ == column && !descending_;
  sortColumn_ = column;
  onlySorts_ = filter_ == shownFilter_;
  Arrange();
  ShowCaptions();
}

int ListView::BestColumnsWidth() const {
  int width = wxSystemSettings::GetMetric(wxSYS_VSCROLL_X, control_) + FromDIP(4);
  for (unsigned i = 0; i < control_->GetColumnCount(); ++i) width += control_->GetColumn(i)->GetWidth();
  return width;
}

void ListView::ShowCaptions() {
  for (unsigned i = 0; i < control_->GetColumnCount(); ++i) {
    const wxString mark =
        sortColumn_ == i ? wxString::FromUTF8(descending_ ? " \u25BE" : " \u25B4") : wxString();
    control_->GetColumn(i)->SetTitle(Wx(rows_.captions[i]) + mark);
  }
}

void ListView::Filter(const std::string& text) {
  filter_ = ToUpper(text);
  onlySorts_ = false;
  Arrange();
}

void ListView::CopyRows() const {
  Table selected{rows_.captions, {}};
  for (const std::size_t row : SelectedRows()) selected.rows.push_back(Row(row));
  Copy(TabSeparated(selected, "\n"));
}

void ListView::Recaption(const Messages& messages, Text name) {
  const wxString hint = Wx(messages.Msg(Text::TypeToFilter));
  filterLine_->SetDescriptiveText(hint);
  platform::SetAccessibleName(*filterLine_, hint);
  platform::SetAccessibleName(*control_, Wx(messages.Msg(name)));
}

}  // namespace tarvelo
