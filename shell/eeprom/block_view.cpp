#include "shell/eeprom/block_view.h"

#include <wx/button.h>
#include <wx/dataview.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <algorithm>

#include "core/notation.h"
#include "shell/base/product.h"
#include "shell/base/program_picture.h"
#include "shell/base/splitter.h"
#include "shell/base/strings.h"
#include "shell/platform/accessible_name.h"
#include "shell/services/clipboard.h"
#include "shell/services/talk.h"
#include "shell/services/workbench.h"

namespace tarvelo {
namespace {

constexpr Text vColumn{};  // the V column has the same caption in every language
constexpr std::array<Text, BlockView::facts> factTexts{
    Text::ColumnDescription, Text::ColumnState,         Text::PhoneAddress, Text::ColumnSize, vColumn,
    Text::ColumnOffset,      Text::ColumnHeaderPosition};

struct Column {
  Text caption;
  int width;  // in device-independent pixels
};
constexpr Column generationColumns[] = {{Text::ColumnState, 110},  {vColumn, 50},
                                        {Text::ColumnSize, 80},    {Text::ColumnHeaderPosition, 180},
                                        {Text::ColumnOffset, 100}, {Text::ColumnData, 300}};

wxString HexText(std::int64_t value, std::size_t digits) { return Wx(PadZero(Hex(value), digits)); }

// An offset or address with all digits.
wxString PlaceText(std::int64_t value) { return Wx(WholeHex(value)); }

wxString CaptionOf(Text column, const Messages& texts) {
  return column == vColumn ? wxString("V") : Wx(texts.Msg(column));
}

wxDataViewListCtrl* MakeList(wxWindow* parent, long style = 0) {
  return new wxDataViewListCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                wxDV_ROW_LINES | wxDV_VERT_RULES | style);
}

void AddColumn(wxDataViewListCtrl& list, int width) {
  list.AppendTextColumn(wxString(), wxDATAVIEW_CELL_INERT, list.FromDIP(width), wxALIGN_LEFT,
                        wxDATAVIEW_COL_RESIZABLE);
}

// Copies the cells of the selected row, tab-separated; of a reading, the text alone.
void CopySelectedRow(const wxDataViewListCtrl& list) {
  const int row = list.GetSelectedRow();
  if (row == wxNOT_FOUND) return;
  const bool isReading = list.GetColumnCount() == 2;
  wxString text;
  for (unsigned column = isReading ? 1 : 0; column < list.GetColumnCount(); ++column)
    text << (text.empty() ? "" : "\t") << list.GetTextValue(static_cast<unsigned>(row), column);
  Copy(Utf8(text));
}

// Explains a button that has no words.
void Explain(wxButton& button, const wxString& text) {
  button.SetToolTip(text);
  platform::SetAccessibleName(button, text);
}

}  // namespace

BlockView::BlockView(Workbench& bench, std::function<const EepromFindings&()> blocks)
    : wxDialog(&bench.frame.Parent(), wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER | wxMAXIMIZE_BOX),
      bench_(bench),
      blocks_(std::move(blocks)) {
  const int gap = FromDIP(8);
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(MakeFacts(), 0, wxEXPAND | wxALL, gap);
  generationsLabel_ = new wxStaticText(this, wxID_ANY, wxString());
  column->Add(generationsLabel_, 0, wxLEFT | wxRIGHT, gap);
  generations_ = MakeList(this);
  for (const Column& part : generationColumns) AddColumn(*generations_, part.width);
  generations_->SetMinSize(FromDIP(wxSize(200, 110)));
  column->Add(generations_, 1, wxEXPAND | wxALL, gap);
  MakeSheets();
  column->Add(sheets_, 3, wxEXPAND | wxLEFT | wxRIGHT, gap);
  column->Add(MakeButtons(), 0, wxEXPAND | wxALL, gap);
  SetSizer(column);
  SetMinSize(FromDIP(wxSize(480, 360)));
  SetSize(FromDIP(wxSize(940, 600)));
  SetEscapeId(wxID_CLOSE);
  SetIcons(ProgramIcons());
  Bind();
  Recaption();
  CentreOnParent();
}

