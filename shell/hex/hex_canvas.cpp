#include "shell/hex/hex_canvas.h"

#include <wx/dcbuffer.h>
#include <wx/settings.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

#include "core/byte_text.h"
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

HexCanvas::HexCanvas(wxWindow* parent)
    : wxWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxVSCROLL | wxHSCROLL | wxWANTS_CHARS) {
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  const double points = GetFont().GetFractionalPointSize();
  SetFont(wxFont(wxFontInfo(points).Family(wxFONTFAMILY_TELETYPE)));
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

void HexCanvas::SetImage(const Fullflash* image, const ImageEdits* edits) {
  EndDrag();
  scene_.image = image;
  scene_.edits = edits;
  scene_.columns = image ? HexColumns(*image) : HexColumns();
  scene_.cursor = HexCursor(HasImage() ? Offset{image->ffEnd()} + 1 : 0);
  scene_.topRow = 0;
  scene_.leftColumn = 0;
  scene_.cursorInText = false;
  scene_.secondDigit = false;
  UpdateScrollbars();
  Refresh();
}

void HexCanvas::ImageChanged() {
  scene_.secondDigit = false;
  Refresh();
}

void HexCanvas::Go(Offset start, Offset size) {
  scene_.cursor.Select({start, size});
  isChosen_ = size > 0;
  placeWhenSized_ = RowsSeen() <= 1;
  ShowCursor(true);
  Moved();
}

void HexCanvas::SelectAll() {
  if (!HasImage()) return;
  scene_.cursor.Select({0, Offset{scene_.image->ffEnd()} + 1});
  isChosen_ = true;
  Moved();
}

// Before the user extends the selection. One that was chosen by the program has its cursor at the start,
// which is to stay: the other end moves.
void HexCanvas::HoldStart() {
  const Region chosen = Selection();
  if (!isChosen_ || chosen.size == 0) return;
  scene_.cursor.MoveTo(chosen.offset, false);
  scene_.cursor.MoveTo(chosen.offset + chosen.size - 1, true);
}

void HexCanvas::SwitchSide() {
  if (!HasImage()) return;
  scene_.cursorInText = !scene_.cursorInText;
  ShowCursor(false);
  CursorMoved();
}

void HexCanvas::CursorMoved() {
  isChosen_ = false;
  Moved();
}

void HexCanvas::Moved() {
  scene_.secondDigit = false;
  Refresh();
  if (onSelect) onSelect();
}

void HexCanvas::Paint() {
  wxAutoBufferedPaintDC dc(this);
  dc.SetFont(GetFont());
  scene_.focused = HasFocus();
  DrawHex(dc, scene_, GetClientSize());
}

// --- the font ---

bool HexCanvas::SetFont(const wxFont& font) {
  const bool isOther = wxWindow::SetFont(font);
  MeasureFont();
  return isOther;
}

// A character's width is seldom a whole number of pixels, so it is measured over many.
void HexCanvas::MeasureFont() {
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

Offset HexCanvas::RowsSeen() const {
  return std::max(1, (GetClientSize().y - scene_.headerHeight) / scene_.rowHeight);
}

int HexCanvas::ColumnsSeen() const {
  const int width = GetClientSize().x - 2 * scene_.margin;
  return std::clamp(static_cast<int>(width / scene_.columnWidth), 1, scene_.columns.End());
}

wxPoint HexCanvas::PlaceOf(Offset offset) const {
  const int column = scene_.columns.Hex(static_cast<int>(offset % bytesInRow)) + 1;
  return {scene_.X(column), scene_.Y(offset / bytesInRow) + scene_.rowHeight / 2};
}

void HexCanvas::UpdateScrollbars() {
  const Offset rows = scene_.Rows();
  const int columns = rows > 0 ? scene_.columns.End() : 0;
  scene_.topRow = std::clamp<Offset>(scene_.topRow, 0, std::max<Offset>(0, rows - RowsSeen()));
  scene_.leftColumn = std::clamp(scene_.leftColumn, 0, std::max(0, columns - ColumnsSeen()));
  SetScrollbar(wxVERTICAL, static_cast<int>(scene_.topRow), static_cast<int>(RowsSeen()),
               static_cast<int>(rows));
  SetScrollbar(wxHORIZONTAL, scene_.leftColumn, ColumnsSeen(), columns);
}

void HexCanvas::ScrollToRow(Offset row) {
  scene_.topRow = std::clamp<Offset>(row, 0, std::max<Offset>(0, scene_.Rows() - RowsSeen()));
  SetScrollPos(wxVERTICAL, static_cast<int>(scene_.topRow));
  Refresh();
}

void HexCanvas::ScrollToColumn(int column) {
  scene_.leftColumn = std::clamp(column, 0, std::max(0, scene_.columns.End() - ColumnsSeen()));
  SetScrollPos(wxHORIZONTAL, scene_.leftColumn);
  Refresh();
}

// Scrolls to the cursor: no farther than needed, or, with `aThirdDown`, to a third from the top.
void HexCanvas::ShowCursor(bool aThirdDown) {
  const Offset row = scene_.cursor.At() / bytesInRow;
  const Offset seen = RowsSeen();
  if (row < scene_.topRow)
    ScrollToRow(aThirdDown ? row - seen / 3 : row);
  else if (row >= scene_.topRow + seen)
    ScrollToRow(aThirdDown ? row - seen / 3 : row - seen + 1);
  ShowCursorColumn();
}

void HexCanvas::ShowCursorColumn() {
  const auto byte = static_cast<int>(scene_.cursor.At() % bytesInRow);
  const int first = scene_.cursorInText ? scene_.columns.Text(byte) : scene_.columns.Hex(byte);
  const int end = first + (scene_.cursorInText ? 1 : 2);
  if (first < scene_.leftColumn) ScrollToColumn(byte == 0 && !scene_.cursorInText ? 0 : first - 1);
  if (end > scene_.leftColumn + ColumnsSeen()) ScrollToColumn(end - ColumnsSeen());
}

void HexCanvas::BindScrolling() {
  for (const auto& type : {wxEVT_SCROLLWIN_TOP, wxEVT_SCROLLWIN_BOTTOM, wxEVT_SCROLLWIN_LINEUP,
                           wxEVT_SCROLLWIN_LINEDOWN, wxEVT_SCROLLWIN_PAGEUP, wxEVT_SCROLLWIN_PAGEDOWN,
                           wxEVT_SCROLLWIN_THUMBTRACK, wxEVT_SCROLLWIN_THUMBRELEASE})
    Bind(type, [this](wxScrollWinEvent& event) { Scroll(event); });
  Bind(wxEVT_MOUSEWHEEL, &HexCanvas::TurnWheel, this);
}

void HexCanvas::Scroll(const wxScrollWinEvent& event) {
  if (event.GetOrientation() == wxVERTICAL)
    ScrollToRow(Scrolled(event, scene_.topRow, RowsSeen(), scene_.Rows()));
  else
    ScrollToColumn(static_cast<int>(Scrolled(event, scene_.leftColumn, ColumnsSeen(), scene_.columns.End())));
}

// High-resolution wheels turn by less than a line at a time.
void HexCanvas::TurnWheel(wxMouseEvent& event) {
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

Offset HexCanvas::OffsetAt(const wxPoint& point) const {
  return scene_.RowAt(point.y) * bytesInRow + scene_.columns.ByteAt(scene_.ColumnAt(point.x));
}

void HexCanvas::BindMouse() {
  Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent& event) { PressButton(event); });
  Bind(wxEVT_MOTION, [this](wxMouseEvent& event) {
    if (dragging_) DragTo(event.GetPosition());
  });
  Bind(wxEVT_LEFT_UP, [this](wxMouseEvent&) { EndDrag(); });
  Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent&) { EndDrag(); });
  Bind(wxEVT_RIGHT_DOWN, [this](wxMouseEvent& event) {
    SetFocus();
    const Offset offset = OffsetAt(event.GetPosition());
    if (event.GetY() >= scene_.headerHeight && !Selection().Holds(offset)) {
      scene_.cursor.MoveTo(offset, false);
      CursorMoved();
    }
    event.Skip();
  });
  Bind(wxEVT_CONTEXT_MENU, [this](wxContextMenuEvent& event) {
    if (event.GetPosition() == wxDefaultPosition) ShowCursor(false);
    const wxPoint cursor = PlaceOf(scene_.cursor.At()) + wxPoint(0, scene_.rowHeight / 2);
    if (onContextMenu) onContextMenu(MenuPlace(event, *this, cursor));
  });
  dragTimer_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { ScrollWhileDragging(); });
}

