// The control of the hex view: rows of 16 bytes of an image, with a cursor and a selection. It reads only
// the visible rows, so the size of the image costs nothing.
//
// Keys: arrows, Page Up and Down, Home and End (of the row; with Ctrl of the image), with Shift to select.
// Mouse: click, drag, Shift with a click, wheel. Typing overwrites bytes, as digits or as text, depending on
// the side that the cursor is on; the canvas itself writes nothing, but reports the typed bytes.
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

  // Shows an image from its start, or nothing (null). The image and its edits must stay valid until the next
  // call.
  void SetImage(const Fullflash* image, const ImageEdits* edits);
  // Call after bytes of the image have changed.
  void ImageChanged();
  [[nodiscard]] bool HasImage() const { return scene_.Rows() > 0; }

  // Selects bytes, clipped to the image, and puts the cursor on the first; a size of 0 only moves the cursor.
  // If the cursor is out of sight, scrolls it to a third from the top.
  void Go(Offset start, Offset size);
  void SelectAll();
  [[nodiscard]] Region Selection() const { return scene_.cursor.Selection(); }

  // Moves the cursor to the other side: from the digits to the text, or back.
  void SwitchSide();
  [[nodiscard]] bool CursorInText() const { return scene_.cursorInText; }

  [[nodiscard]] Offset TopRow() const { return scene_.topRow; }
  // The number of rows that are fully visible, at least 1.
  [[nodiscard]] Offset RowsSeen() const;
  // The point in the middle of a byte's two digits.
  [[nodiscard]] wxPoint PlaceOf(Offset offset) const;

  bool SetFont(const wxFont& font) override;

  std::function<void()> onSelect;                           // the cursor or the selection has changed
  std::function<void(const wxPoint& place)> onContextMenu;  // on the screen
  // A byte was typed over the one at an offset. A hexadecimal byte takes two calls: the first has its new
  // first digit; the second, with `again`, has both.
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

  void HoldStart();
  void PressKey(wxKeyEvent& event);
  void TypeKey(wxKeyEvent& event);
  bool TypeDigit(char32_t character);
  bool TypeCharacter(char32_t character);
  void Type(std::uint8_t byte, bool again, bool moveOn);
  void CursorMoved();  // by the user
  void Moved();
  void Paint();

  HexScene scene_;
  wxTimer dragTimer_;
  bool dragging_ = false;
  bool isChosen_ = false;        // the selection is the program's: the user extends it from its start
  bool placeWhenSized_ = false;  // Go was called before the window had a size
  int wheelTurned_ = 0;
};

}  // namespace tarvelo
