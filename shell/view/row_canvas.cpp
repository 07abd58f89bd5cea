#include "shell/view/row_canvas.h"

#include <wx/dcbuffer.h>
#include <wx/settings.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "shell/services/panel_commands.h"

namespace tarvelo {
namespace {

constexpr int dragInterval = 40;  // milliseconds between scroll steps while dragging outside the window

std::optional<CursorStep> StepOf(const wxKeyEvent& event) {
  switch (event.GetKeyCode()) {
    case WXK_LEFT: return CursorStep::Left;
    case WXK_RIGHT: return CursorStep::Right;
    case WXK_UP: return CursorStep::Up;
    case WXK_DOWN: return CursorStep::Down;
    case WXK_PAGEUP: return CursorStep::PageUp;
    case WXK_PAGEDOWN: return CursorStep::PageDown;
    case WXK_HOME: return event.ControlDown() ? CursorStep::ImageStart : CursorStep::RowStart;
    case WXK_END: return event.ControlDown() ? CursorStep::ImageEnd : CursorStep::RowEnd;
    default: return {};
  }
}

// The new position of a scrollbar of `count` units, `seen` of which are visible.
Offset Scrolled(const wxScrollWinEvent& event, Offset now, Offset seen, Offset count) {
  const wxEventType type = event.GetEventType();
  if (type == wxEVT_SCROLLWIN_TOP) return 0;
  if (type == wxEVT_SCROLLWIN_BOTTOM) return count;
  if (type == wxEVT_SCROLLWIN_LINEUP) return now - 1;
  if (type == wxEVT_SCROLLWIN_LINEDOWN) return now + 1;
  if (type == wxEVT_SCROLLWIN_PAGEUP) return now - seen;
  if (type == wxEVT_SCROLLWIN_PAGEDOWN) return now + seen;
  return event.GetPosition();
}

}  // namespace

RowCanvas::RowCanvas(wxWindow* parent, RowScene& scene)
    : wxWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxVSCROLL | wxHSCROLL | wxWANTS_CHARS),
      scene_(scene) {
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  SetMinSize(FromDIP(wxSize(160, 80)));
  BindKeyboard();
  BindMouse();
  BindScrolling();
  Bind(wxEVT_PAINT, [this](wxPaintEvent&) { Paint(); });
  Bind(wxEVT_DPI_CHANGED, [this](wxDPIChangedEvent& event) {
    MeasureFont();
    event.Skip();
  });
  Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent& event) {
    Refresh();
    event.Skip();
  });
  Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    UpdateScrollbars();
    if (RowsSeen() > 1 && std::exchange(placeWhenSized_, false)) ShowCursor(true);
    event.Skip();
  });
}

void RowCanvas::Restart(Offset units, Offset unitsInRow) {
  EndDrag();
  scene_.cursor = RowCursor(units, unitsInRow);
  scene_.topRow = 0;
  scene_.leftColumn = 0;
  UpdateScrollbars();
  Refresh();
}

void RowCanvas::GoTo(Offset unit, Offset size) {
  scene_.cursor.Select({unit, size});
  isChosen_ = size > 0;
  placeWhenSized_ = RowsSeen() <= 1;
  ShowCursor(true);
  Moved();
}

int RowCanvas::WholeWidth() const {
  const int scrollbar = wxSystemSettings::GetMetric(wxSYS_VSCROLL_X, this);
  return 2 * scene_.margin + static_cast<int>(std::ceil(Columns() * scene_.columnWidth)) + scrollbar;
}

void RowCanvas::SelectUnits(const Region& units) {
  scene_.cursor.Select(units);
  isChosen_ = true;
  Moved();
}

// Before the user extends the selection. One that was chosen by the program has its cursor at the start,
// which is to stay: the other end moves.
void RowCanvas::HoldStart() {
  const Region chosen = scene_.cursor.Selection();
  if (!isChosen_ || chosen.size == 0) return;
  scene_.cursor.MoveTo(chosen.offset, false);
  scene_.cursor.MoveTo(chosen.offset + chosen.size - 1, true);
}

void RowCanvas::CursorMoved() {
  isChosen_ = false;
  Moved();
}

void RowCanvas::Moved() {
  HasMoved();
  Refresh();
  if (onSelect) onSelect();
}

void RowCanvas::Paint() {
  wxAutoBufferedPaintDC dc(this);
  dc.SetFont(GetFont());
  dc.SetBackground(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW));
  dc.Clear();
  scene_.focused = HasFocus();
  if (Rows() > 0) Draw(dc);
}

// --- the font ---

bool RowCanvas::SetFont(const wxFont& font) {
  const bool isOther = wxWindow::SetFont(font);
  MeasureFont();
  return isOther;
}

