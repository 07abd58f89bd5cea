// The whole image as a strip: parts of it in colour, where the current place is, and a click that goes
// there. Where several parts share a column of pixels, each shows as far as it covers the column; a part
// that is shorter than a pixel is still seen.
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

  // Shows parts, in order and apart from each other, of an image of so many bytes. What no part covers has
  // the window's colour. The mark goes.
  void Show(Offset imageSize, std::vector<StripPart> parts);
  using wxWindow::Show;
  // Marks the current place; a size of 0: none.
  void Mark(Offset offset, Offset size);

  // The left button was pressed, or is dragged, over the column of this offset: of what is painted there,
  // the first byte that lies in the column.
  std::function<void(Offset)> onClick;
  // What the tooltip says about the column under the mouse.
  std::function<wxString(Offset offset, Offset size)> describe;

  // The list beside it is the way for the keyboard.
  [[nodiscard]] bool AcceptsFocus() const override { return false; }

  // Where the first byte of a region is painted, the middle of its part of the column.
  [[nodiscard]] wxPoint PointOf(Offset offset) const;
  // The columns of pixels that a region of the image covers, at least one.
  [[nodiscard]] wxRect ColumnsOf(Offset offset, Offset size) const;

 private:
  struct Piece {
    Offset begin = 0;
    Offset end = 0;
    std::size_t colour = 0;  // of palette_
  };
  // What a colour has of a column.
  struct Share {
    std::size_t colour = 0;
    Offset first = 0;  // byte
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
  std::vector<wxColour> palette_;  // the first is the window's, of what no part covers
  Offset marked_ = 0;
  Offset markedSize_ = 0;
  wxBitmap bar_;                   // none: is to be painted
  std::optional<Offset> pointed_;  // while the button is held down
  int described_ = -1;             // the column of the tooltip
};

}  // namespace tarvelo
