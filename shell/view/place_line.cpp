#include "shell/view/place_line.h"

#include <wx/choice.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <algorithm>
#include <stdexcept>

#include "document/what_lies.h"
#include "resources/texts.h"
#include "shell/base/blend.h"
#include "shell/base/strings.h"
#include "shell/platform/accessible_name.h"
#include "shell/services/workbench.h"

namespace tarvelo {
namespace {

constexpr unsigned long placeLength = 200;
constexpr int narrowLine = 640;  // in device-independent pixels

}  // namespace

PlaceLine::PlaceLine(wxWindow* parent, Workbench& bench, ColonForm form)
    : wxPanel(parent),
      bench_(bench),
      form_(form),
      caption_(new wxStaticText(this, wxID_ANY, wxString())),
      place_(
          new wxTextCtrl(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, wxTE_PROCESS_ENTER)),
      kind_(new wxChoice(this, wxID_ANY)),
      fault_(new wxStaticText(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                              wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE)) {
  place_->SetMaxLength(placeLength);
  const int gap = FromDIP(6);
  auto* line = new wxBoxSizer(wxHORIZONTAL);
  line->Add(caption_, 0, wxALIGN_CENTRE_VERTICAL | wxRIGHT, gap);
  line->Add(place_, 2, wxALIGN_CENTRE_VERTICAL | wxRIGHT, gap);
  line->Add(kind_, 0, wxALIGN_CENTRE_VERTICAL | wxRIGHT, gap);
  line->Add(fault_, 3, wxALIGN_CENTRE_VERTICAL);
  auto* lines = new wxBoxSizer(wxVERTICAL);
  lines->Add(line, 0, wxEXPAND);
  SetSizer(lines);
  Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    event.Skip();
    if (IsNarrow() != isFaultBelow_) CallAfter([this] { PlaceFault(); });
  });
  place_->Bind(wxEVT_TEXT_ENTER, [this](wxCommandEvent&) { Enter(); });
  place_->Bind(wxEVT_TEXT, [this](wxCommandEvent& event) {
    ShowBeside(Wx(Understood()), false);
    event.Skip();
  });
  kind_->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) { ShowBeside(Wx(Understood()), false); });
}

bool PlaceLine::IsNarrow() const { return GetSize().x < FromDIP(narrowLine); }

// In a narrow window the text has no room beside the line.
void PlaceLine::PlaceFault() {
  isFaultBelow_ = IsNarrow();
  fault_->GetContainingSizer()->Detach(fault_);
  wxSizer& lines = *GetSizer();
  if (isFaultBelow_)
    lines.Add(fault_, 0, wxEXPAND | wxTOP, FromDIP(4));
  else
    lines.GetItem(std::size_t{0})->GetSizer()->Add(fault_, 3, wxALIGN_CENTRE_VERTICAL);
  FitFault();
}

// Below the line, the text takes room only while there is one.
void PlaceLine::FitFault() {
  const bool isShown = !isFaultBelow_ || !fault_->GetLabelText().empty();
  const bool changed = fault_->Show(isShown);
  if (!changed && isFaultBelow_) return;
  GetParent()->Layout();
  GetParent()->Refresh();  // Windows copies what moves, together with what covers it
}

void PlaceLine::Start() {
  place_->SetFocus();
  place_->SelectAll();
}

std::optional<Offset> PlaceLine::Read(const std::string& text) const {
  const auto kind = kind_->GetSelection() == 1 ? PlaceKind::AsAddress : PlaceKind::AsOffset;
  return FindPlace(text, kind, form_, bench_.document.Get(), from ? from() : 0);
}

// The place that the text names so far, and what lies there; empty if it names none.
std::string PlaceLine::Understood() const try {
  const Document& document = bench_.document;
  const std::string text = Utf8(place_->GetValue());
  const auto offset = document.IsOpen() && !text.empty() ? Read(text) : std::nullopt;
  if (!offset) return {};
  const std::string what = WhatLiesText(document, *offset, bench_.texts);
  return PlaceText(document.Image(), *offset) + (what.empty() ? "" : "  ") + what;
} catch (const std::invalid_argument&) {
  return {};
} catch (const std::overflow_error&) {
  return {};
}

void PlaceLine::Enter() {
  if (!bench_.document.IsOpen()) return;
  const std::string text = Utf8(place_->GetValue());
  try {
    const auto offset = Read(text);
    if (!offset) return ShowFault(Wx(bench_.texts.Msg(Text::DataOutsideImage)));
    ClearFault();
    if (onGo) onGo(*offset);
  } catch (const std::invalid_argument&) {
    ShowFault(Wx(bench_.texts.MsgS(Text::NotANumber, text)));
  } catch (const std::overflow_error&) {
    ShowFault(Wx(bench_.texts.MsgS(Text::NumberTooLarge, text)));
  }
}

void PlaceLine::ClearFault() { ShowFault(wxString()); }

// Shows an error beside the line; an empty text removes it.
void PlaceLine::ShowFault(const wxString& text) { ShowBeside(text, !text.empty()); }

void PlaceLine::ShowBeside(const wxString& text, bool isFault) {
  if (fault_->GetLabelText() == text) return;
  fault_->SetLabelText(text);
  fault_->SetToolTip(text);
  const wxColour tinted =
      Blend(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW), wxColour(0xFF, 0x40, 0x40), 0.7);
  place_->SetBackgroundColour(isFault ? tinted : wxNullColour);
  place_->Refresh();
  if (isFaultBelow_) FitFault();
}

void PlaceLine::Recaption(const Messages& messages) {
  caption_->SetLabel(Wx(messages.Label(Text::GoTo)));
  const wxString hint = Wx(messages.Msg(Text::GoToHint));
  place_->SetHint(hint);
  place_->SetToolTip(hint);
  platform::SetAccessibleName(*place_, hint);
  const int needed = place_->GetTextExtent(hint).x + FromDIP(24);
  place_->SetMinSize(wxSize(std::min(needed, FromDIP(260)), -1));
  platform::SetAccessibleName(*kind_, Wx(messages.Msg(Text::GoTo)));
  const int kind = std::max(0, kind_->GetSelection());
  kind_->Set({Wx(messages.Msg(Text::ColumnOffset)), Wx(messages.Msg(Text::PhoneAddress))});
  kind_->SetSelection(kind);
  ClearFault();
  Layout();
}

}  // namespace tarvelo