// A character's width is seldom a whole number of pixels, so it is measured over many.
void RowCanvas::MeasureFont() {
  constexpr std::size_t sample = 100;
  const wxSize extent = GetTextExtent(wxString('0', sample));
  scene_.columnWidth = std::max(1.0, double(extent.x) / sample);
  scene_.rowHeight = std::max(1, extent.y + FromDIP(1));
  scene_.headerHeight = scene_.rowHeight + FromDIP(5);
  scene_.margin = FromDIP(4);
  UpdateScrollbars();
  Refresh();
}

// --- scrolling ---

Offset RowCanvas::RowsSeen() const {
  return std::max(1, (GetClientSize().y - scene_.headerHeight) / scene_.rowHeight);
}

int RowCanvas::ColumnsSeen() const {
  const int width = GetClientSize().x - 2 * scene_.margin;
  return std::clamp(static_cast<int>(width / scene_.columnWidth), 1, Columns());
}

void RowCanvas::UpdateScrollbars() {
  const Offset rows = Rows();
  const int columns = rows > 0 ? Columns() : 0;
  scene_.topRow = std::clamp<Offset>(scene_.topRow, 0, std::max<Offset>(0, rows - RowsSeen()));
  scene_.leftColumn = std::clamp(scene_.leftColumn, 0, std::max(0, columns - ColumnsSeen()));
  SetScrollbar(wxVERTICAL, static_cast<int>(scene_.topRow), static_cast<int>(RowsSeen()),
               static_cast<int>(rows));
  SetScrollbar(wxHORIZONTAL, scene_.leftColumn, ColumnsSeen(), columns);
}

void RowCanvas::ScrollToRow(Offset row) {
  const Offset top = std::clamp<Offset>(row, 0, std::max<Offset>(0, Rows() - RowsSeen()));
  const bool hasScrolled = std::exchange(scene_.topRow, top) != top;
  SetScrollPos(wxVERTICAL, static_cast<int>(top));
  Refresh();
  if (hasScrolled && onScroll) onScroll();
}

void RowCanvas::ScrollToColumn(int column) {
  scene_.leftColumn = std::clamp(column, 0, std::max(0, Columns() - ColumnsSeen()));
  SetScrollPos(wxHORIZONTAL, scene_.leftColumn);
  Refresh();
}

void RowCanvas::ShowCursor(bool aThirdDown) {
  const Offset row = RowOf(scene_.cursor.At());
  const Offset seen = RowsSeen();
  if (row < scene_.topRow)
    ScrollToRow(aThirdDown ? row - seen / 3 : row);
  else if (row >= scene_.topRow + seen)
    ScrollToRow(aThirdDown ? row - seen / 3 : row - seen + 1);
  const auto [first, end] = ColumnsOf(scene_.cursor.At());
  if (first == end) return;
  if (first < scene_.leftColumn) ScrollToColumn(first - 1);
  if (end > scene_.leftColumn + ColumnsSeen()) ScrollToColumn(end - ColumnsSeen());
}

void RowCanvas::BindScrolling() {
  for (const auto& type : {wxEVT_SCROLLWIN_TOP, wxEVT_SCROLLWIN_BOTTOM, wxEVT_SCROLLWIN_LINEUP,
                           wxEVT_SCROLLWIN_LINEDOWN, wxEVT_SCROLLWIN_PAGEUP, wxEVT_SCROLLWIN_PAGEDOWN,
                           wxEVT_SCROLLWIN_THUMBTRACK, wxEVT_SCROLLWIN_THUMBRELEASE})
    Bind(type, [this](wxScrollWinEvent& event) { Scroll(event); });
  Bind(wxEVT_MOUSEWHEEL, &RowCanvas::TurnWheel, this);
}

void RowCanvas::Scroll(const wxScrollWinEvent& event) {
  if (event.GetOrientation() == wxVERTICAL)
    ScrollToRow(Scrolled(event, scene_.topRow, RowsSeen(), Rows()));
  else
    ScrollToColumn(static_cast<int>(Scrolled(event, scene_.leftColumn, ColumnsSeen(), Columns())));
}

// High-resolution wheels turn by less than a line at a time.
void RowCanvas::TurnWheel(wxMouseEvent& event) {
  const int line = std::max(1, event.GetWheelDelta() / std::max(1, event.GetLinesPerAction()));
  wheelTurned_ += event.GetWheelRotation();
  const int lines = wheelTurned_ / line;
  wheelTurned_ -= lines * line;
  if (event.GetWheelAxis() == wxMOUSE_WHEEL_HORIZONTAL)
    ScrollToColumn(scene_.leftColumn + lines);
  else if (event.ShiftDown())
    ScrollToColumn(scene_.leftColumn - lines);
  else
    ScrollToRow(scene_.topRow - lines);
}

