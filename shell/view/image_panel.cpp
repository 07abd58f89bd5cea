#include "shell/view/image_panel.h"

#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "shell/base/strings.h"
#include "shell/platform/accessible_name.h"
#include "shell/view/row_canvas.h"

namespace tarvelo {

ImagePanel::ImagePanel(Workbench& bench, PanelTraits traits, ColonForm form)
    : Panel(traits),
      bench_(bench),
      window_(new wxPanel(&bench.frame.Parent())),
      place_(new PlaceLine(window_, bench, form)),
      information_(new wxStaticText(window_, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                                    wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE)) {}

void ImagePanel::Arrange(RowCanvas& rows, wxSizer* content) {
  rows_ = &rows;
  const int gap = window_->FromDIP(6);
  auto* all = new wxBoxSizer(wxVERTICAL);
  all->Add(place_, 0, wxEXPAND | wxALL, gap);
  all->Add(content, 1, wxEXPAND);
  all->Add(information_, 0, wxEXPAND | wxALL, gap);
  window_->SetSizer(all);
  place_->from = [this] { return Here(); };
  place_->onGo = [this](Offset offset) {
    GoTo(offset);
    rows_->SetFocus();
  };
  rows_->onContextMenu = [this](const wxPoint& place) { bench_.frame.PopUpCommands(place); };
  window_->Bind(wxEVT_CHAR_HOOK, &ImagePanel::PressKey, this);
  bench_.frame.AcceptDrops(*rows_);
}

void ImagePanel::PressKey(wxKeyEvent& event) {
  const bool copy = event.GetModifiers() == wxMOD_CONTROL && event.GetKeyCode() == 'C';
  if (copy && rows_->HasFocus())
    bench_.frame.Run(CopyCommand());
  else if (event.GetKeyCode() == WXK_ESCAPE && !rows_->HasFocus())
    rows_->SetFocus();
  else
    event.Skip();
}

wxWindow& ImagePanel::Window() { return *window_; }

wxWindow& ImagePanel::FirstFocus() { return *rows_; }

bool ImagePanel::StartGoTo() {
  if (!rows_->HasRows()) return false;
  place_->Start();
  return true;
}

void ImagePanel::Recaption(const Messages& messages) {
  place_->Recaption(messages);
  platform::SetAccessibleName(*rows_, Wx(messages.Msg(Traits().name)));
  ShowInformation();
  window_->Layout();
}

void ImagePanel::ShowInformation() {
  const wxString text = Wx(InformationText());
  information_->SetLabelText(text);
  platform::SetAccessibleName(*information_, text);
}

bool ImagePanel::IsPlaceFocused() const { return place_->Field().HasFocus(); }

void ImagePanel::SelectAll_Click() {
  if (IsPlaceFocused())
    place_->Field().SelectAll();
  else
    rows_->SelectAll();
}

}  // namespace tarvelo
