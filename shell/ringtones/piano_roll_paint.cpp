// Painting of the piano roll.
#include <wx/dcbuffer.h>
#include <wx/settings.h>

#include <algorithm>

#include "shell/base/blend.h"
#include "shell/ringtones/piano_roll.h"

namespace tarvelo {
namespace {

bool IsBlack(int key) {
  constexpr int blackKeys = 1 << 1 | 1 << 3 | 1 << 6 | 1 << 8 | 1 << 10;
  return blackKeys >> key % 12 & 1;
}

}  // namespace

// The colours, derived from the system's for light and dark themes.
struct PianoRoll::Paints {
  wxColour ground = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW);
  wxColour ink = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT);
  // The highlight colour of dark themes is itself dark.
  wxColour note = Blend(ink, wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT),
                        ground.GetLuminance() < ink.GetLuminance() ? 0.3 : 0);
  wxColour blackRow = Blend(ink, ground, 0.06);
  wxColour octave = Blend(ink, ground, 0.25);
  wxColour second = Blend(ink, ground, 0.12);
  wxColour quiet = Blend(ink, ground, 0.6);
  wxColour sounding = Blend(ink, note, 0.45);
  wxColour line{0xE0, 0x40, 0x30};
};

void PianoRoll::Paint() {
  wxAutoBufferedPaintDC dc(this);
  const Paints paints;
  dc.SetBackground(paints.ground);
  dc.Clear();
  dc.SetFont(GetFont());
  if (length_ == 0) return PaintText(dc, paints);
  PaintRows(dc, paints);
  PaintSeconds(dc, paints);
  PaintNotes(dc, paints);
  if (time_) {
    dc.SetPen(wxPen(paints.line, FromDIP(2)));
    dc.DrawLine(XOf(*time_), area_.y, XOf(*time_), area_.GetBottom() + 1);
  }
  PaintKeys(dc, paints);
  dc.SetTextForeground(paints.ink);
  dc.DrawText(Headline(), FromDIP(6), FromDIP(2));
  if (!HasFocus()) return;
  dc.SetPen(paints.note);
  dc.SetBrush(*wxTRANSPARENT_BRUSH);
  dc.DrawRectangle(GetClientSize());
}

void PianoRoll::PaintText(wxDC& dc, const Paints& paints) const {
  dc.SetTextForeground(paints.quiet);
  dc.DrawLabel(text_, GetClientSize(), wxALIGN_CENTRE);
}

void PianoRoll::PaintRows(wxDC& dc, const Paints& paints) const {
  for (int row = lowest_; row <= highest_; ++row) {
    const wxRect rect = RowRect(row);
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(IsBlack(row) ? paints.blackRow : paints.ground);
    dc.DrawRectangle(rect);
    if (row % 12 != 0) continue;  // an octave starts at each C
    dc.SetPen(paints.octave);
    dc.DrawLine(rect.x, rect.GetBottom(), rect.GetRight() + 1, rect.GetBottom());
  }
}

void PianoRoll::PaintSeconds(wxDC& dc, const Paints& paints) const {
  const int gap = FromDIP(12);
  dc.SetTextForeground(paints.quiet);
  const std::int64_t first = std::max<std::int64_t>(0, TimeAt(area_.x) / 1000);
  const std::int64_t last = std::min(TimeAt(area_.GetRight()), length_) / 1000;
  const double second = 1000 * scale_;
  // A melody of several days is so narrow that not every second gets a line.
  const auto step = std::max<std::int64_t>(1, static_cast<std::int64_t>(gap / second));
  int labelled = 0;
  for (std::int64_t i = first - first % step; i <= last; i += step) {
    const int x = XOf(i * 1000);
    dc.SetPen(paints.second);
    dc.DrawLine(x, area_.y, x, area_.GetBottom() + FromDIP(3));
    const wxString label =
        wxString::Format("%lld:%02lld", static_cast<long long>(i / 60), static_cast<long long>(i % 60));
    if (x < labelled) continue;
    dc.DrawText(label, x + FromDIP(3), area_.GetBottom() + FromDIP(3));
    labelled = x + dc.GetTextExtent(label).x + gap;
  }
}

