#include "shell/patch/patch_check_dialog.h"

#include <wx/button.h>
#include <wx/display.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <algorithm>

#include "patch/misfit_table.h"
#include "resources/messages.h"
#include "resources/texts.h"
#include "shell/base/product.h"
#include "shell/base/strings.h"
#include "shell/list/list_view.h"
#include "shell/platform/accessible_name.h"

namespace tarvelo {

PatchCheckDialog::PatchCheckDialog(wxWindow* parent, const Messages& messages, const MisfitTable& misfits)
    : wxDialog(parent, wxID_ANY, wxString(productName) + " - " + Wx(messages.Msg(misfits.Words().title)),
               wxDefaultPosition, wxDefaultSize, wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER | wxMAXIMIZE_BOX),
      list_(new ListView(this)) {
  list_->SetMinSize(FromDIP(wxSize(300, 140)));
  list_->Recaption(messages, misfits.Words().title);
  list_->SetRows(misfits.Rows());
  const int gap = FromDIP(8);
  auto* column = new wxBoxSizer(wxVERTICAL);
  if (const std::string header = misfits.Header(); !header.empty())
    column->Add(MakeHeader(messages, Wx(header)), 0, wxEXPAND | wxLEFT | wxTOP | wxRIGHT, gap);
  column->Add(new wxStaticText(this, wxID_ANY, Wx(misfits.Summary())), 0, wxEXPAND | wxALL, gap);
  column->Add(list_, 1, wxEXPAND | wxLEFT | wxRIGHT, gap);
  column->Add(MakeButtons(messages, misfits), 0, wxEXPAND | wxALL, gap);
  SetSizerAndFit(column);  // the minimum size
  FitScreen();
}

// What the patch says about itself. A long text scrolls.
wxTextCtrl* PatchCheckDialog::MakeHeader(const Messages& messages, const wxString& text) {
  constexpr int mostLines = 6;
  auto* header = new wxTextCtrl(this, wxID_ANY, text, wxDefaultPosition, wxDefaultSize,
                                wxTE_MULTILINE | wxTE_READONLY | wxTE_DONTWRAP);
  platform::SetAccessibleName(*header, Wx(messages.Msg(Text::Patch)));
  const int lines = std::min(static_cast<int>(text.Freq('\n')) + 1, mostLines);
  header->SetMinSize(wxSize(-1, lines * header->GetCharHeight() + FromDIP(24)));
  return header;
}

wxSizer* PatchCheckDialog::MakeButtons(const Messages& messages, const MisfitTable& misfits) {
  auto* apply = new wxButton(this, wxID_OK, Wx(messages.Msg(misfits.Words().accept)));
  auto* leave = new wxButton(this, wxID_CANCEL, Wx(messages.Msg(misfits.Words().leave)));
  apply->Enable(misfits.Fitting() > 0);
  SetEscapeId(wxID_CANCEL);
  leave->SetDefault();
  leave->SetFocus();
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  row->AddStretchSpacer();
  row->Add(apply);
  row->Add(leave, 0, wxLEFT, FromDIP(8));
  return row;
}

void PatchCheckDialog::FitScreen() {
  const wxSize screen = wxDisplay(GetParent() ? GetParent() : this).GetClientArea().GetSize();
  wxSize size = FromDIP(wxSize(960, 480));
  size.DecTo(screen - FromDIP(wxSize(40, 60)));  // leave room for its frame
  SetSize(size);
  CentreOnParent();
}

}  // namespace tarvelo
