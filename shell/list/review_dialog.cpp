#include "shell/list/review_dialog.h"

#include <wx/button.h>
#include <wx/display.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <algorithm>

#include "resources/messages.h"
#include "shell/base/product.h"
#include "shell/base/strings.h"
#include "shell/list/list_view.h"
#include "shell/platform/accessible_name.h"

namespace tarvelo {

ReviewDialog::ReviewDialog(wxWindow* parent, const Messages& messages, const Review& review)
    : wxDialog(parent, wxID_ANY, wxString(productName) + " - " + Wx(messages.Msg(review.title)),
               wxDefaultPosition, wxDefaultSize, wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER | wxMAXIMIZE_BOX),
      review_(review),
      list_(new ListView(this)) {
  const int gap = FromDIP(8);
  list_->SetMinSize(FromDIP(wxSize(300, 120)));
  list_->Recaption(messages, review.title);
  list_->SetRows(review.rows);
  auto* column = new wxBoxSizer(wxVERTICAL);
  if (!review.heading.empty())
    column->Add(MakeHeading(messages), 0, wxEXPAND | wxLEFT | wxTOP | wxRIGHT, gap);
  auto* summary = new wxStaticText(this, wxID_ANY, wxString());
  summary->SetLabelText(review.summary);
  column->Add(summary, 0, wxEXPAND | wxALL, gap);
  column->Add(list_, 3, wxEXPAND | wxLEFT | wxRIGHT, gap);
  if (review.details) {
    text_ = new wxStaticText(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                             wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE);
    details_ = new ListView(this);
    details_->HideFilter();
    details_->SetMinSize(FromDIP(wxSize(300, 90)));
    details_->Recaption(messages, Text::ColumnWhatLiesThere);
    column->Add(text_, 0, wxEXPAND | wxLEFT | wxRIGHT | wxTOP, gap);
    column->Add(details_, 2, wxEXPAND | wxLEFT | wxRIGHT | wxTOP, gap);
    list_->onSelect = [this](std::size_t row) { ShowDetails(row); };
  }
  column->Add(MakeButtons(messages), 0, wxEXPAND | wxALL, gap);
  SetSizerAndFit(column);  // the minimum size
  FitScreen();
  if (list_->RowCount() > 0) list_->Select(0);
  if (review.details || review.acceptSelected) list_->Control().SetFocus();
}

wxTextCtrl* ReviewDialog::MakeHeading(const Messages& messages) {
  constexpr int mostLines = 6;
  const wxString& text = review_.heading;
  auto* heading = new wxTextCtrl(this, wxID_ANY, text, wxDefaultPosition, wxDefaultSize,
                                 wxTE_MULTILINE | wxTE_READONLY | wxTE_DONTWRAP);
  platform::SetAccessibleName(*heading, Wx(messages.Msg(review_.title)));
  const int lines = std::min(static_cast<int>(text.Freq('\n')) + 1, mostLines);
  heading->SetMinSize(wxSize(-1, lines * heading->GetCharHeight() + FromDIP(24)));
  return heading;
}

void ReviewDialog::ShowDetails(std::size_t row) {
  const ReviewDetails shown = review_.details(row);
  text_->SetLabelText(shown.text);
  details_->SetRows(shown.rows);
  if (!shown.middle) return;
  constexpr std::size_t rowsBefore = 3;  // that must be in view, too
  details_->Select(*shown.middle - std::min(*shown.middle, rowsBefore));
  details_->Select(*shown.middle);
}

wxSizer* ReviewDialog::MakeButtons(const Messages& messages) {
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  row->AddStretchSpacer();
  const auto add = [&](int id, Text caption) {
    auto* button = new wxButton(this, id, Wx(messages.Msg(caption)));
    button->Bind(wxEVT_BUTTON, [this, id](wxCommandEvent&) { EndModal(id); });
    row->Add(button, 0, wxLEFT, FromDIP(8));
    return button;
  };
  add(wxID_OK, review_.accept)->Enable(review_.canAccept);
  if (review_.acceptSelected) {
    auto* const selected = add(wxID_APPLY, *review_.acceptSelected);
    selected->Bind(wxEVT_UPDATE_UI,
                   [this](wxUpdateUIEvent& event) { event.Enable(list_->Selected().has_value()); });
  }
  auto* const cancel = add(wxID_CANCEL, review_.cancel);
  SetEscapeId(wxID_CANCEL);
  cancel->SetDefault();
  cancel->SetFocus();  // unless the list is to be used
  return row;
}

void ReviewDialog::FitScreen() {
  const wxSize screen = wxDisplay(GetParent() ? GetParent() : this).GetClientArea().GetSize();
  wxSize size = FromDIP(wxSize(960, details_ ? 640 : 480));
  size.DecTo(screen - FromDIP(wxSize(40, 60)));  // leave room for its frame
  SetSize(size);
  CentreOnParent();
}

}  // namespace tarvelo
