// The control of the hex view: rows of 16 bytes of an image, with a cursor and a selection of bytes.
//
// Typing overwrites bytes, as digits or as text, depending on the side that the cursor is on; the canvas
// itself writes nothing, but reports the typed bytes.
#pragma once

#include "shell/hex/hex_paint.h"
#include "shell/view/row_canvas.h"

namespace tarvelo {

class HexCanvas final : public RowCanvas {
 public:
  explicit HexCanvas(wxWindow* parent);

  // Shows an image from its start, or nothing (null). The image and its edits must stay valid until the next
  // call.
  void SetImage(const Fullflash* image, const ImageEdits* edits);
  // Call after bytes of the image have changed.
  void ImageChanged();
  [[nodiscard]] bool HasImage() const { return scene_.Rows() > 0; }

  // Selects bytes, clipped to the image, and puts the cursor on the first; a size of 0 only moves the cursor.
  // If the cursor is out of sight, scrolls it to a third from the top.
  void Go(Offset start, Offset size) { GoTo(start, size); }
  [[nodiscard]] Region Selection() const { return scene_.cursor.Selection(); }

  // Moves the cursor to the other side: from the digits to the text, or back.
  void SwitchSide();
  [[nodiscard]] bool CursorInText() const { return scene_.cursorInText; }

  // The point in the middle of a byte's two digits.
  [[nodiscard]] wxPoint PlaceOf(Offset offset) const;

  // A byte was typed over the one at an offset. A hexadecimal byte takes two calls: the first has its new
  // first digit; the second, with `again`, has both.
  std::function<void(Offset at, std::uint8_t byte, bool again)> onType;

 private:
  [[nodiscard]] Offset Rows() const override { return scene_.Rows(); }
  [[nodiscard]] int Columns() const override { return scene_.columns.End(); }
  [[nodiscard]] Offset RowOf(Offset unit) const override { return unit / bytesInRow; }
  [[nodiscard]] Offset UnitAt(const wxPoint& point) const override;
  [[nodiscard]] std::pair<int, int> ColumnsOf(Offset unit) const override;
  void Draw(wxDC& dc) override;
  void Pressed(const wxPoint& point) override;
  void HasMoved() override { scene_.secondDigit = false; }
  [[nodiscard]] wxPoint CursorPlace() const override;

  void TypeKey(wxKeyEvent& event);
  bool TypeDigit(char32_t character);
  bool TypeCharacter(char32_t character);
  void Type(std::uint8_t byte, bool again, bool moveOn);

  HexScene scene_;
};

}  // namespace tarvelo
