#include "shell/hex/hex_canvas.h"

#include <algorithm>

#include "core/byte_text.h"

namespace tarvelo {

HexCanvas::HexCanvas(wxWindow* parent)
    : RowCanvas(parent, scene_), usualPoints_(GetFont().GetFractionalPointSize()) {
  SetFont(wxFont(wxFontInfo(usualPoints_).Family(wxFONTFAMILY_TELETYPE)));
  Bind(wxEVT_CHAR, &HexCanvas::TypeKey, this);
  Bind(wxEVT_CHAR_HOOK, &HexCanvas::PressKey, this);
  Bind(wxEVT_MOUSEWHEEL, &HexCanvas::TurnWheel, this);
  Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    FitColumns();
    event.Skip();
  });
}

// --- what is shown ---

void HexCanvas::SetImage(const Fullflash* image, const ImageEdits* edits) {
  scene_.edits = edits;
  scene_.map = nullptr;
  scene_.shift = 0;
  CompareWith(nullptr, 0);
  const bool isOpen = image && image->IsOpen();
  Show(isOpen ? image : nullptr, isOpen ? std::ssize(image->ff()) : 0);
  kept_ = nullptr;
}

void HexCanvas::SetOther(std::shared_ptr<const Fullflash> image, Offset shift, const Fullflash& with,
                         Offset units) {
  scene_.shift = shift;
  scene_.other = &with;
  scene_.otherShift = 0;
  Show(image.get(), units);
  kept_ = std::move(image);
}

void HexCanvas::Show(const Fullflash* image, Offset units) {
  scene_.image = image;
  scene_.columns = image ? HexColumns(*image, BytesInRow()) : HexColumns();
  scene_.cursorInText = false;
  scene_.secondDigit = false;
  Restart(units, BytesInRow());
  FitColumns();
}

void HexCanvas::CompareWith(std::shared_ptr<const Fullflash> other, Offset shift) {
  compared_ = std::move(other);
  scene_.other = compared_.get();
  scene_.otherShift = shift;
  Refresh();
}

void HexCanvas::SetMap(std::shared_ptr<const DumpMap> map) {
  if (map == scene_.map) return;
  scene_.map = std::move(map);
  Refresh();
}

void HexCanvas::ImageChanged() {
  scene_.secondDigit = false;
  Refresh();
}

void HexCanvas::SetCursor(const RowCursor& cursor) {
  scene_.cursor = cursor;
  scene_.cursor.SetUnitsInRow(BytesInRow());
  Refresh();
}

void HexCanvas::SetLook(const HexLook& look) {
  look_ = look;
  scene_.encoding = look.encoding;
  SetFont(wxFont(wxFontInfo(usualPoints_ + look.zoom).Family(wxFONTFAMILY_TELETYPE)));
  FitColumns();
  Refresh();
}

// Gives the rows the bytes that the user wants, and keeps the byte at the top there.
void HexCanvas::FitColumns() {
  if (!HasImage()) return;
  const int columns = static_cast<int>((GetClientSize().x - 2 * scene_.margin) / scene_.columnWidth);
  const int bytes = look_.bytes > 0 ? look_.bytes : HexColumns::FittingBytes(*scene_.image, columns);
  if (bytes == BytesInRow()) return;
  const Offset top = scene_.topRow * BytesInRow();
  scene_.columns = HexColumns(*scene_.image, bytes);
  scene_.cursor.SetUnitsInRow(bytes);
  scene_.topRow = top / bytes;
  UpdateScrollbars();
  Refresh();
}

void HexCanvas::SwitchSide() {
  if (!HasImage()) return;
  scene_.cursorInText = !scene_.cursorInText;
  ShowCursor(false);
  CursorMoved();
}

void HexCanvas::Draw(wxDC& dc) { DrawHex(dc, scene_, GetClientSize()); }

void HexCanvas::Pressed(const wxPoint& point) {
  scene_.cursorInText = scene_.columns.IsInText(scene_.ColumnAt(point.x));
}

Offset HexCanvas::UnitAt(const wxPoint& point) const {
  return scene_.RowAt(point.y) * BytesInRow() + scene_.columns.ByteAt(scene_.ColumnAt(point.x));
}

// With the first digits, the columns in front of them come into sight.
std::pair<int, int> HexCanvas::ColumnsOf(Offset unit) const {
  const auto byte = static_cast<int>(unit % BytesInRow());
  if (scene_.cursorInText) return {scene_.columns.Text(byte), scene_.columns.Text(byte) + 1};
  return {byte == 0 ? 0 : scene_.columns.Hex(byte), scene_.columns.Hex(byte) + 2};
}

wxPoint HexCanvas::PlaceOf(Offset offset) const {
  const int column = scene_.columns.Hex(static_cast<int>(offset % BytesInRow())) + 1;
  return {scene_.X(column), scene_.Y(offset / BytesInRow()) + scene_.rowHeight / 2};
}

wxPoint HexCanvas::CursorPlace() const {
  return PlaceOf(scene_.cursor.At()) + wxPoint(0, scene_.rowHeight / 2);
}

// --- keys and wheel ---

void HexCanvas::PressKey(wxKeyEvent& event) {
  const int key = event.GetKeyCode();
  const bool isTab = key == WXK_TAB && !event.AltDown();
  if (isTab && event.ControlDown()) {
    Navigate(event.ShiftDown() ? wxNavigationKeyEvent::IsBackward : wxNavigationKeyEvent::IsForward);
  } else if (isTab && HasImage()) {
    SwitchSide();
  } else if (key == WXK_ESCAPE && Selection().size > 0) {
    scene_.cursor.MoveTo(scene_.cursor.At(), false);
    CursorMoved();
  } else {
    event.Skip();
  }
}

void HexCanvas::TurnWheel(wxMouseEvent& event) {
  if (!event.ControlDown() || !onZoom) return event.Skip();
  const int step = std::max(1, event.GetWheelDelta());
  zoomTurned_ += event.GetWheelRotation();
  const int steps = zoomTurned_ / step;
  zoomTurned_ -= steps * step;
  if (steps != 0) onZoom(steps);
}

// --- typing ---

// AltGr types characters; Ctrl or Alt alone gives commands.
void HexCanvas::TypeKey(wxKeyEvent& event) {
  const auto character = static_cast<char32_t>(event.GetUnicodeKey());
  const int modifiers = event.GetModifiers() & ~wxMOD_SHIFT;
  const bool isCommand = modifiers != wxMOD_NONE && modifiers != wxMOD_ALTGR;
  if (!HasImage() || !onType || isCommand || character < U' ' || character == WXK_DELETE) {
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
  if (character > 0xFFFF) return false;
  const bool isWide =
      scene_.encoding == TextEncoding::Utf16Little || scene_.encoding == TextEncoding::Utf16Big;
  const Offset at = isWide ? Selection().offset / 2 * 2 : Selection().offset;
  const auto bytes = TypedBytes(static_cast<char16_t>(character), scene_.image->ff(), at, scene_.encoding);
  if (!bytes || at + std::ssize(*bytes) > scene_.cursor.Units()) return false;
  scene_.cursor.MoveTo(at, false);
  for (const std::uint8_t byte : *bytes) Type(byte, false, true);
  return true;
}

// Types over the byte under the cursor, or over the first selected one.
void HexCanvas::Type(std::uint8_t byte, bool again, bool moveOn) {
  const Offset at = Selection().offset;
  onType(at, byte, again);
  scene_.cursor.MoveTo(at + (moveOn ? 1 : 0), false);
  ShowCursor(false);
  CursorMoved();
}

}  // namespace tarvelo
