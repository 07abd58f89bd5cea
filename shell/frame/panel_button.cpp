#include "shell/frame/panel_button.h"

#include <wx/control.h>
#include <wx/dcbuffer.h>
#include <wx/graphics.h>
#include <wx/renderer.h>
#include <wx/settings.h>

#include <algorithm>
#include <memory>
#include <utility>

#include "shell/base/blend.h"
#include "shell/frame/panel_icons.h"
#include "shell/platform/accessible_name.h"

namespace tarvelo {
namespace {

// In device-independent pixels.
constexpr int iconSize = 16;
constexpr int leftMargin = 9;
constexpr int textGap = 7;
constexpr int longestName = 150;
constexpr int markWidth = 3;

// Figures of up to four digits as they are, longer ones in thousands or millions.
wxString ShortFigure(std::size_t count) {
  if (count < 10000) return wxString::Format("%zu", count);
  if (count < 1000000) return wxString::Format("%zuk", count / 1000);
  return wxString::Format("%zuM", count / 1000000);
}

}  // namespace

PanelButton::PanelButton(wxWindow* parent, PanelButtonTraits traits)
    : wxWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxWANTS_CHARS | wxBORDER_NONE),
      traits_(std::move(traits)) {
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  Bind(wxEVT_PAINT, [this](wxPaintEvent&) { Paint(); });
  Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent&) { onClick(); });
  Bind(wxEVT_LEFT_DCLICK, [this](wxMouseEvent&) { onClick(); });
  const auto hover = [this](wxMouseEvent& event) {
    isHovered_ = event.Entering();
    Refresh();
    event.Skip();
  };
  Bind(wxEVT_ENTER_WINDOW, hover);
  Bind(wxEVT_LEAVE_WINDOW, hover);
  const auto focus = [this](wxFocusEvent& event) {
    Refresh();
    event.Skip();
  };
  Bind(wxEVT_SET_FOCUS, focus);
  Bind(wxEVT_KILL_FOCUS, focus);
}

void PanelButton::SetCaption(const wxString& caption, const wxString& shortcut) {
  caption_ = caption;
  shortcut_ = shortcut;
  Explain();
}

void PanelButton::SetFigure(std::optional<std::size_t> figure) {
  if (figure == count_) return;
  count_ = figure;
  figure_ = figure ? ShortFigure(*figure) : wxString();
  Explain();
}

void PanelButton::Mark(bool isMarked) {
  if (isMarked == isMarked_) return;
  isMarked_ = isMarked;
  Refresh();
}

void PanelButton::ShowName(bool isShown) {
  isNameShown_ = isShown;
  Refresh();
}

bool PanelButton::Enable(bool enable) {
  if (!wxWindow::Enable(enable)) return false;
  isHovered_ = false;
  Refresh();
  return true;
}

// The tooltip and the name for screen readers have the whole figure.
void PanelButton::Explain() {
  wxString text = caption_;
  if (count_) text << ": " << wxString::Format("%zu", *count_);
  platform::SetAccessibleButton(*this, text);
  if (!shortcut_.empty()) text << " (" << shortcut_ << ")";
  SetToolTip(text);
  Refresh();
}

int PanelButton::NeededWidth() const {
  const int name = std::min(GetTextExtent(caption_).x, FromDIP(longestName));
  return FromDIP(leftMargin + iconSize + 3 * textGap) + name + GetTextExtent("9999").x;
}

void PanelButton::Paint() {
  wxAutoBufferedPaintDC dc(this);
  const wxColour ground = GetParent()->GetBackgroundColour();
  const wxColour accent = wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT);
  wxColour text = wxSystemSettings::GetColour(IsEnabled() ? wxSYS_COLOUR_BTNTEXT : wxSYS_COLOUR_GRAYTEXT);
  wxColour fill = ground;
  if (isMarked_) fill = Blend(accent, ground, 0.28);
  if (isHovered_ && IsEnabled() && !isMarked_) fill = Blend(text, ground, 0.09);
  const wxSize size = GetClientSize();
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(fill);
  dc.DrawRectangle(size);
  if (isMarked_) {
    dc.SetBrush(accent);
    dc.DrawRectangle(0, 0, FromDIP(markWidth), size.y);
  }
  const int side = std::min({FromDIP(iconSize), size.x, size.y});
  const int left = isNameShown_ ? FromDIP(leftMargin) : (size.x - side) / 2;
  if (const std::unique_ptr<wxGraphicsContext> context{wxGraphicsContext::Create(dc)})
    DrawIcon(*context, traits_.icon, traits_.letter, wxRect2DDouble(left, (size.y - side) / 2, side, side),
             text);
  if (isNameShown_) DrawTexts(dc, text);
  if (HasFocus()) wxRendererNative::Get().DrawFocusRect(this, dc, wxRect(size).Deflate(FromDIP(1)));
}

void PanelButton::DrawTexts(wxDC& dc, const wxColour& colour) {
  dc.SetFont(GetFont());
  const wxSize size = GetClientSize();
  const wxSize figure = figure_.empty() ? wxSize() : dc.GetTextExtent(figure_);
  const int left = FromDIP(leftMargin + iconSize + textGap);
  const int room = std::max(0, size.x - left - figure.x - FromDIP(figure_.empty() ? textGap : 2 * textGap));
  const wxString name = wxControl::Ellipsize(caption_, dc, wxELLIPSIZE_END, room, wxELLIPSIZE_FLAGS_NONE);
  dc.SetTextForeground(colour);
  dc.DrawText(name, left, (size.y - dc.GetTextExtent(name).y) / 2);
  dc.SetTextForeground(Blend(colour, GetParent()->GetBackgroundColour(), 0.72));
  dc.DrawText(figure_, size.x - figure.x - FromDIP(textGap), (size.y - figure.y) / 2);
}

}  // namespace tarvelo
