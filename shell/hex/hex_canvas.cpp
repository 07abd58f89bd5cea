#include "shell/hex/hex_canvas.h"

#include "core/byte_text.h"

namespace tarvelo {

HexCanvas::HexCanvas(wxWindow* parent) : RowCanvas(parent, scene_) {
  const double points = GetFont().GetFractionalPointSize();
  SetFont(wxFont(wxFontInfo(points).Family(wxFONTFAMILY_TELETYPE)));
  Bind(wxEVT_CHAR, &HexCanvas::TypeKey, this);
}

void HexCanvas::SetImage(const Fullflash* image, const ImageEdits* edits) {
  scene_.image = image;
  scene_.edits = edits;
  scene_.columns = image ? HexColumns(*image) : HexColumns();
  scene_.cursorInText = false;
  scene_.secondDigit = false;
  Restart(HasImage() ? Offset{image->ffEnd()} + 1 : 0, bytesInRow);
}

void HexCanvas::ImageChanged() {
  scene_.secondDigit = false;
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
  return scene_.RowAt(point.y) * bytesInRow + scene_.columns.ByteAt(scene_.ColumnAt(point.x));
}

// With the first digits, the columns in front of them come into sight.
std::pair<int, int> HexCanvas::ColumnsOf(Offset unit) const {
  const auto byte = static_cast<int>(unit % bytesInRow);
  if (scene_.cursorInText) return {scene_.columns.Text(byte), scene_.columns.Text(byte) + 1};
  return {byte == 0 ? 0 : scene_.columns.Hex(byte), scene_.columns.Hex(byte) + 2};
}

wxPoint HexCanvas::PlaceOf(Offset offset) const {
  const int column = scene_.columns.Hex(static_cast<int>(offset % bytesInRow)) + 1;
  return {scene_.X(column), scene_.Y(offset / bytesInRow) + scene_.rowHeight / 2};
}

wxPoint HexCanvas::CursorPlace() const {
  return PlaceOf(scene_.cursor.At()) + wxPoint(0, scene_.rowHeight / 2);
}

// --- typing ---

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
