#include "shell/hex/hex_paint.h"
#include "core/byte_text.h"

#include <wx/settings.h>

#include <algorithm>
#include <bitset>

#include "core/notation.h"
#include "core/places.h"
#include "shell/base/strings.h"
#include "shell/view/blend.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

const wxColour red(220, 30, 50);

struct Palette {
  wxColour background = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW);
  wxColour text = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT);
  wxColour highlight = wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT);
  wxColour highlightText = wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHTTEXT);
  wxColour place = Blend(text, background, 0.6);  // offsets and addresses
  wxColour zero = Blend(text, background, 0.6);
  wxColour erased = Blend(text, background, 0.35);
  wxColour line = Blend(text, background, 0.2);
  wxColour changed = Blend(red, text, 0.75);
  wxColour changedGround = Blend(red, background, 0.12);
  wxColour changedHighlight = Blend(red, highlight, 0.55);
};

// Draws one row.
class Row {
 public:
  Row(wxDC& dc, const HexScene& scene, const Palette& palette, Offset row)
      : dc_(dc),
        scene_(scene),
        palette_(palette),
        start_(row * bytesInRow),
        y_(scene.Y(row)),
        bytes_(scene.image->ff().subspan(static_cast<std::size_t>(start_))),
        selection_(scene.cursor.Selection()) {
    bytes_ = bytes_.first(std::min<std::size_t>(bytes_.size(), bytesInRow));
    for (int i = 0; i < Count(); ++i)
      changed_[static_cast<std::size_t>(i)] = scene.edits->IsChanged(*scene.image, start_ + i);
  }

  void Draw() {
    DrawSelection();
    DrawChanged();
    dc_.SetTextForeground(palette_.place);
    Put(0, Wx(OffsetText(*scene_.image, start_)));
    Put(scene_.columns.Address(), Wx(AddressText(*scene_.image, start_)));
    DrawHexDigits();
    DrawText();
    DrawCursor();
  }

 private:
  [[nodiscard]] int Count() const { return static_cast<int>(bytes_.size()); }
  [[nodiscard]] std::uint8_t At(int i) const { return bytes_[static_cast<std::size_t>(i)]; }

  [[nodiscard]] bool IsChanged(int i) const { return changed_[static_cast<std::size_t>(i)]; }
  [[nodiscard]] bool IsSelected(int i) const { return selection_.Holds(start_ + i); }

  void Put(int column, const wxString& text) { dc_.DrawText(text, scene_.X(column), y_); }

  [[nodiscard]] const wxColour& ColourOf(int i) const {
    if (IsSelected(i)) return palette_.highlightText;
    if (IsChanged(i)) return palette_.changed;
    if (At(i) == 0xFF) return palette_.erased;
    return At(i) == 0 ? palette_.zero : palette_.text;
  }

  // The columns first .. end - 1 of this row.
  [[nodiscard]] wxRect Cells(int first, int end) const {
    return {scene_.X(first), y_, scene_.X(end) - scene_.X(first), scene_.rowHeight};
  }

  void DrawSelection() {
    const auto first = static_cast<int>(std::max<Offset>(0, selection_.offset - start_));
    const auto last = static_cast<int>(std::min<Offset>(Count(), selection_.End() - start_)) - 1;
    if (selection_.size == 0 || first > last) return;
    DrawGround(first, last, palette_.highlight);
  }

  void DrawChanged() {
    for (int i = 0; i < Count(); ++i) {
      const int first = i;
      while (i < Count() && IsChanged(i) && IsSelected(i) == IsSelected(first)) ++i;
      if (i == first) continue;
      --i;
      DrawGround(first, i, IsSelected(i) ? palette_.changedHighlight : palette_.changedGround);
    }
  }

  // Paints the background of the bytes first .. last.
  void DrawGround(int first, int last, const wxColour& colour) {
    dc_.SetPen(*wxTRANSPARENT_PEN);
    dc_.SetBrush(colour);
    dc_.DrawRectangle(Cells(scene_.columns.Hex(first), scene_.columns.Hex(last) + 2));
    dc_.DrawRectangle(Cells(scene_.columns.Text(first), scene_.columns.Text(last) + 1));
  }

  // Draws neighbours of the same colour in one call: a call for each byte would be slow.
  void DrawHexDigits() {
    for (int i = 0; i < Count();) {
      const int first = i;
      std::string digits;
      do digits += HexOfByte(At(i++)) + ' ';
      while (i < Count() && i != bytesInRow / 2 && ColourOf(i) == ColourOf(first));
      dc_.SetTextForeground(ColourOf(first));
      Put(scene_.columns.Hex(first), Wx(digits));
    }
  }

  // Draws characters that may come from a fallback font with a different width one at a time.
  void DrawText() {
    const auto isPlain = [this](int i) { return ShownCharacter(At(i)) < 0x80; };
    for (int i = 0; i < Count();) {
      const int first = i;
      std::u16string text;
      do text += ShownCharacter(At(i++));
      while (i < Count() && isPlain(first) && isPlain(i) && ColourOf(i) == ColourOf(first));
      dc_.SetTextForeground(ColourOf(first));
      Put(scene_.columns.Text(first), Wx(ToUtf8(text)));
    }
  }

  // A frame on both sides; the one with the keyboard focus is stronger.
  void DrawCursor() {
    const Offset i = scene_.cursor.At() - start_;
    if (i < 0 || i >= Count()) return;
    const int hex = scene_.columns.Hex(static_cast<int>(i));
    const int text = scene_.columns.Text(static_cast<int>(i));
    dc_.SetBrush(*wxTRANSPARENT_BRUSH);
    const auto frame = [this](const wxRect& cells, bool isActive) {
      dc_.SetPen(isActive && scene_.focused ? palette_.text : palette_.place);
      dc_.DrawRectangle(wxRect(cells).Inflate(1, 0));
    };
    frame(Cells(hex + (scene_.secondDigit ? 1 : 0), hex + 2), !scene_.cursorInText);
    frame(Cells(text, text + 1), scene_.cursorInText);
  }

  wxDC& dc_;
  const HexScene& scene_;
  const Palette& palette_;
  Offset start_;
  int y_;
  Bytes bytes_;
  Region selection_;
  std::bitset<bytesInRow> changed_;
};

void DrawHeader(wxDC& dc, const HexScene& scene, const Palette& palette, int width) {
  dc.SetTextForeground(palette.place);
  const int y = (scene.headerHeight - dc.GetCharHeight()) / 2;
  for (int i = 0; i < bytesInRow; ++i) {
    const wxString digit = Wx(Hex(i));
    dc.DrawText(digit, scene.X(scene.columns.Hex(i) + 1), y);
    dc.DrawText(digit, scene.X(scene.columns.Text(i)), y);
  }
  dc.SetPen(palette.line);
  dc.DrawLine(0, scene.headerHeight - 1, width, scene.headerHeight - 1);
}

}  // namespace

Offset HexScene::Rows() const {
  if (!image || !image->IsOpen()) return 0;
  return image->ffEnd() / bytesInRow + 1;
}

void DrawHex(wxDC& dc, const HexScene& scene, const wxSize& client) {
  const Palette palette;
  DrawHeader(dc, scene, palette, client.x);
  const Offset end = std::min(scene.Rows(), scene.RowAt(client.y) + 1);
  for (Offset row = scene.topRow; row < end; ++row) Row(dc, scene, palette, row).Draw();
}

}  // namespace tarvelo
