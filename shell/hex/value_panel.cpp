#include "shell/hex/value_panel.h"

#include <wx/dataview.h>
#include <wx/sizer.h>

#include <stdexcept>

#include "resources/texts.h"
#include "shell/base/strings.h"
#include "shell/platform/accessible_name.h"
#include "shell/services/clipboard.h"
#include "shell/services/ids.h"
#include "shell/services/talk.h"

namespace tarvelo {
namespace {

constexpr unsigned textColumn = 1;

}  // namespace

ValuePanel::ValuePanel(wxWindow* parent, Workbench& bench)
    : wxPanel(parent),
      bench_(bench),
      list_(new wxDataViewListCtrl(this, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                   wxDV_ROW_LINES | wxDV_NO_HEADER)) {
  for (const int width : {150, 190})
    list_->AppendTextColumn(wxString(), wxDATAVIEW_CELL_INERT, FromDIP(width), wxALIGN_LEFT,
                            wxDATAVIEW_COL_RESIZABLE);
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(list_, 1, wxEXPAND);
  SetSizer(column);
  SetMinSize(FromDIP(wxSize(350, -1)));
  // The handler may change the list, so it waits until the click is over.
  list_->Bind(wxEVT_DATAVIEW_ITEM_ACTIVATED, [this](wxDataViewEvent&) {
    CallAfter([this] {
      bench_.talk.Guard(Wx(bench_.texts.Msg(Text::ValuesAtCursor)), [this] { Follow_Click(); });
    });
  });
  list_->Bind(wxEVT_CHAR_HOOK, &ValuePanel::PressKey, this);
}

void ValuePanel::PressKey(wxKeyEvent& event) {
  const int row = list_->GetSelectedRow();
  if (event.GetModifiers() == wxMOD_CONTROL && event.GetKeyCode() == 'C' && row != wxNOT_FOUND)
    Copy(values_[static_cast<std::size_t>(row)].text);
  else
    event.Skip();
}

void ValuePanel::Read(Offset at) {
  at_ = at;
  values_ = ReadValues(bench_.document.Get(), at, bench_.texts);
  ShowValues();
}

void ValuePanel::Clear() {
  at_ = 0;
  values_.clear();
  ShowValues();
}

// Rewrites the rows there are, so that the chosen one stays.
void ValuePanel::ShowValues() {
  const auto rows = static_cast<std::size_t>(list_->GetItemCount());
  if (values_.size() != rows) list_->DeleteAllItems();
  for (std::size_t i = 0; i < values_.size(); ++i) {
    const wxString name = Wx(values_[i].name);
    const wxString text = Wx(values_[i].text);
    const auto row = static_cast<unsigned>(i);
    if (values_.size() != rows) {
      wxVector<wxVariant> cells;
      cells.push_back(name);
      cells.push_back(text);
      list_->AppendItem(cells);
    } else {
      if (list_->GetTextValue(row, 0) != name) list_->SetTextValue(name, row, 0);
      if (list_->GetTextValue(row, textColumn) != text) list_->SetTextValue(text, row, textColumn);
    }
  }
}

void ValuePanel::Recaption(const Messages& messages) {
  platform::SetAccessibleName(*list_, Wx(messages.Msg(Text::ValuesAtCursor)));
  if (!values_.empty()) Read(at_);
}

void ValuePanel::Follow_Click() {
  const int row = list_->GetSelectedRow();
  if (row == wxNOT_FOUND) return;
  if (const auto target = values_[static_cast<std::size_t>(row)].target)
    bench_.frame.ShowHex(*target, 0);
  else
    Edit_Click();
}

void ValuePanel::Edit_Click() {
  const int row = list_->GetSelectedRow();
  if (row == wxNOT_FOUND) return bench_.talk.Tell(Wx(bench_.texts.Msg(Text::ChooseValue)));
  const auto value = static_cast<std::size_t>(row);
  const auto text = EditableText(bench_.document.Get(), at_, value);
  if (!text) return bench_.talk.Complain(Text::ValueReadOnly);
  if (const auto answer = bench_.talk.Ask(Text::AskNewValue, *text)) Write(value, *answer);
}

void ValuePanel::Write(std::size_t value, const std::string& text) {
  const auto refuse = [&](Text message) { bench_.talk.Complain(Wx(bench_.texts.MsgS(message, text))); };
  try {
    bench_.document.Write(at_, ValueBytes(bench_.document.Get(), at_, value, text));
  } catch (const std::invalid_argument&) {
    refuse(Text::NoSuchValue);
  } catch (const std::overflow_error&) {
    refuse(Text::ValueDoesNotFit);
  }
}

}  // namespace tarvelo