void HexCanvas::PressButton(const wxMouseEvent& event) {
  SetFocus();
  if (!HasImage() || event.GetY() < scene_.headerHeight) return;
  scene_.cursorInText = scene_.columns.IsInText(scene_.ColumnAt(event.GetX()));
  if (event.ShiftDown()) HoldStart();
  scene_.cursor.MoveTo(OffsetAt(event.GetPosition()), event.ShiftDown());
  CursorMoved();
  if (dragging_) return;
  dragging_ = true;
  CaptureMouse();
  dragTimer_.Start(dragInterval);
}

// Until the mouse reaches another byte, this is a click, which selects nothing.
void HexCanvas::DragTo(const wxPoint& point) {
  const int bottom = std::max(scene_.headerHeight, GetClientSize().y - 1);
  const wxPoint seen(point.x, std::clamp(point.y, scene_.headerHeight, bottom));
  HexCursor moved = scene_.cursor;
  moved.MoveTo(OffsetAt(seen), true);
  if (moved.At() == scene_.cursor.At()) return;
  scene_.cursor = moved;
  CursorMoved();
}

// Scrolls faster the farther the mouse is outside.
void HexCanvas::ScrollWhileDragging() {
  const wxPoint mouse = ScreenToClient(wxGetMousePosition());
  const int below = mouse.y - GetClientSize().y;
  const int above = scene_.headerHeight - mouse.y;
  if (above > 0) ScrollToRow(scene_.topRow - 1 - above / scene_.rowHeight * 2);
  if (below > 0) ScrollToRow(scene_.topRow + 1 + below / scene_.rowHeight * 2);
  if (mouse.x < 0) ScrollToColumn(scene_.leftColumn - 1);
  if (mouse.x > GetClientSize().x) ScrollToColumn(scene_.leftColumn + 1);
  if (above > 0 || below > 0) DragTo(mouse);
}

