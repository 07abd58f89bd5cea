// The control of the hex view: rows of 16 bytes of an image, with a cursor and a selection. Only the
// rows that are seen are looked at, so that the size of the image costs nothing.
//
// Keys: arrows, Page Up and Down, Home and End (of the row; with Ctrl of the image), with Shift to
// select. Mouse: click, drag, Shift with a click, wheel. What is typed goes over the bytes, as digits or as
// text, whichever side the cursor is on; the canvas writes nothing itself, but says what was typed.
#pragma once

#include <wx/timer.h>
#include <wx/window.h>

#include <functional>

#include "document/hex_cursor.h"
#include "shell/hex/hex_paint.h"

namespace tarvelo {

class HexCanvas final : public wxWindow {
 public:
  explicit HexCanvas(wxWindow* parent);

  // Shows an image from its start, or nothing (null). It and its edits must stay until another is set.
  void SetImage(const Fullflash* image, const ImageEdits* edits);
  // Bytes of the image were changed.
  void ImageChanged();
  [[nodiscard]] bool HasImage() const { return scene_.Rows() > 0; }

  // Selects bytes, as far as the image has them, and puts the cursor on the first; without any only
  // that. Where it is out of sight it comes to lie a third from the top.
  void Go(Offset start, Offset size);
  void SelectAll();
  [[nodiscard]] Region Selection() const { return scene_.cursor.Selection(); }

  // Puts the cursor on the other side: from the digits to the text, or back.
  void SwitchSide();
  [[nodiscard]] bool CursorInText() const { return scene_.cursorInText; }

  [[nodiscard]] Offset TopRow() const { return scene_.topRow; }
  // Rows that are seen whole, 1 at the least.
  [[nodiscard]] Offset RowsSeen() const;
  // The middle of a byte's two digits.
  [[nodiscard]] wxPoint PlaceOf(Offset offset) const;

  bool SetFont(const wxFont& font) override;

  std::function<void()> onSelect;  // the cursor or the selection is another
  std::function<void()> onContextMenu;
  // A byte was typed over that at an offset. First comes one with a new first digit, then, `again`, the
  // same one with its second.
  std::function<void(Offset at, std::uint8_t byte, bool again)> onType;

 private:
  void BindKeyboard();
  void BindMouse();
  void BindScrolling();
  void MeasureFont();

  void ScrollToRow(Offset row);
  void ScrollToColumn(int column);
  void ShowCursor(bool aThirdDown);
  void ShowCursorColumn();
  void UpdateScrollbars();
  [[nodiscard]] int ColumnsSeen() const;
  void Scroll(const wxScrollWinEvent& event);
  void TurnWheel(wxMouseEvent& event);

  [[nodiscard]] Offset OffsetAt(const wxPoint& point) const;
  void PressButton(const wxMouseEvent& event);
  void DragTo(const wxPoint& point);
  void ScrollWhileDragging();
  void EndDrag();

  void PressKey(wxKeyEvent& event);
  void TypeKey(wxKeyEvent& event);
  bool TypeDigit(char32_t character);
  bool TypeCharacter(char32_t character);
  void Type(std::uint8_t byte, bool again, bool moveOn);
  void CursorMoved();
  void Paint();

  HexScene scene_;
  wxTimer dragTimer_;
  bool dragging_ = false;
  bool placeWhenSized_ = false;  // it went somewhere before it had a size
  int wheelTurned_ = 0;
};

}  // namespace tarvelo