// Draws only the visible notes, and only the first of those that share a column of pixels.
void PianoRoll::PaintNotes(wxDC& dc, const Paints& paints) const {
  const int margin = FromDIP(8);  // beyond the edges, where bars are clipped
  std::int64_t time = TimeAt(area_.x);
  for (;;) {
    const auto note = std::ranges::partition_point(notes_, [&](const Note& n) { return n.end <= time; });
    if (note == notes_.end() || XOf(note->begin) > area_.GetRight()) return;
    const int left = std::max(XOf(note->begin), area_.x - margin);
    const int right = std::min(XOf(note->end), area_.GetRight() + margin);
    const wxRect row = RowRect(Row(note->frequency));
    const int gap = right - left > 2 ? 1 : 0;
    PaintNote(dc, paints, static_cast<std::size_t>(note - notes_.begin()),
              wxRect(left, row.y, std::max(1, right - left - gap), row.height));
    time = std::max(note->end, TimeAt(left + 1));
  }
}

void PianoRoll::PaintNote(wxDC& dc, const Paints& paints, std::size_t index, const wxRect& bar) const {
  wxRect rect = bar;
  if (rect.height > 6) rect.Deflate(0, 1);
  const bool isMarked = index == chosen_ || index == hovered_;
  const wxColour& colour = index == sounding_ ? paints.sounding : paints.note;
  dc.SetPen(rect.width < 4 ? *wxTRANSPARENT_PEN : wxPen(isMarked ? paints.ink : colour));
  dc.SetBrush(colour);
  // A tone outside the piano's range is an empty bar at its end.
  if (!KeyOf(notes_[index].frequency)) {
    dc.SetPen(colour);
    dc.SetBrush(*wxTRANSPARENT_BRUSH);
  }
  if (rect.width < 4)
    dc.DrawRectangle(rect);
  else
    dc.DrawRoundedRectangle(rect, std::min({FromDIP(3), rect.width / 2, rect.height / 2}));
}

void PianoRoll::PaintKeys(wxDC& dc, const Paints& paints) const {
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(paints.ground);
  dc.DrawRectangle(0, 0, area_.x, GetClientSize().y);
  dc.DrawRectangle(0, 0, GetClientSize().x, area_.y);
  for (int row = lowest_; row <= highest_; ++row) {
    const wxRect rect = RowRect(row);
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(IsBlack(row) ? paints.octave : paints.ground);
    dc.DrawRectangle(0, rect.y, area_.x - (IsBlack(row) ? FromDIP(4) : 0), rect.height);
    const bool isBetweenWhites = row % 12 == 0 || row % 12 == 5;
    if (!isBetweenWhites) continue;
    dc.SetPen(paints.octave);
    dc.DrawLine(0, rect.GetBottom(), area_.x, rect.GetBottom());
  }
  dc.SetPen(paints.octave);
  dc.DrawLine(area_.x - 1, area_.y, area_.x - 1, area_.GetBottom() + 1);
  PaintNames(dc, paints);
}

// Writes every key's name if there is room, if need be in smaller letters; otherwise only those of the
// octaves.
void PianoRoll::PaintNames(wxDC& dc, const Paints& paints) const {
  const int rowHeight = area_.height / (highest_ - lowest_ + 1);
  const bool isEach = rowHeight >= FromDIP(10);
  wxFont font = GetFont();
  if (isEach) font.SetPixelSize({0, std::min(rowHeight - FromDIP(1), font.GetPixelSize().y)});
  dc.SetFont(font);
  const int text = dc.GetCharHeight();
  int free = GetClientSize().y;
  for (int row = lowest_; row <= highest_; ++row) {
    const bool isC = row % 12 == 0;
    const wxRect rect = RowRect(row);
    const int top = std::min(rect.y + (rect.height - text) / 2, area_.GetBottom() + FromDIP(3) - text);
    if (!isC && !isEach) continue;
    if (!isEach && top + text > free) continue;
    free = top;
    dc.SetTextForeground(isC || IsBlack(row) ? paints.ink : paints.quiet);
    const wxString name = KeyName(row);
    dc.DrawText(name, area_.x - dc.GetTextExtent(name).x - FromDIP(7), top);
  }
  dc.SetFont(GetFont());
}

}  // namespace tarvelo