wxSizer* BlockView::MakeFacts() {
  for (std::size_t i = 0; i < facts; ++i) {
    labels_[i] = new wxStaticText(this, wxID_ANY, wxString());
    values_[i] = new wxStaticText(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                                  wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE);
    values_[i]->SetFont(values_[i]->GetFont().Bold());
  }
  auto* top = new wxBoxSizer(wxHORIZONTAL);
  top->Add(labels_[Description], 0, wxRIGHT, FromDIP(8));
  top->Add(values_[Description], 1);
  auto* grid = new wxFlexGridSizer(6, FromDIP(wxSize(8, 4)));
  for (std::size_t i = State; i < facts; ++i) {
    grid->Add(labels_[i], 0);
    grid->Add(values_[i], 0, wxEXPAND);
  }
  for (const std::size_t column : {1, 3, 5}) grid->AddGrowableCol(column, 1);
  auto* both = new wxBoxSizer(wxVERTICAL);
  both->Add(top, 0, wxEXPAND | wxBOTTOM, FromDIP(4));
  both->Add(grid, 0, wxEXPAND);
  return both;
}

void BlockView::MakeSheets() {
  sheets_ = NewSplitter(*this);
  dump_ = new wxTextCtrl(sheets_, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                         wxTE_MULTILINE | wxTE_READONLY | wxTE_RICH2 | wxTE_DONTWRAP | wxTE_NOHIDESEL);
  dump_->SetFont(wxFont(wxFontInfo().Family(wxFONTFAMILY_TELETYPE)));
  dump_->SetMargins(FromDIP(4));
  auto* right = new wxPanel(sheets_);
  readingsLabel_ = new wxStaticText(right, wxID_ANY, wxString());
  readings_ = MakeList(right, wxDV_NO_HEADER);
  AddColumn(*readings_, 150);
  AddColumn(*readings_, 400);
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(readingsLabel_, 0, wxEXPAND | wxBOTTOM, FromDIP(4));
  column->Add(readings_, 1, wxEXPAND);
  right->SetSizer(column);
  sheets_->SetMinimumPaneSize(FromDIP(100));
  sheets_->SplitVertically(dump_, right);
}

wxSizer* BlockView::MakeButtons() {
  previous_ = new wxButton(this, wxID_ANY, "<", wxDefaultPosition, wxDefaultSize, wxBU_EXACTFIT);
  next_ = new wxButton(this, wxID_ANY, ">", wxDefaultPosition, wxDefaultSize, wxBU_EXACTFIT);
  for (wxButton* arrow : {previous_, next_}) arrow->SetMinSize(FromDIP(wxSize(36, -1)));
  hexView_ = new wxButton(this, wxID_ANY, "-");
  close_ = new wxButton(this, wxID_CLOSE, "-");
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  row->Add(previous_, 0, wxEXPAND);
  row->Add(next_, 0, wxEXPAND | wxLEFT, FromDIP(4));
  row->AddStretchSpacer();
  row->Add(hexView_);
  row->Add(close_, 0, wxLEFT, FromDIP(8));
  return row;
}

void BlockView::Bind() {
  // The handler may refill the clicked list, so it waits until the click is over.
  generations_->Bind(wxEVT_DATAVIEW_ITEM_ACTIVATED, [this](wxDataViewEvent& event) {
    const int row = generations_->ItemToRow(event.GetItem());
    if (row >= 0) CallAfter([this, row] { Generation_Click(static_cast<std::size_t>(row)); });
  });
  for (wxDataViewListCtrl* list : {generations_, readings_})
    list->Bind(wxEVT_CHAR_HOOK, [list](wxKeyEvent& event) {
      if (event.GetModifiers() == wxMOD_CONTROL && event.GetKeyCode() == 'C')
        CopySelectedRow(*list);
      else
        event.Skip();
    });
  const auto follow = [this](wxEvent& event) {
    event.Skip();
    CallAfter([this] { ReadFromCaret(); });  // the control moves its caret after this
  };
  dump_->Bind(wxEVT_LEFT_UP, follow);
  dump_->Bind(wxEVT_KEY_UP, follow);
  const auto run = [this](wxButton* button, void (BlockView::*command)()) {
    button->Bind(wxEVT_BUTTON, [=, this](wxCommandEvent&) {
      bench_.talk.Guard(button->GetLabelText(), [=, this] { (this->*command)(); });
    });
  };
  run(previous_, &BlockView::Previous_Click);
  run(next_, &BlockView::Next_Click);
  run(hexView_, &BlockView::HexView_Click);
}

