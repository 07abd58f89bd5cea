// A control of any number of rows, with a cursor and a selection: font, scrolling, mouse, keys. It draws only
// the visible rows, so their number costs nothing. Views of the image derive from it.
//
// Keys: arrows, Page Up and Down, Home and End (of the row; with Ctrl of the image), with Shift to select.
// Mouse: click, drag, Shift with a click, wheel.
#pragma once

#include <wx/dc.h>
#include <wx/timer.h>
#include <wx/window.h>

#include <functional>

#include "shell/view/row_scene.h"

namespace tarvelo {

class RowCanvas : public wxWindow {
 public:
  // The number of the row at the top, and of the rows that are fully visible, at least 1.
  [[nodiscard]] Offset TopRow() const { return scene_.topRow; }
  [[nodiscard]] Offset RowsSeen() const;
  // Scrolls this row to the top, or as near as possible.
  void ScrollToRow(Offset row);

  bool SetFont(const wxFont& font) override;

  // The width that shows all columns.
  [[nodiscard]] int WholeWidth() const;
  [[nodiscard]] bool HasRows() const { return scene_.cursor.Units() > 0; }
  void SelectAll() { SelectUnits({0, scene_.cursor.Units()}); }

  std::function<void()> onSelect;                           // the cursor or the selection has changed
  std::function<void(const wxPoint& place)> onContextMenu;  // on the screen
  std::function<void()> onScroll;                           // TopRow has changed

 protected:
  // `scene` is a member of the derived class.
  RowCanvas(wxWindow* parent, RowScene& scene);

  // The number of rows and of columns.
  [[nodiscard]] virtual Offset Rows() const = 0;
  [[nodiscard]] virtual int Columns() const = 0;
  // The row of a unit (RowCursor), and the unit at a point.
  [[nodiscard]] virtual Offset RowOf(Offset unit) const = 0;
  [[nodiscard]] virtual Offset UnitAt(const wxPoint& point) const = 0;
  // The columns of a unit, first and end, which are scrolled into sight. None: all columns matter alike.
  [[nodiscard]] virtual std::pair<int, int> ColumnsOf(Offset) const { return {0, 0}; }
  // Draws the visible rows. `dc` has the font of the rows.
  virtual void Draw(wxDC& dc) = 0;
  // The mouse was pressed on a point, before the cursor moves there; clicked twice.
  virtual void Pressed(const wxPoint&) {}
  virtual void DoubleClicked(const wxPoint&) {}
  // After the cursor has moved, before onSelect.
  virtual void HasMoved() {}

  // Shows `units` units in rows of `unitsInRow`, from the start.
  void Restart(Offset units, Offset unitsInRow);
  // Call after the number of rows or columns has changed.
  void UpdateScrollbars();
  // Selects units and puts the cursor on the first; a size of 0 only moves the cursor. If the cursor is out
  // of sight, scrolls it to a third from the top.
  void GoTo(Offset unit, Offset size);
  void SelectUnits(const Region& units);
  // Scrolls to the cursor: no farther than needed, or, with `aThirdDown`, to a third from the top.
  void ShowCursor(bool aThirdDown);
  void CursorMoved();  // by the user
  // Moves the cursor as a key does.
  void MoveCursor(CursorStep step, bool extend);
  void EndDrag();
  // The window's place for a menu at the cursor.
  [[nodiscard]] virtual wxPoint CursorPlace() const = 0;

 private:
  void BindKeyboard();
  void BindMouse();
  void BindScrolling();
  void MeasureFont();

  void ScrollToColumn(int column);
  [[nodiscard]] int ColumnsSeen() const;
  void Scroll(const wxScrollWinEvent& event);
  void TurnWheel(wxMouseEvent& event);
  void PressButton(const wxMouseEvent& event);
  void DragTo(const wxPoint& point);
  void ScrollWhileDragging();
  void HoldStart();
  void PressKey(wxKeyEvent& event);
  void Moved();
  void Paint();

  RowScene& scene_;
  wxTimer dragTimer_;
  bool dragging_ = false;
  bool isChosen_ = false;        // the selection is the program's: the user extends it from its start
  bool placeWhenSized_ = false;  // GoTo was called before the window had a size
  int wheelTurned_ = 0;
};

}  // namespace tarvelo
