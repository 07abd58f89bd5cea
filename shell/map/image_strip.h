// The whole image as a strip: coloured parts, a mark at the current place, and clicks that go to a place. If
// several parts share a column of pixels, each takes a share of the column's height in proportion to the
// bytes it covers; a part shorter than a pixel stays visible.
#pragma once

#include <wx/bitmap.h>
#include <wx/window.h>

#include <functional>
#include <optional>
#include <vector>

#include "text/bytes.h"

namespace tarvelo {

struct StripPart {
  Offset offset = 0;
  Offset size = 0;
  wxColour colour;
};

class ImageStrip final : public wxWindow {
 public:
  explicit ImageStrip(wxWindow* parent);

  // Shows parts of an image of this size in bytes. The parts must be sorted and must not overlap. The
  // window's colour fills the gaps between them. Removes the mark.
  void Show(Offset imageSize, std::vector<StripPart> parts);
  using wxWindow::Show;
  // Marks the current place; a size of 0 removes the mark.
  void Mark(Offset offset, Offset size);

  // The left button was pressed or dragged over the column of this offset: the first byte, within that
  // column, of the colour under the mouse.
  std::function<void(Offset)> onClick;
  // Returns the tooltip for the bytes of the column under the mouse.
  std::function<wxString(Offset offset, Offset size)> describe;

  // Keyboard users have the list beside it.
  [[nodiscard]] bool AcceptsFocus() const override { return false; }

  // Where the first byte of a region is painted: the middle of its share of the column.
  [[nodiscard]] wxPoint PointOf(Offset offset) const;
  // The columns of pixels that a region of the image covers, at least one.
  [[nodiscard]] wxRect ColumnsOf(Offset offset, Offset size) const;

 private:
  struct Piece {
    Offset begin = 0;
    Offset end = 0;
    std::size_t colour = 0;  // an index into palette_
  };
  // The share of a column that a colour has.
  struct Share {
    std::size_t colour = 0;
    Offset first = 0;  // the offset of its first byte
    Offset size = 0;
    int top = 0;  // in pixels from the top of the bar
    int bottom = 0;
  };

  [[nodiscard]] wxRect Bar() const;
  [[nodiscard]] int ColumnAt(int x) const;
  [[nodiscard]] Offset Begin(int column) const;
  [[nodiscard]] Offset End(int column) const;
  [[nodiscard]] std::vector<Share> Shares(int column) const;
  void Stack(std::vector<Share>& shares) const;
  [[nodiscard]] Offset PlaceAt(const wxPoint& point) const;

  void BindMouse();
  void Point(const wxPoint& point);
  void Describe(int x);
  void Paint();
  [[nodiscard]] wxBitmap PaintBar() const;
  void PaintMark(wxDC& dc) const;

  Offset size_ = 0;
  std::vector<Piece> pieces_;
  std::vector<wxColour> palette_;  // the first is the window's colour, for the gaps
  Offset marked_ = 0;
  Offset markedSize_ = 0;
  wxBitmap bar_;                   // invalid: must be painted
  std::optional<Offset> pointed_;  // set while the button is held down
  int described_ = -1;             // the column that the tooltip describes
};

}  // namespace tarvelo