wxString BlockView::Msg(Text text) const { return Wx(bench_.texts.Msg(text)); }

void BlockView::Recaption() {
  for (std::size_t i = 0; i < facts; ++i)
    labels_[i]->SetLabelText(CaptionOf(factTexts[i], bench_.texts) + Msg(Text::Colon));
  generationsLabel_->SetLabelText(Wx(bench_.texts.Label(Text::OtherGenerations)));
  for (unsigned i = 0; i < std::size(generationColumns); ++i) {
    const auto& [caption, width] = generationColumns[i];
    const wxString title = CaptionOf(caption, bench_.texts);  // bold on some systems
    generations_->GetColumn(i)->SetTitle(title);
    generations_->GetColumn(i)->SetWidth(
        std::max(FromDIP(width), generations_->GetTextExtent(title).x * 9 / 8 + FromDIP(24)));
  }
  platform::SetAccessibleName(*generations_, Msg(Text::OtherGenerations));
  platform::SetAccessibleName(*dump_, Msg(Text::ColumnData));
  platform::SetAccessibleName(*readings_, Msg(Text::ReadAsText));
  Explain(*previous_, Msg(Text::PreviousBlock));
  Explain(*next_, Msg(Text::NextBlock));
  hexView_->SetLabelText(Msg(Text::OpenInHexView));
  close_->SetLabelText(Msg(Text::Close));
  if (shown_) {
    ShowFacts();
    ShowGenerations();
    ShowDump();
    ShowReadings();
  }
  Layout();
}

void BlockView::ShowBlock(std::size_t record) {
  Fill(record);
  if (!IsShown()) {
    Show();
    FitSash();
    dump_->SetFocus();
  }
  Raise();
}

void BlockView::Fill(std::size_t record) {
  report_ = ReportOf(Store(), record, bench_.document.Image());
  shown_ = record;
  start_ = 0;
  ShowFacts();
  ShowGenerations();
  ShowDump();
  ShowReadings();
  Layout();
}

void BlockView::BlocksChanged() {
  if (!shown_ || !IsShown()) return;
  const auto& records = Store().records;
  const auto same = std::ranges::find(records, report_.record.HeaderPos, &EepromBlockRecord::HeaderPos);
  if (same == records.end()) return Clear();
  Fill(static_cast<std::size_t>(same - records.begin()));
}

// Makes the dump as wide as its lines, but leaves a third of the width for the readings.
void BlockView::FitSash() {
  const int line = dump_->GetTextExtent(wxString('0', DumpColumn(0) + 4 * dumpRowLength + 3)).x;
  sheets_->SetSashPosition(std::min(line + FromDIP(24), sheets_->GetSize().x * 2 / 3));
}

void BlockView::Clear() {
  Hide();
  shown_.reset();
  report_ = BlockReport();
}

wxString BlockView::FactText(Fact fact) const { return values_[fact]->GetLabelText(); }

