#include "shell/ringtones/piano_roll.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "shell/services/panel_commands.h"

namespace tarvelo {
namespace {

constexpr int highestKey = 127;
constexpr int slowest = 50;   // pixels per second at 96 dpi, at least
constexpr int fastest = 200;  // and at most
constexpr int widest = 100000000;
constexpr int scrollStep = 10;

std::int64_t Minutes(std::int64_t time) { return time / 60000; }

wxString ExactTime(std::int64_t time) {
  return wxString::Format("%lld:%02lld.%03lld", static_cast<long long>(Minutes(time)),
                          static_cast<long long>(time / 1000 % 60), static_cast<long long>(time % 1000));
}

}  // namespace

wxString KeyName(int key) {
  static constexpr std::array names{"C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"};
  return wxString::Format("%s%d", names[static_cast<std::size_t>(key % 12)], key / 12 - 1);
}

PianoRoll::PianoRoll(wxWindow* parent)
    : wxScrolledCanvas(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxHSCROLL) {
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  SetMinSize(FromDIP(wxSize(120, 60)));
  EnableScrolling(false, false);  // the keys stay in place, so everything is repainted
  ShowScrollbars(wxSHOW_SB_DEFAULT, wxSHOW_SB_NEVER);
  DisableKeyboardScrolling();
  Bind();
}

void PianoRoll::ShowMelody(std::span<const Tone> melody) {
  ShowText(wxString());
  lowest_ = highestKey;
  highest_ = 0;
  for (const Tone& record : melody.first(std::min(melody.size(), mostTones))) {
    const Tone tone = Heard(record);
    const std::int64_t begin = length_;
    length_ += tone.duration;
    if (tone.frequency == 0 || tone.duration == 0) continue;
    notes_.push_back({begin, length_, tone.frequency});
    const int key = Row(tone.frequency);
    lowest_ = std::min(lowest_, key);
    highest_ = std::max(highest_, key);
  }
  // At least an octave, and a free row on either side.
  if (notes_.empty()) lowest_ = highest_ = 69;
  const int missing = std::max(2, 13 - (highest_ - lowest_));
  lowest_ = std::max(0, lowest_ - missing / 2);
  highest_ = std::min(highestKey, highest_ + (missing + 1) / 2);
  Arrange();
}

void PianoRoll::ShowText(const wxString& text) {
  notes_.clear();
  length_ = 0;
  text_ = text;
  time_.reset();
  sounding_.reset();
  chosen_.reset();
  hovered_.reset();
  Arrange();
  Scroll(0, 0);
}

// --- geometry ---

// Short melodies fill the window; long ones scroll.
void PianoRoll::Arrange() {
  const int line = GetCharHeight() + FromDIP(4);
  const int keys = GetTextExtent("G#-1 ").x + FromDIP(10);
  const wxSize size = GetClientSize();
  area_ = wxRect(keys, line, std::max(1, size.x - keys), std::max(1, size.y - 2 * line));
  const auto length = static_cast<double>(std::max<std::int64_t>(length_, 1));
  const double fitting = (area_.width - FromDIP(8)) / length;
  scale_ = std::clamp(fitting, FromDIP(slowest) / 1000.0, FromDIP(fastest) / 1000.0);
  scale_ = std::min(scale_, widest / length);
  const int width = area_.x + static_cast<int>(length * scale_);
  SetScrollRate(scrollStep, 0);
  SetVirtualSize(width, 1);
  Refresh();
}

int PianoRoll::XOf(std::int64_t time) const {
  const auto x = static_cast<std::int64_t>(std::lround(static_cast<double>(time) * scale_));
  return static_cast<int>(x) + area_.x - CalcUnscrolledPosition(wxPoint(0, 0)).x;
}

std::int64_t PianoRoll::TimeAt(int x) const {
  const int place = x - area_.x + CalcUnscrolledPosition(wxPoint(0, 0)).x;
  return static_cast<std::int64_t>(place / scale_);
}

// The key of a tone. Tones outside the piano's range get the first or the last key.
int PianoRoll::Row(int frequency) const {
  return KeyOf(frequency).value_or(frequency < 440 ? 0 : highestKey);
}

wxRect PianoRoll::RowRect(int row) const {
  const double height = static_cast<double>(area_.height) / (highest_ - lowest_ + 1);
  const int top = area_.y + static_cast<int>(std::lround((highest_ - row) * height));
  const int bottom = area_.y + static_cast<int>(std::lround((highest_ - row + 1) * height));
  return {area_.x, top, area_.width, std::max(1, bottom - top)};
}

std::optional<std::size_t> PianoRoll::NoteAtTime(std::int64_t time) const {
  const auto note = std::ranges::partition_point(notes_, [&](const Note& n) { return n.end <= time; });
  if (note == notes_.end() || note->begin > time) return {};
  return static_cast<std::size_t>(note - notes_.begin());
}

std::optional<std::size_t> PianoRoll::NoteAt(const wxPoint& point) const {
  if (!area_.Contains(point)) return {};
  return NoteAtTime(TimeAt(point.x));
}

wxString PianoRoll::Headline() const {
  const auto& index = hovered_ ? hovered_ : sounding_ ? sounding_ : chosen_;
  if (!index) return ExactTime(time_.value_or(length_));
  const Note& note = notes_[*index];
  const auto key = KeyOf(note.frequency);
  return wxString::Format("%s   %d Hz   %lld ms   ", key ? KeyName(*key) : wxString("-"), note.frequency,
                          static_cast<long long>(note.end - note.begin)) +
         ExactTime(note.begin);
}

// --- moving ---

void PianoRoll::SetTime(std::optional<std::int64_t> time) {
  RefreshLine();
  time_ = time;
  const auto sounding = time ? NoteAtTime(*time) : std::nullopt;
  if (sounding != sounding_) Refresh();
  sounding_ = sounding;
  if (time && XOf(*time) > area_.GetRight() - area_.width / 8) ScrollTo(*time);
  if (time && XOf(*time) < area_.x) ScrollTo(*time);
  RefreshLine();
}

// Scrolls a time to the left of the window, with a little of what precedes it.
void PianoRoll::ScrollTo(std::int64_t time) {
  const int x = XOf(time) - area_.x - area_.width / 8 + CalcUnscrolledPosition(wxPoint(0, 0)).x;
  Scroll(std::max(0, x) / scrollStep, -1);
  Refresh();
}

// Repaints the line and the headline, which shows its time.
void PianoRoll::RefreshLine() {
  if (!time_) return;
  const wxSize size = GetClientSize();
  RefreshRect(wxRect(XOf(*time_) - FromDIP(3), 0, FromDIP(7), size.y));
  RefreshRect(wxRect(0, 0, size.x, area_.y));
}

void PianoRoll::Choose(std::size_t note) {
  if (note >= notes_.size()) return;
  chosen_ = note;
  hovered_.reset();  // until the mouse moves again
  ShowNote(notes_[note]);
  Refresh();
}

void PianoRoll::ShowNote(const Note& note) {
  if (XOf(note.begin) < area_.x || XOf(note.end) > area_.GetRight()) ScrollTo(note.begin);
}

// Below the chosen note, to which it scrolls.
wxPoint PianoRoll::MenuPlaceForKey() {
  if (!chosen_) return area_.GetTopLeft();
  const Note& note = notes_[*chosen_];
  ShowNote(note);
  return {XOf(note.begin), RowRect(Row(note.frequency)).GetBottom()};
}

void PianoRoll::PointAt(const wxPoint& point) {
  const auto note = NoteAt(point);
  if (note == hovered_) return;
  hovered_ = note;
  Refresh();
}

void PianoRoll::Bind() {
  const auto bind = [this](const auto& type, auto handler) { wxScrolledCanvas::Bind(type, handler); };
  bind(wxEVT_PAINT, [this](wxPaintEvent&) { Paint(); });
  bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    Arrange();
    event.Skip();
  });
  bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent& event) {
    Refresh();
    event.Skip();
  });
  bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) { PressKey(event); });
  bind(wxEVT_MOTION, [this](wxMouseEvent& event) { PointAt(event.GetPosition()); });
  bind(wxEVT_LEAVE_WINDOW, [this](wxMouseEvent&) { PointAt({-1, -1}); });
  bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent& event) {
    SetFocus();
    if (const auto note = NoteAt(event.GetPosition())) Choose(*note);
  });
  bind(wxEVT_LEFT_DCLICK, [this](wxMouseEvent&) {
    if (onActivate) onActivate();
  });
  bind(wxEVT_CONTEXT_MENU, [this](wxContextMenuEvent& event) {
    const bool isKey = event.GetPosition() == wxDefaultPosition;
    const wxPoint place = isKey ? MenuPlaceForKey() : wxPoint();
    if (onContextMenu) onContextMenu(MenuPlace(event, *this, place));
  });
  bind(wxEVT_MOUSEWHEEL, [this](wxMouseEvent& event) {
    const int steps = event.GetWheelRotation() > 0 ? -5 : 5;
    Scroll(std::max(0, GetScrollPos(wxHORIZONTAL) + steps), -1);
    Refresh();
  });
  for (const auto* type : {&wxEVT_SET_FOCUS, &wxEVT_KILL_FOCUS})
    bind(*type, [this](wxFocusEvent& event) {
      Refresh();
      event.Skip();
    });
}

void PianoRoll::PressKey(wxKeyEvent& event) {
  const int key = event.GetKeyCode();
  if (event.HasModifiers()) return event.Skip();
  if (key == WXK_RETURN || key == WXK_NUMPAD_ENTER) {
    if (onActivate) onActivate();
    return;
  }
  if (notes_.empty()) return event.Skip();
  const std::size_t last = notes_.size() - 1;
  switch (key) {
    case WXK_RIGHT: Choose(chosen_ ? std::min(*chosen_ + 1, last) : 0); break;
    case WXK_LEFT: Choose(chosen_ && *chosen_ > 0 ? *chosen_ - 1 : 0); break;
    case WXK_HOME: Choose(0); break;
    case WXK_END: Choose(last); break;
    default: event.Skip();
  }
}

}  // namespace tarvelo
