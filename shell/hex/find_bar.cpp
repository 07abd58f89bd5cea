#include "shell/hex/find_bar.h"

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <algorithm>

#include "resources/texts.h"
#include "shell/base/strings.h"
#include "shell/platform/accessible_name.h"

namespace tarvelo {
namespace {

constexpr unsigned long longestQuery = 4096;  // characters

// In device-independent pixels.
constexpr int narrowBar = 600;
constexpr int narrowKind = 110;

}  // namespace

FindBar::FindBar(wxWindow* parent)
    : wxPanel(parent),
      kind_(new wxChoice(this, wxID_ANY)),
      wanted_(
          new wxTextCtrl(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, wxTE_PROCESS_ENTER)),
      previous_(new wxButton(this, wxID_ANY, "<", wxDefaultPosition, wxDefaultSize, wxBU_EXACTFIT)),
      next_(new wxButton(this, wxID_ANY, ">", wxDefaultPosition, wxDefaultSize, wxBU_EXACTFIT)),
      all_(new wxButton(this, wxID_ANY, "-", wxDefaultPosition, wxDefaultSize, wxBU_EXACTFIT)),
      caption_(new wxStaticText(this, wxID_ANY, wxString())),
      replacement_(
          new wxTextCtrl(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, wxTE_PROCESS_ENTER)),
      replace_(new wxButton(this, wxID_ANY, "-", wxDefaultPosition, wxDefaultSize, wxBU_EXACTFIT)),
      replaceAll_(new wxButton(this, wxID_ANY, "-", wxDefaultPosition, wxDefaultSize, wxBU_EXACTFIT)) {
  for (wxTextCtrl* field : {wanted_, replacement_}) field->SetMaxLength(longestQuery);
  for (wxButton* arrow : {previous_, next_}) arrow->SetMinSize(FromDIP(wxSize(36, -1)));
  Arrange();
  const auto bind = [](wxButton* button, const std::function<void()>& run) {
    button->Bind(wxEVT_BUTTON, [&run](wxCommandEvent&) { run(); });
  };
  bind(next_, onNext);
  bind(previous_, onPrevious);
  bind(all_, onAll);
  bind(replace_, onReplace);
  bind(replaceAll_, onReplaceAll);
  wanted_->Bind(wxEVT_TEXT_ENTER, [this](wxCommandEvent&) { onNext(); });
  replacement_->Bind(wxEVT_TEXT_ENTER, [this](wxCommandEvent&) { onReplace(); });
  Bind(wxEVT_CHAR_HOOK, &FindBar::PressKey, this);
  Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    FitKind(event.GetSize().x);
    event.Skip();
  });
}

// Two lines, so that the bar fits the smallest window.
void FindBar::Arrange() {
  const int gap = FromDIP(4);
  auto* lines = new wxFlexGridSizer(3, gap, gap);
  lines->AddGrowableCol(1);
  const auto add = [&](wxWindow* first, wxTextCtrl* field, std::initializer_list<wxButton*> buttons) {
    lines->Add(first, 0, wxALIGN_CENTRE_VERTICAL);
    lines->Add(field, 1, wxEXPAND);
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    for (wxButton* button : buttons) row->Add(button, 0, wxALIGN_CENTRE_VERTICAL | wxRIGHT, gap);
    lines->Add(row, 0, wxALIGN_CENTRE_VERTICAL);
  };
  add(kind_, wanted_, {previous_, next_, all_});
  add(caption_, replacement_, {replace_, replaceAll_});
  for (wxTextCtrl* field : {wanted_, replacement_}) field->SetMinSize(FromDIP(wxSize(60, -1)));
  auto* all = new wxBoxSizer(wxVERTICAL);
  all->Add(lines, 0, wxEXPAND | wxLEFT | wxBOTTOM, gap);
  SetSizer(all);
}

// In a narrow window the fields need the room more than the kind of search.
void FindBar::FitKind(int width) {
  kind_->SetMinSize(wxSize(width < FromDIP(narrowBar) ? FromDIP(narrowKind) : -1, -1));
}

void FindBar::PressKey(wxKeyEvent& event) {
  const int key = event.GetKeyCode();
  if (key == WXK_ESCAPE && event.GetModifiers() == wxMOD_NONE)
    onClose();
  else if ((key == WXK_RETURN || key == WXK_NUMPAD_ENTER) && event.ShiftDown() && wanted_->HasFocus())
    onPrevious();
  else
    event.Skip();
}

void FindBar::Start(bool inText) {
  if (inText && Kind() == QueryKind::Digits) kind_->SetSelection(static_cast<int>(QueryKind::Windows1251));
  wanted_->SetFocus();
  wanted_->SelectAll();
}

QueryKind FindBar::Kind() const { return static_cast<QueryKind>(std::max(0, kind_->GetSelection())); }

std::string FindBar::Wanted() const { return Utf8(wanted_->GetValue()); }

std::string FindBar::Replacement() const { return Utf8(replacement_->GetValue()); }

void FindBar::Recaption(const Messages& messages) {
  const auto kind = Kind();
  wxArrayString kinds;
  for (std::size_t i = 0; i < queryKinds; ++i) kinds.Add(Wx(QueryName(static_cast<QueryKind>(i), messages)));
  kind_->Set(kinds);
  kind_->SetSelection(static_cast<int>(kind));
  const auto name = [&](wxWindow* window, Text text) {
    platform::SetAccessibleName(*window, Wx(messages.Msg(text)));
  };
  name(kind_, Text::ColumnKind);
  name(wanted_, Text::SearchInHexView);
  name(replacement_, Text::ReplaceWith);
  wanted_->SetToolTip(Wx(messages.Msg(Text::HelpSearchInHexView)));
  caption_->SetLabel(Wx(messages.Label(Text::ReplaceWith)));
  for (const auto& [button, text] : {std::pair(next_, Text::NextHit), {previous_, Text::PreviousHit}}) {
    button->SetToolTip(Wx(messages.Msg(text)));
    name(button, text);
  }
  for (const auto& [button, text] :
       {std::pair(all_, Text::AllHits), {replace_, Text::Replace}, {replaceAll_, Text::ReplaceAll}})
    button->SetLabel(Wx(messages.Msg(text)));
  FitKind(GetSize().x);
  Layout();
}

}  // namespace tarvelo
