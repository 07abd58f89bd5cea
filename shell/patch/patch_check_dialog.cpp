#include "shell/patch/patch_check_dialog.h"

#include <wx/button.h>
#include <wx/display.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include "patch/misfit_table.h"
#include "resources/messages.h"
#include "resources/texts.h"
#include "shell/base/product.h"
#include "shell/base/strings.h"
#include "shell/list/list_view.h"

namespace tarvelo {

PatchCheckDialog::PatchCheckDialog(wxWindow* parent, const Messages& messages, const MisfitTable& misfits)
    : wxDialog(parent, wxID_ANY, wxString(productName) + " - " + Wx(messages.Msg(Text::ApplyPatchFile)),
               wxDefaultPosition, wxDefaultSize, wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER | wxMAXIMIZE_BOX),
      list_(new ListView(this)) {
  list_->SetMinSize(FromDIP(wxSize(300, 140)));
  list_->Recaption(messages, Text::ApplyPatchFile);
  list_->SetRows(misfits.Rows());
  const int gap = FromDIP(8);
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(new wxStaticText(this, wxID_ANY, Wx(misfits.Summary())), 0, wxEXPAND | wxALL, gap);
  column->Add(list_, 1, wxEXPAND | wxLEFT | wxRIGHT, gap);
  column->Add(MakeButtons(messages, misfits.Fitting() > 0), 0, wxEXPAND | wxALL, gap);
  SetSizerAndFit(column);  // the minimum size
  FitScreen();
}

wxSizer* PatchCheckDialog::MakeButtons(const Messages& messages, bool canApply) {
  auto* apply = new wxButton(this, wxID_OK, Wx(messages.Msg(Text::ApplyFittingLines)));
  auto* leave = new wxButton(this, wxID_CANCEL, Wx(messages.Msg(Text::DontApply)));
  apply->Enable(canApply);
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