void BlockView::ShowFacts() {
  const EepromBlockRecord& record = report_.record;
  SetTitle(wxString(productName) + wxString::Format(" - %d :  ", record.Number) + Msg(Text::InfoAboutBlock));
  const wxString hint = report_.data.whole ? wxString() : " - " + Msg(Text::DataOutsideImage);
  values_[Description]->SetLabelText(Wx(Describe(blocks_().descriptions, record.Number)));
  values_[State]->SetLabelText(Msg(record.IsDeleted() ? Text::Deleted : Text::Live));
  values_[PhoneAddress]->SetLabelText(PlaceText(report_.address));
  values_[Size]->SetLabelText(wxString::Format("%d", record.Size));
  values_[V]->SetLabelText(wxString::Format("%d", record.V));
  values_[DataOffset]->SetLabelText(PlaceText(record.DataOffset) + hint);
  values_[HeaderPosition]->SetLabelText(PlaceText(record.HeaderPos));
  previous_->Enable(PreviousBlock(Store(), record.Number).has_value());
  next_->Enable(NextBlock(Store(), record.Number).has_value());
  hexView_->Enable(!report_.data.bytes.empty());
}

wxString BlockView::DifferenceText(const BlockDifference& difference) const {
  switch (difference.kind) {
    case BlockDifference::Kind::Same: return Msg(Text::SameData);
    case BlockDifference::Kind::Outside: return Msg(Text::DataOutsideImage);
    case BlockDifference::Kind::Unknown: return {};
    case BlockDifference::Kind::Differing: break;
  }
  return Msg(Text::DifferingBytesLabel) + wxString::Format("%zu, ", difference.count) +
         Msg(Text::ColumnOffset) + " " + HexText(static_cast<std::int64_t>(difference.first), 4);
}

void BlockView::ShowGenerations() {
  generations_->DeleteAllItems();
  for (const BlockGeneration& generation : report_.others) {
    const EepromBlockRecord& record = Store().records[generation.record];
    wxVector<wxVariant> cells;
    cells.push_back(Msg(record.IsDeleted() ? Text::Deleted : Text::Live));
    cells.push_back(wxString::Format("%d", record.V));
    cells.push_back(wxString::Format("%d", record.Size));
    cells.push_back(PlaceText(record.HeaderPos));
    cells.push_back(PlaceText(record.DataOffset));
    cells.push_back(DifferenceText(generation.difference));
    generations_->AppendItem(cells);
  }
}

void BlockView::ShowDump() {
  dump_->ChangeValue(report_.data.bytes.empty() ? Msg(Text::BlockWithoutData) : Wx(HexDump(report_.data)));
  if (!report_.data.bytes.empty()) dump_->SetInsertionPoint(static_cast<long>(DumpColumn(0)));
}

void BlockView::ShowReadings() {
  const std::size_t position = report_.data.position + start_;
  readingsLabel_->SetLabelText(Wx(bench_.texts.Label(Text::ReadAsText)) + " " + Msg(Text::ColumnOffset) +
                               " " + HexText(static_cast<std::int64_t>(position), 4));
  readings_->DeleteAllItems();
  for (const BlockReading& reading : ReadAsText(report_.data.bytes, start_)) {
    wxVector<wxVariant> cells;
    cells.push_back(Wx(reading.encoding));
    cells.push_back(Wx(reading.text));
    readings_->AppendItem(cells);
  }
}

void BlockView::ReadFrom(std::size_t byte) {
  if (byte >= report_.data.bytes.size() || byte == start_) return;
  start_ = byte;
  ShowReadings();
}

void BlockView::ReadFromCaret() {
  long from = 0, to = 0, column = 0, line = 0;
  dump_->GetSelection(&from, &to);
  if (report_.data.bytes.empty() || !dump_->PositionToXY(from, &column, &line)) return;
  ReadFrom(DumpByte(report_.data, static_cast<std::size_t>(line), static_cast<std::size_t>(column)));
}

void BlockView::Next_Click() {
  if (const auto next = NextBlock(Store(), report_.record.Number)) ShowBlock(*next);
}

void BlockView::Previous_Click() {
  if (const auto previous = PreviousBlock(Store(), report_.record.Number)) ShowBlock(*previous);
}

void BlockView::Generation_Click(std::size_t row) {
  if (row < report_.others.size()) ShowBlock(report_.others[row].record);
}

void BlockView::HexView_Click() {
  if (!shown_) return;
  bench_.frame.ShowHex(report_.data.offset, static_cast<Offset>(report_.data.bytes.size()));
  Hide();  // it would stay in front of the hex view
}

}  // namespace tarvelo
