#include "shell/frame/panel_bar.h"

#include <wx/settings.h>
#include <wx/sizer.h>

#include <algorithm>
#include <utility>

#include "document/explorers.h"
#include "resources/messages.h"
#include "shell/base/strings.h"
#include "shell/frame/menu_table.h"
#include "shell/frame/panel_button.h"
#include "shell/list/explorer_panel.h"
#include "shell/platform/accessible_name.h"
#include "shell/services/ids.h"

namespace tarvelo {
namespace {

// In device-independent pixels.
constexpr int narrowWindow = 720;
constexpr int narrowBar = 38;
constexpr int tallButton = 28;
constexpr int lowButton = 17;

struct IconOfPanel {
  int id;
  const char* icon;
};

constexpr IconOfPanel panelIcons[] = {
    {Id::GoBack, "back"},   {Id::GoForward, "forward"},     {Id::Info, "info"},        {Id::Dump, "map"},
    {Id::CodeView, "code"}, {Id::References, "references"}, {Id::PlaceNames, "names"}, {Id::HexView, "hex"},
    {Id::Hits, "hits"},     {Id::ComparePanel, "compare"},  {Id::PatchMenu, "patch"},
};

const Explorer* ExplorerOf(int id) {
  const auto found =
      std::ranges::find_if(Explorers(), [id](const Explorer* explorer) { return PanelId(*explorer) == id; });
  return found == Explorers().end() ? nullptr : *found;
}

std::string IconOf(int id) {
  if (const Explorer* explorer = ExplorerOf(id)) return std::string(explorer->key);
  const auto* found = std::ranges::find(panelIcons, id, &IconOfPanel::id);
  return found == std::end(panelIcons) ? std::string() : found->icon;
}

const MenuEntry* EntryOf(int id) {
  const auto found = std::ranges::find(PanelEntries(), id, &MenuEntry::id);
  return found == PanelEntries().end() ? nullptr : &*found;
}

}  // namespace

PanelBar::PanelBar(wxWindow* parent, const std::vector<int>& panels)
    : wxScrolledWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                       wxVSCROLL | wxTAB_TRAVERSAL | wxBORDER_NONE),
      panelCount_(panels.size()) {
  // One ground for the bar and its buttons; the theme's own may be a picture.
  const auto colour = [this] { SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE)); };
  colour();
  Bind(wxEVT_SYS_COLOUR_CHANGED, [colour](wxSysColourChangedEvent& event) {
    colour();
    event.Skip();
  });
  auto* column = new wxBoxSizer(wxVERTICAL);
  auto* places = new wxBoxSizer(wxHORIZONTAL);
  column->Add(places, 0, wxEXPAND);
  for (const int id : {Id::GoBack, Id::GoForward}) {
    PanelButton& button = Add(id, IconOf(id), '?', *places);
    button.ShowName(false);
    places->GetItem(&button)->SetProportion(1);
  }
  for (const int id : panels) {
    const Explorer* explorer = ExplorerOf(id);
    Add(id, IconOf(id), explorer ? explorer->letter : '?', *column);
  }
  SetSizer(column);
  ShowScrollbars(wxSHOW_SB_NEVER, wxSHOW_SB_DEFAULT);
  SetScrollRate(0, FromDIP(tallButton));
}

PanelButton& PanelBar::Add(int id, const std::string& icon, char letter, wxBoxSizer& sizer) {
  auto* button = new PanelButton(this, {id, icon, letter});
  button->onClick = [this, id] { onRun(id); };
  button->Bind(wxEVT_KEY_DOWN, [this, button](wxKeyEvent& event) { Key(event, *button); });
  // GTK gives the focus to the first button, whichever one is the tab stop.
  button->Bind(wxEVT_SET_FOCUS, [this, button](wxFocusEvent& event) {
    event.Skip();
    if (button == std::exchange(stepTo_, nullptr) || button->AcceptsFocusFromKeyboard()) return;
    const auto stop = std::ranges::find_if(
        buttons_, [](const PanelButton* each) { return each->AcceptsFocusFromKeyboard(); });
    if (stop != buttons_.end()) (*stop)->CallAfter([stop = *stop] { stop->SetFocus(); });
  });
  sizer.Add(button, 0, wxEXPAND);
  buttons_.push_back(button);
  return *button;
}

void PanelBar::Key(wxKeyEvent& event, PanelButton& button) {
  if (event.AltDown()) return event.Skip();  // with an arrow it goes back and forth
  switch (event.GetKeyCode()) {
    case WXK_UP:
    case WXK_LEFT: return Step(button, -1);
    case WXK_DOWN:
    case WXK_RIGHT: return Step(button, 1);
    case WXK_RETURN:
    case WXK_NUMPAD_ENTER:
    case WXK_SPACE: return onRun(button.Traits().id);
    case WXK_ESCAPE: return onLeave();
    case WXK_TAB:
      Navigate(event.ShiftDown() ? wxNavigationKeyEvent::IsBackward : wxNavigationKeyEvent::IsForward);
      return;
    default: event.Skip();
  }
}

// Goes on to the next button that can be used.
void PanelBar::Step(PanelButton& from, int direction) {
  const std::size_t count = buttons_.size();
  auto at = static_cast<std::size_t>(std::ranges::find(buttons_, &from) - buttons_.begin());
  do at = (at + (direction > 0 ? 1 : count - 1)) % count;
  while (!buttons_[at]->IsEnabled() && buttons_[at] != &from);
  stepTo_ = buttons_[at];
  stepTo_->SetFocus();
}

void PanelBar::Recaption(const Messages& messages) {
  platform::SetAccessibleName(*this, Wx(messages.Msg(Text::PanelBar)));
  for (PanelButton* button : buttons_) {
    const MenuEntry* entry = EntryOf(button->Traits().id);
    if (entry) button->SetCaption(Wx(messages.Msg(entry->caption)), Wx(entry->shortcut));
  }
  FitWindow(window_);
}

void PanelBar::Update(const State& state) {
  for (PanelButton* button : buttons_) {
    const int id = button->Traits().id;
    const bool isPlace = id == Id::GoBack || id == Id::GoForward;
    const bool can = id == Id::GoBack ? state.canGoBack : state.canGoForward;
    button->Enable(isPlace ? can : state.isEnabled(id));
    button->Mark(id == state.visible);
    button->SetTabStop(id == state.visible);
    if (!isPlace) button->SetFigure(state.figure(id));
  }
}

// The buttons are as tall as the window allows.
void PanelBar::FitWindow(const wxSize& window) {
  window_ = window;
  const bool isNarrow = window.x < FromDIP(narrowWindow);
  int width = FromDIP(narrowBar);
  for (PanelButton* button : buttons_) {
    const bool isPlace = button->Traits().id == Id::GoBack || button->Traits().id == Id::GoForward;
    if (!isPlace) button->ShowName(!isNarrow);
    if (!isPlace && !isNarrow) width = std::max(width, button->NeededWidth());
  }
  const int rows = static_cast<int>(panelCount_) + 1;
  const int height = std::clamp(window.y / rows, FromDIP(lowButton), FromDIP(tallButton));
  for (PanelButton* button : buttons_) button->SetMinSize(wxSize(-1, height));
  SetMinSize(wxSize(width, -1));
  FitInside();
  Layout();
}

PanelButton* PanelBar::Button(int id) const {
  const auto found =
      std::ranges::find(buttons_, id, [](const PanelButton* button) { return button->Traits().id; });
  return found == buttons_.end() ? nullptr : *found;
}

}  // namespace tarvelo