// --- the mouse ---

void RowCanvas::BindMouse() {
  Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent& event) { PressButton(event); });
  Bind(wxEVT_LEFT_DCLICK, [this](wxMouseEvent& event) {
    PressButton(event);
    EndDrag();
    if (Rows() > 0 && event.GetY() >= scene_.headerHeight) DoubleClicked(event.GetPosition());
  });
  Bind(wxEVT_MOTION, [this](wxMouseEvent& event) {
    if (dragging_) DragTo(event.GetPosition());
  });
  Bind(wxEVT_LEFT_UP, [this](wxMouseEvent&) { EndDrag(); });
  Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent&) { EndDrag(); });
  Bind(wxEVT_RIGHT_DOWN, [this](wxMouseEvent& event) {
    SetFocus();
    const Offset unit = UnitAt(event.GetPosition());
    if (event.GetY() >= scene_.headerHeight && !scene_.cursor.Selection().Holds(unit)) {
      scene_.cursor.MoveTo(unit, false);
      CursorMoved();
    }
    event.Skip();
  });
  Bind(wxEVT_CONTEXT_MENU, [this](wxContextMenuEvent& event) {
    if (event.GetPosition() == wxDefaultPosition) ShowCursor(false);
    if (onContextMenu) onContextMenu(MenuPlace(event, *this, CursorPlace()));
  });
  dragTimer_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { ScrollWhileDragging(); });
}

void RowCanvas::PressButton(const wxMouseEvent& event) {
  SetFocus();
  if (Rows() == 0 || event.GetY() < scene_.headerHeight) return;
  Pressed(event.GetPosition());
  if (event.ShiftDown()) HoldStart();
  scene_.cursor.MoveTo(UnitAt(event.GetPosition()), event.ShiftDown());
  CursorMoved();
  if (dragging_) return;
  dragging_ = true;
  CaptureMouse();
  dragTimer_.Start(dragInterval);
}

// Until the mouse reaches another unit, this is a click, which selects nothing.
void RowCanvas::DragTo(const wxPoint& point) {
  const int bottom = std::max(scene_.headerHeight, GetClientSize().y - 1);
  const wxPoint seen(point.x, std::clamp(point.y, scene_.headerHeight, bottom));
  RowCursor moved = scene_.cursor;
  moved.MoveTo(UnitAt(seen), true);
  if (moved.At() == scene_.cursor.At()) return;
  scene_.cursor = moved;
  CursorMoved();
}

// Scrolls faster the farther the mouse is outside.
void RowCanvas::ScrollWhileDragging() {
  const wxPoint mouse = ScreenToClient(wxGetMousePosition());
  const int below = mouse.y - GetClientSize().y;
  const int above = scene_.headerHeight - mouse.y;
  if (above > 0) ScrollToRow(scene_.topRow - 1 - above / scene_.rowHeight * 2);
  if (below > 0) ScrollToRow(scene_.topRow + 1 + below / scene_.rowHeight * 2);
  if (mouse.x < 0) ScrollToColumn(scene_.leftColumn - 1);
  if (mouse.x > GetClientSize().x) ScrollToColumn(scene_.leftColumn + 1);
  if (above > 0 || below > 0) DragTo(mouse);
}

void RowCanvas::EndDrag() {
  if (!std::exchange(dragging_, false)) return;
  dragTimer_.Stop();
  if (HasCapture()) ReleaseMouse();
}

// --- the keyboard ---

void RowCanvas::BindKeyboard() {
  Bind(wxEVT_CHAR_HOOK, &RowCanvas::PressKey, this);
  for (const auto& type : {wxEVT_SET_FOCUS, wxEVT_KILL_FOCUS})
    Bind(type, [this](wxFocusEvent& event) {
      Refresh();
      event.Skip();
    });
}

void RowCanvas::PressKey(wxKeyEvent& event) {
  const auto step = StepOf(event);
  if (event.GetKeyCode() == WXK_TAB && !event.ControlDown())
    Navigate(event.ShiftDown() ? wxNavigationKeyEvent::IsBackward : wxNavigationKeyEvent::IsForward);
  else if (step && !event.AltDown())
    MoveCursor(*step, event.ShiftDown());
  else
    event.Skip();
}

void RowCanvas::MoveCursor(CursorStep step, bool extend) {
  if (extend) HoldStart();
  scene_.cursor.Move(step, RowsSeen(), extend);
  if (step == CursorStep::PageUp) ScrollToRow(scene_.topRow - RowsSeen());
  if (step == CursorStep::PageDown) ScrollToRow(scene_.topRow + RowsSeen());
  ShowCursor(false);
  CursorMoved();
}

}  // namespace tarvelo
