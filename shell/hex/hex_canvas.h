// The control of the hex view: the bytes of an image in rows, with a cursor and a selection of bytes.
//
// Typing overwrites bytes, as digits or as text, depending on the side that the cursor is on; the canvas
// itself writes nothing, but reports the typed bytes. Tab changes sides, Ctrl+Tab leaves the control, Escape
// drops the selection.
#pragma once

#include <memory>

#include "shell/hex/hex_look.h"
#include "shell/hex/hex_paint.h"
#include "shell/view/row_canvas.h"

namespace tarvelo {

class HexCanvas final : public RowCanvas {
 public:
  explicit HexCanvas(wxWindow* parent);

  // Shows an image from its start, or nothing (null). The image and its edits must stay valid until the next
  // call.
  void SetImage(const Fullflash* image, const ImageEdits* edits);
  // Shows an image that nobody can type into, with `shift` added to each offset: its byte shift comes first,
  // and `units` bytes follow. `with` shows which bytes differ from those of its own byte 0 on.
  void SetOther(std::shared_ptr<const Fullflash> image, Offset shift, const Fullflash& with, Offset units);
  // Call after bytes of the image have changed.
  void ImageChanged();
  [[nodiscard]] bool HasImage() const { return scene_.image != nullptr; }

  // Shows which bytes differ from those of another image; unit u is compared with its byte u + shift. Null:
  // none.
  void CompareWith(std::shared_ptr<const Fullflash> other, Offset shift);
  // What marks bytes beside their own values; null: nothing.
  void SetNames(const Names* names) { scene_.names = names; }
  void SetMap(std::shared_ptr<const DumpMap> map);
  [[nodiscard]] const DumpMap* Map() const { return scene_.map.get(); }
  void SetLook(const HexLook& look);
  [[nodiscard]] int BytesInRow() const { return scene_.columns.Bytes(); }
  [[nodiscard]] TextEncoding Encoding() const { return scene_.encoding; }

  // Selects bytes, clipped to the image, and puts the cursor on the first; a size of 0 only moves the cursor.
  // If the cursor is out of sight, scrolls it to a third from the top.
  void Go(Offset start, Offset size) { GoTo(start, size); }
  // Takes over a cursor and a selection, without scrolling.
  void SetCursor(const RowCursor& cursor);
  [[nodiscard]] Region Selection() const { return scene_.cursor.Selection(); }
  [[nodiscard]] const RowCursor& Cursor() const { return scene_.cursor; }

  // Moves the cursor to the other side: from the digits to the text, or back.
  void SwitchSide();
  [[nodiscard]] bool CursorInText() const { return scene_.cursorInText; }

  // The point in the middle of a byte's two digits.
  [[nodiscard]] wxPoint PlaceOf(Offset offset) const;

  // A byte was typed over the one at an offset. A hexadecimal byte takes two calls: the first has its new
  // first digit; the second, with `again`, has both. Empty: nobody can type.
  std::function<void(Offset at, std::uint8_t byte, bool again)> onType;
  std::function<void(int steps)> onZoom;  // the user wants the font larger, or smaller

 private:
  [[nodiscard]] Offset Rows() const override { return scene_.Rows(); }
  [[nodiscard]] int Columns() const override { return scene_.columns.End(); }
  [[nodiscard]] Offset RowOf(Offset unit) const override { return unit / BytesInRow(); }
  [[nodiscard]] Offset UnitAt(const wxPoint& point) const override;
  [[nodiscard]] std::pair<int, int> ColumnsOf(Offset unit) const override;
  void Draw(wxDC& dc) override;
  void Pressed(const wxPoint& point) override;
  void HasMoved() override { scene_.secondDigit = false; }
  [[nodiscard]] wxPoint CursorPlace() const override;

  void Show(const Fullflash* image, Offset units);
  void FitColumns();
  void PressKey(wxKeyEvent& event);
  void TurnWheel(wxMouseEvent& event);
  void TypeKey(wxKeyEvent& event);
  bool TypeDigit(char32_t character);
  bool TypeCharacter(char32_t character);
  void Type(std::uint8_t byte, bool again, bool moveOn);

  HexScene scene_;
  HexLook look_;
  double usualPoints_ = 0;
  int zoomTurned_ = 0;                     // of the wheel, less than a step
  std::shared_ptr<const Fullflash> kept_;  // the image of SetOther
  std::shared_ptr<const Fullflash> compared_;
};

}  // namespace tarvelo
