#include "shell/info/welcome.h"

#include <wx/button.h>
#include <wx/dcclient.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <algorithm>
#include <cmath>

#include "resources/messages.h"
#include "resources/texts.h"
#include "shell/base/product.h"
#include "shell/base/strings.h"
#include "shell/services/ids.h"
#include "shell/services/workbench.h"
#include "shell/settings/settings.h"

namespace tarvelo {
namespace {

// The system's link colour if it is legible on the background, otherwise the text colour.
wxColour LinkColour() {
  const wxColour link = wxSystemSettings::GetColour(wxSYS_COLOUR_HOTLIGHT);
  const wxColour ground = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW);
  const bool isLegible = std::abs(link.GetLuminance() - ground.GetLuminance()) > 0.25;
  return isLegible ? link : wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT);
}

}  // namespace

Welcome::Welcome(wxWindow* parent, Workbench& bench)
    : wxScrolledWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxVSCROLL | wxTAB_TRAVERSAL),
      bench_(bench) {
  auto* title = new wxStaticText(this, wxID_ANY, productName);
  title->SetFont(GetFont().Bold().Scaled(2));
  hint_ = new wxStaticText(this, wxID_ANY, wxString());
  abilities_ = new wxStaticText(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                                wxALIGN_CENTRE_HORIZONTAL);
  // The order of creation is the Tab order.
  continue_ = AddButton(Id::Continue);
  open_ = AddButton(Id::OpenFF);
  recentTitle_ = new wxStaticText(this, wxID_ANY, wxString());
  for (std::size_t i = 0; i < recent_.size(); ++i)
    recent_[i] = AddButton(Id::File1 + static_cast<int>(i), wxBORDER_NONE);
  demonstration_ = AddButton(Id::Demonstration);
  secondDemonstration_ = AddButton(Id::SecondDemonstration);
  help_ = AddButton(Id::Help);
  Arrange(*title);
  ChooseColours();
  Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent& event) {
    ChooseColours();
    event.Skip();
  });
  Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    event.Skip();
    ShowHint();
  });
}

void Welcome::ChooseColours() {
  SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW));
  for (wxWindow* child : GetChildren())
    if (dynamic_cast<wxStaticText*>(child))
      child->SetForegroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT));
  for (wxButton* file : recent_) file->SetForegroundColour(LinkColour());
}

// Wraps the texts to the window's width.
void Welcome::ShowHint() {
  const int width = GetClientSize().x - FromDIP(16);
  Wrap(*hint_, hintText_, width);
  Wrap(*abilities_, abilitiesText_, std::min(width, FromDIP(560)));
}

void Welcome::Wrap(wxStaticText& control, const wxString& text, int width) {
  if (control.GetLabelText() != text) control.SetLabelText(text);
  if (width > 0) control.Wrap(width);
}

wxButton* Welcome::AddButton(int id, long style) {
  auto* button = new wxButton(this, wxID_ANY, "-", wxDefaultPosition, wxDefaultSize, style);
  button->Bind(wxEVT_BUTTON, [this, id](wxCommandEvent&) { bench_.frame.Run(id); });
  return button;
}

void Welcome::Arrange(wxWindow& title) {
  const int gap = FromDIP(8);
  auto* column = new wxBoxSizer(wxVERTICAL);
  const auto add = [&](wxWindow* part, int above) {
    column->Add(part, 0, wxALIGN_CENTRE_HORIZONTAL | wxTOP, above);
  };
  column->AddStretchSpacer(1);
  add(&title, gap);
  add(hint_, gap);
  add(abilities_, gap);
  add(continue_, 2 * gap);
  add(open_, gap);
  add(recentTitle_, 2 * gap);
  for (wxButton* file : recent_) add(file, 0);
  add(demonstration_, 2 * gap);
  add(secondDemonstration_, gap / 2);
  add(help_, gap);
  column->AddSpacer(gap);
  column->AddStretchSpacer(1);
  SetSizer(column);
  SetScrollRate(0, FromDIP(16));
}

void Welcome::Recaption(const Messages& messages) {
  const auto text = [&messages](Text name) { return Wx(messages.Msg(name)); };
  hintText_ = text(Text::OpenOrDropFullflash);
  abilitiesText_ = text(Text::WelcomeAbilities);
  ShowHint();
  continue_->SetLabelText(text(Text::Continue));
  recentTitle_->SetLabelText(text(Text::RecentlyOpened));
  open_->SetLabelText(text(Text::Open));
  demonstration_->SetLabelText(text(Text::TryDemonstration));
  secondDemonstration_->SetLabelText(text(Text::TrySecondDemonstration));
  help_->SetLabelText(text(Text::Help));
  FitInside();
}

void Welcome::ShowRecent(const RecentFiles& files) {
  const wxClientDC dc(this);
  const int widest = 40 * GetCharWidth();
  for (std::size_t i = 0; i < recent_.size(); ++i) {
    const wxString path = Wx(files[i]);
    wxString label = wxControl::Ellipsize(path, dc, wxELLIPSIZE_START, widest, wxELLIPSIZE_FLAGS_NONE);
    if (!files.Phone(i).empty()) label += "   " + Wx(files.Phone(i));
    recent_[i]->SetLabelText(label);
    recent_[i]->SetToolTip(path);
    recent_[i]->Show(!path.empty());
  }
  recentTitle_->Show(!files[0].empty());
  const std::string session = bench_.settings.GetRaw("Session", "File");
  continue_->Show(!session.empty());
  continue_->SetToolTip(Wx(session) + "\n" + Wx(bench_.settings.GetRaw("Session", "Panel")));
  FitInside();
  Layout();
}

}  // namespace tarvelo
