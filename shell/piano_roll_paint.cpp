// How the piano roll looks.
#include <wx/dcbuffer.h>
#include <wx/settings.h>

#include <algorithm>

#include "shell/piano_roll.h"

namespace tarvelo {
namespace {

wxColour Blend(const wxColour& under, const wxColour& over, double share) {
  const auto mix = [share](unsigned char a, unsigned char b) {
    return static_cast<unsigned char>(a + (b - a) * share);
  };
  return {mix(under.Red(), over.Red()), mix(under.Green(), over.Green()), mix(under.Blue(), over.Blue())};
}

bool IsBlack(int key) {
  constexpr int blackKeys = 1 << 1 | 1 << 3 | 1 << 6 | 1 << 8 | 1 << 10;
  return blackKeys >> key % 12 & 1;
}

}  // namespace

// The colours, from the system's: of light themes and dark ones.
struct PianoRoll::Paints {
  wxColour ground = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW);
  wxColour ink = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT);
  wxColour note = wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT);
  wxColour blackRow = Blend(ground, ink, 0.06);
  wxColour octave = Blend(ground, ink, 0.25);
  wxColour second = Blend(ground, ink, 0.12);
  wxColour quiet = Blend(ground, ink, 0.6);
  wxColour sounding = Blend(note, ink, 0.45);
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
  const wxRect area = Area();
  if (time_) {
    dc.SetPen(wxPen(paints.line, FromDIP(2)));
    dc.DrawLine(XOf(*time_), area.y, XOf(*time_), area.GetBottom() + 1);
  }
  PaintKeys(dc, paints);
  dc.SetTextForeground(paints.ink);
  dc.DrawText(Headline(), FromDIP(6), FromDIP(2));
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
    if (row % 12 != 0) continue;  // below each C an octave begins
    dc.SetPen(paints.octave);
    dc.DrawLine(rect.x, rect.GetBottom(), rect.GetRight() + 1, rect.GetBottom());
  }
}

void PianoRoll::PaintSeconds(wxDC& dc, const Paints& paints) const {
  const wxRect area = Area();
  const int gap = FromDIP(12);
  dc.SetTextForeground(paints.quiet);
  const std::int64_t first = std::max<std::int64_t>(0, TimeAt(area.x) / 1000);
  const std::int64_t last = std::min(TimeAt(area.GetRight()), length_) / 1000;
  const double second = 1000 * scale_;
  // A melody of days is drawn so narrow that not every second has a line.
  const auto step = std::max<std::int64_t>(1, static_cast<std::int64_t>(gap / second));
  int labelled = 0;
  for (std::int64_t i = first - first % step; i <= last; i += step) {
    const int x = XOf(i * 1000);
    dc.SetPen(paints.second);
    dc.DrawLine(x, area.y, x, area.GetBottom() + FromDIP(3));
    const wxString label =
        wxString::Format("%lld:%02lld", static_cast<long long>(i / 60), static_cast<long long>(i % 60));
    if (x < labelled) continue;
    dc.DrawText(label, x + FromDIP(3), area.GetBottom() + FromDIP(3));
    labelled = x + dc.GetTextExtent(label).x + gap;
  }
}

// Only what is seen is drawn, and a column of pixels only once.
void PianoRoll::PaintNotes(wxDC& dc, const Paints& paints) const {
  const wxRect area = Area();
  const std::int64_t begin = TimeAt(area.x);
  const std::int64_t end = TimeAt(area.GetRight()) + 1;
  int drawn = area.x - 1;
  auto note = std::ranges::partition_point(notes_, [&](const Note& n) { return n.end <= begin; });
  for (; note != notes_.end() && note->begin <= end; ++note) {
    const int left = std::max(XOf(note->begin), area.x - FromDIP(8));
    const int right = std::min(XOf(note->end), area.GetRight() + FromDIP(8));
    if (right <= drawn) continue;
    drawn = right;
    const wxRect row = RowRect(Row(note->frequency));
    const int gap = right - left > 2 ? 1 : 0;
    PaintNote(dc, paints, static_cast<std::size_t>(note - notes_.begin()),
              wxRect(left, row.y, std::max(1, right - left - gap), row.height));
  }
}

void PianoRoll::PaintNote(wxDC& dc, const Paints& paints, std::size_t index, const wxRect& bar) const {
  wxRect rect = bar;
  if (rect.height > 6) rect.Deflate(0, 1);
  const bool isMarked = index == chosen_ || index == hovered_;
  const wxColour& colour = index == sounding_ ? paints.sounding : paints.note;
  dc.SetPen(rect.width < 4 ? *wxTRANSPARENT_PEN : wxPen(isMarked ? paints.ink : colour));
  dc.SetBrush(colour);
  // A tone beside the piano is an empty bar at its end.
  if (!KeyOf(notes_[index].frequency)) {
    dc.SetPen(colour);
    dc.SetBrush(*wxTRANSPARENT_BRUSH);
  }
  if (rect.width < 4)
    dc.DrawRectangle(rect);
  else
    dc.DrawRoundedRectangle(rect, std::min({FromDIP(3), rect.width / 2, rect.height / 2}));
}

// The keys, with their names where there is room: every key's, or the octaves'.
void PianoRoll::PaintKeys(wxDC& dc, const Paints& paints) const {
  const wxRect area = Area();
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(paints.ground);
  dc.DrawRectangle(0, 0, area.x, GetClientSize().y);
  dc.DrawRectangle(0, 0, GetClientSize().x, area.y);
  const int text = GetCharHeight();
  int free = area.GetBottom() + text;  // the upper edge of the last name
  for (int row = lowest_; row <= highest_; ++row) {
    wxRect rect = RowRect(row);
    rect.x = 0;
    rect.width = area.x;
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(IsBlack(row) ? paints.octave : paints.ground);
    dc.DrawRectangle(0, rect.y, area.x - (IsBlack(row) ? FromDIP(4) : 0), rect.height);
    dc.SetPen(paints.second);
    dc.DrawLine(0, rect.GetBottom(), area.x, rect.GetBottom());
    const int top = rect.y + (rect.height - text) / 2;
    if (top + text > free || (rect.height < text - FromDIP(3) && row % 12 != 0)) continue;
    free = top + FromDIP(3);
    dc.SetTextForeground(row % 12 == 0 ? paints.ink : paints.quiet);
    const wxString name = KeyName(row);
    dc.DrawText(name, area.x - dc.GetTextExtent(name).x - FromDIP(7), top);
  }
  dc.SetPen(paints.octave);
  dc.DrawLine(area.x - 1, area.y, area.x - 1, area.GetBottom() + 1);
}

}  // namespace tarvelo
