// A melody as a picture: pitch over time, a bar for each note, beside the keys of a piano. A vertical line
// shows the playing position. The headline describes one note: the one under the mouse, the sounding one, or
// the chosen one (click, arrow keys).
#pragma once

#include <wx/scrolwin.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "ringtones/melody.h"

namespace tarvelo {

class PianoRoll final : public wxScrolledCanvas {
 public:
  // A longer melody is drawn only up to this many tones, but played in full.
  static constexpr std::size_t mostTones = 1000000;

  struct Note {
    std::int64_t begin = 0;  // ms from the start of the melody
    std::int64_t end = 0;
    int frequency = 0;  // Hz, never 0: a rest is a gap
  };

  explicit PianoRoll(wxWindow* parent);

  // Shows a melody (records, or their audible tones), a few lines of text, or nothing.
  void ShowMelody(std::span<const Tone> melody);
  void ShowText(const wxString& text);
  void Clear() { ShowText(wxString()); }

  // Moves the line to a time and scrolls to it; no time hides the line.
  void SetTime(std::optional<std::int64_t> time);

  [[nodiscard]] const std::vector<Note>& Notes() const { return notes_; }
  [[nodiscard]] std::int64_t Length() const { return length_; }  // ms
  [[nodiscard]] const wxString& Text() const { return text_; }
  [[nodiscard]] std::optional<std::size_t> Chosen() const { return chosen_; }
  // Chooses a note and scrolls to it.
  void Choose(std::size_t note);
  // The note whose bar is above or below a point of the window.
  [[nodiscard]] std::optional<std::size_t> NoteAt(const wxPoint& point) const;
  // The current headline.
  [[nodiscard]] wxString Headline() const;

  std::function<void()> onActivate;                         // double click, Enter
  std::function<void(const wxPoint& place)> onContextMenu;  // on the screen

 private:
  struct Paints;

  void Arrange();
  void ScrollTo(std::int64_t time);
  void ShowNote(const Note& note);
  [[nodiscard]] int XOf(std::int64_t time) const;
  [[nodiscard]] std::int64_t TimeAt(int x) const;
  [[nodiscard]] int Row(int frequency) const;
  [[nodiscard]] wxRect RowRect(int row) const;
  [[nodiscard]] std::optional<std::size_t> NoteAtTime(std::int64_t time) const;
  void RefreshLine();

  void Bind();
  void Paint();
  void PaintText(wxDC& dc, const Paints& paints) const;
  void PaintRows(wxDC& dc, const Paints& paints) const;
  void PaintSeconds(wxDC& dc, const Paints& paints) const;
  void PaintNotes(wxDC& dc, const Paints& paints) const;
  void PaintNote(wxDC& dc, const Paints& paints, std::size_t index, const wxRect& bar) const;
  void PaintKeys(wxDC& dc, const Paints& paints) const;
  void PaintNames(wxDC& dc, const Paints& paints) const;
  void PressKey(wxKeyEvent& event);
  [[nodiscard]] wxPoint MenuPlaceForKey();
  void PointAt(const wxPoint& point);

  std::vector<Note> notes_;
  std::int64_t length_ = 0;
  wxRect area_;     // the notes' area: below the headline, above the seconds, beside the keys
  int lowest_ = 0;  // the keys of the bottom and the top row
  int highest_ = 0;
  double scale_ = 1;  // pixels per millisecond
  wxString text_;
  std::optional<std::int64_t> time_;
  std::optional<std::size_t> sounding_;
  std::optional<std::size_t> chosen_;
  std::optional<std::size_t> hovered_;
};

// The name of a MIDI key in scientific notation: "A4" for 69, "C#-1" for 1.
[[nodiscard]] wxString KeyName(int key);

}  // namespace tarvelo
