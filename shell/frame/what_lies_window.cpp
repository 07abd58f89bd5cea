#include "shell/frame/what_lies_window.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <utility>

#include "core/places.h"
#include "shell/base/strings.h"
#include "shell/platform/accessible_name.h"
#include "shell/services/search_progress.h"
#include "shell/services/talk.h"

namespace tarvelo {

WhatLiesWindow::WhatLiesWindow(wxWindow* parent, Workbench& bench, ShowRecord showRecord)
    : wxDialog(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      bench_(bench),
      showRecord_(std::move(showRecord)) {
  SetEscapeId(wxID_CLOSE);
  Bind(
      wxEVT_BUTTON, [this](wxCommandEvent&) { Hide(); }, wxID_CLOSE);
  Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) { Hide(); });
  changeWatch_ = bench.document.OnChange([this] { isStale_ = true; });
  nameWatch_ = bench.document.OnNames([this] { isStale_ = true; });
  Bind(wxEVT_IDLE, [this](wxIdleEvent& event) {
    event.Skip();
    if (IsShown() && isStale_) Renew();
  });
}

wxString WhatLiesWindow::Msg(Text text) const { return Wx(bench_.texts.Msg(text)); }

void WhatLiesWindow::ShowPlace(Offset offset) {
  offset_ = offset;
  Fill();
  if (!IsShown()) CentreOnParent();
  Show();
  Raise();
  if (wxWindow* close = FindWindow(wxID_CLOSE)) close->SetFocus();
}

void WhatLiesWindow::Renew() {
  if (!IsShown()) return;
  if (bench_.document.IsOpen() && offset_ <= bench_.document.Image().ffEnd())
    Fill();
  else
    Hide();
}

void WhatLiesWindow::Fill() {
  isStale_ = false;
  const int gap = FromDIP(8);
  SetTitle(Msg(Text::WhatLiesHere));
  DestroyChildren();
  auto* column = new wxBoxSizer(wxVERTICAL);
  auto* place = NewText(Wx(PlaceText(bench_.document.Image(), offset_)));
  place->SetFont(GetFont().Bold());
  column->Add(place, 0, wxALL, gap);
  const auto things = WhatLiesAt(bench_.document, offset_, bench_.texts);
  for (const KnownThing& thing : things) AddThing(*column, thing);
  if (things.empty()) column->Add(NewText(Msg(Text::NothingKnownHere)), 0, wxLEFT | wxRIGHT, gap);
  AddSearches(*column);
  column->AddStretchSpacer();
  auto* close = new wxButton(this, wxID_CLOSE, Msg(Text::Close));
  column->Add(close, 0, wxALIGN_RIGHT | wxALL, gap);
  SetSizer(column);
  column->SetSizeHints(this);
  close->SetDefault();
}

// Names may contain "&", which a label would take as a mark.
wxStaticText* WhatLiesWindow::NewText(const wxString& text) {
  auto* shown = new wxStaticText(this, wxID_ANY, wxString());
  shown->SetLabelText(text);
  return shown;
}

wxButton* WhatLiesWindow::AddButton(wxBoxSizer& line, Text caption, std::function<void()> run) {
  auto* button = new wxButton(this, wxID_ANY, Msg(caption));
  // Later, because the command may rebuild this window.
  button->Bind(wxEVT_BUTTON, [this, caption, run = std::move(run)](wxCommandEvent&) {
    CallAfter([this, caption, run] { bench_.talk.Guard(Msg(caption), run); });
  });
  line.Add(button, 0, wxALIGN_CENTRE_VERTICAL | wxLEFT, FromDIP(4));
  return button;
}

void WhatLiesWindow::AddThing(wxBoxSizer& column, const KnownThing& thing) {
  const auto [offset, size] = thing.region;
  const Fullflash& image = bench_.document.Image();
  wxString text = Wx(thing.what);
  if (!thing.isName)
    text += "\n" + Wx(OffsetText(image, offset) + " .. " + OffsetText(image, offset + size - 1) + "  (" +
                      std::to_string(size) + ")");
  auto* line = new wxBoxSizer(wxHORIZONTAL);
  line->Add(NewText(text), 1, wxALIGN_CENTRE_VERTICAL | wxRIGHT, FromDIP(16));
  const auto name = [&](wxButton* button) {
    platform::SetAccessibleName(*button, button->GetLabelText() + ": " + Wx(thing.what));
  };
  if (offset >= 0 && offset <= image.ffEnd() && !thing.isName)
    name(AddButton(*line, Text::OpenInHexView,
                   [this, region = thing.region] { bench_.frame.ShowHex(region.offset, region.size); }));
  if (thing.explorer && thing.record)
    name(AddButton(*line, Text::ShowInPanel, [this, explorer = thing.explorer, record = *thing.record] {
      showRecord_(*explorer, record);
    }));
  column.Add(line, 0, wxEXPAND | wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(8));
}

// What was not searched yet, and a button that does.
void WhatLiesWindow::AddSearches(wxBoxSizer& column) {
  wxString missing;
  for (const Explorer* explorer : NotSearchedYet(bench_.document))
    missing += (missing.empty() ? " " : ", ") + Msg(explorer->name);
  if (missing.empty() && bench_.document.KnownMap()) return;
  auto* line = new wxBoxSizer(wxHORIZONTAL);
  if (missing.empty()) missing = " " + Msg(Text::Dump);
  line->Add(NewText(Msg(Text::NotSearchedYet) + missing), 1, wxALIGN_CENTRE_VERTICAL);
  AddButton(*line, Text::SearchNow, [this] { Search(); });
  column.Add(line, 0, wxEXPAND | wxALL, FromDIP(8));
}

// The map searches for everything.
void WhatLiesWindow::Search() {
  SearchProgress progress(bench_);
  (void)bench_.document.Map(progress);
  Renew();
}

}  // namespace tarvelo
