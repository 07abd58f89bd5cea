#include "shell/eeprom/block_view.h"

#include <wx/button.h>
#include <wx/dataview.h>
#include <wx/splitter.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <algorithm>

#include "core/notation.h"
#include "shell/base/product.h"
#include "shell/base/strings.h"
#include "shell/services/workbench.h"

namespace tarvelo {
namespace {

wxString HexText(std::int64_t value, std::size_t digits) { return Wx(PadZero(Hex(value), digits)); }

// An offset or address with all digits.
wxString PlaceText(std::int64_t value) { return Wx(WholeHex(value)); }

}  // namespace

wxString BlockView::Msg(Text text) const { return Wx(bench_.texts.Msg(text)); }

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
