// The control of the hex view: rows of 16 bytes of an image, with a cursor and a selection. Only the
// rows that are seen are looked at, so that the size of the image costs nothing.
//
// Keys: arrows, Page Up and Down, Home and End (of the row; with Ctrl of the image), with Shift to
// select. Mouse: click, drag, Shift with a click, wheel.
#pragma once

#include <wx/timer.h>
#include <wx/window.h>

#include <functional>

#include "shell/hex_cursor.h"
#include "shell/hex_paint.h"

namespace tarvelo {

class HexCanvas final : public wxWindow {
 public:
  explicit HexCanvas(wxWindow* parent);

  // Shows an image from its start, or nothing (null). It must stay until another is set.
  void SetImage(const Fullflash* image);
  [[nodiscard]] bool HasImage() const { return scene_.Rows() > 0; }

  // Selects bytes, as far as the image has them, and puts the cursor on the first; without any only
  // that. Where it is out of sight it comes to lie a third from the top.
  void Go(Offset start, Offset size);
  void SelectAll();
  [[nodiscard]] ByteRange Selection() const { return scene_.cursor.Selection(); }

  [[nodiscard]] Offset TopRow() const { return scene_.topRow; }
  // Rows that are seen whole, 1 at the least.
  [[nodiscard]] Offset RowsSeen() const;
  // The middle of a byte's two digits.
  [[nodiscard]] wxPoint PlaceOf(Offset offset) const;

  bool SetFont(const wxFont& font) override;

  std::function<void()> onSelect;  // the cursor or the selection is another
  std::function<void()> onContextMenu;

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
  void CursorMoved();
  void Paint();

  HexScene scene_;
  wxTimer dragTimer_;
  bool dragging_ = false;
  bool placeWhenSized_ = false;  // it went somewhere before it had a size
  int wheelTurned_ = 0;
};

}  // namespace tarvelo