void HexCanvas::EndDrag() {
  if (!std::exchange(dragging_, false)) return;
  dragTimer_.Stop();
  if (HasCapture()) ReleaseMouse();
}

// --- the keyboard ---

void HexCanvas::BindKeyboard() {
  Bind(wxEVT_CHAR_HOOK, &HexCanvas::PressKey, this);
  Bind(wxEVT_CHAR, &HexCanvas::TypeKey, this);
  for (const auto& type : {wxEVT_SET_FOCUS, wxEVT_KILL_FOCUS})
    Bind(type, [this](wxFocusEvent& event) {
      Refresh();
      event.Skip();
    });
}

void HexCanvas::PressKey(wxKeyEvent& event) {
  const auto step = StepOf(event);
  if (event.GetKeyCode() == WXK_TAB && !event.ControlDown()) {
    Navigate(event.ShiftDown() ? wxNavigationKeyEvent::IsBackward : wxNavigationKeyEvent::IsForward);
  } else if (step && !event.AltDown()) {
    if (event.ShiftDown()) HoldStart();
    scene_.cursor.Move(*step, RowsSeen(), event.ShiftDown());
    if (step == CursorStep::PageUp) ScrollToRow(scene_.topRow - RowsSeen());
    if (step == CursorStep::PageDown) ScrollToRow(scene_.topRow + RowsSeen());
    ShowCursor(false);
    CursorMoved();
  } else {
    event.Skip();
  }
}

// AltGr types characters; Ctrl or Alt alone gives commands.
void HexCanvas::TypeKey(wxKeyEvent& event) {
  const auto character = static_cast<char32_t>(event.GetUnicodeKey());
  const int modifiers = event.GetModifiers() & ~wxMOD_SHIFT;
  const bool isCommand = modifiers != wxMOD_NONE && modifiers != wxMOD_ALTGR;
  if (!HasImage() || isCommand || character < U' ' || character == WXK_DELETE) {
    event.Skip();
  } else if (!(scene_.cursorInText ? TypeCharacter(character) : TypeDigit(character))) {
    wxBell();
  }
}

bool HexCanvas::TypeDigit(char32_t character) {
  const auto digit = DigitOf(character);
  if (!digit) return false;
  const bool second = scene_.secondDigit;
  const std::uint8_t old = scene_.image->Byte(Selection().offset);
  const int byte = second ? (old & 0xF0) | *digit : *digit << 4 | (old & 0x0F);
  Type(static_cast<std::uint8_t>(byte), second, second);
  scene_.secondDigit = !second;
  return true;
}

bool HexCanvas::TypeCharacter(char32_t character) {
  const auto byte = ByteOf(character);
  if (byte) Type(*byte, false, true);
  return byte.has_value();
}

// Types over the byte under the cursor, or over the first selected one.
void HexCanvas::Type(std::uint8_t byte, bool again, bool moveOn) {
  const Offset at = Selection().offset;
  if (onType) onType(at, byte, again);
  scene_.cursor.MoveTo(at + (moveOn ? 1 : 0), false);
  ShowCursor(false);
  CursorMoved();
}

}  // namespace tarvelo
