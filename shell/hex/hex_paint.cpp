#include "shell/hex/hex_paint.h"

#include <wx/settings.h>

#include <algorithm>
#include <array>
#include <optional>

#include "core/notation.h"
#include "core/places.h"
#include "document/map_kinds.h"
#include "shell/base/blend.h"
#include "shell/base/strings.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

const wxColour red(220, 30, 50);
const wxColour blue(30, 100, 220);

struct Palette {
  wxColour background = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW);
  wxColour text = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT);
  wxColour highlight = wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT);
  wxColour highlightText = wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHTTEXT);
  wxColour place = Blend(text, background, 0.6);  // offsets and addresses
  wxColour zero = Blend(text, background, 0.6);
  wxColour erased = Blend(text, background, 0.35);
  wxColour line = Blend(text, background, 0.2);
  wxColour changed = Blend(red, text, 0.75);
  wxColour changedGround = Blend(red, background, 0.12);
  wxColour changedHighlight = Blend(red, highlight, 0.55);
  wxColour differing = Blend(blue, text, 0.75);
  wxColour differingGround = Blend(blue, background, 0.15);
  wxColour differingHighlight = Blend(blue, highlight, 0.55);
  wxColour named = Blend(blue, text, 0.6);
};

std::optional<std::uint8_t> ByteOfUnit(const Fullflash& image, Offset offset) {
  if (offset < 0 || offset >= std::ssize(image.ff())) return {};
  return image.Byte(offset);
}

// How a byte deviates, which its colour shows.
enum class Mark : std::uint8_t { None, Differs, Changed };

// Draws one row.
class Row {
 public:
  Row(wxDC& dc, const HexScene& scene, const Palette& palette, Offset row)
      : dc_(dc),
        scene_(scene),
        palette_(palette),
        start_(row * scene.columns.Bytes()),
        y_(scene.Y(row)),
        selection_(scene.cursor.Selection()) {
    const Offset last = std::min<Offset>(scene.cursor.Units() - start_, scene.columns.Bytes());
    end_ =
        static_cast<int>(std::clamp(std::ssize(scene.image->ff()) - scene.shift - start_, Offset{0}, last));
    first_ = static_cast<int>(std::clamp(-scene.shift - start_, Offset{0}, Offset{end_}));
    for (int i = first_; i < end_; ++i) marks_[static_cast<std::size_t>(i)] = MarkOf(i);
  }

  void Draw() {
    DrawSelection();
    DrawMarks();
    DrawPlace();
    DrawMap();
    DrawHexDigits();
    DrawText();
    DrawNames();
    DrawCursor();
  }

 private:
  // The offset of a byte in the image.
  [[nodiscard]] Offset OffsetOf(int i) const { return start_ + i + scene_.shift; }
  [[nodiscard]] std::uint8_t At(int i) const { return scene_.image->Byte(OffsetOf(i)); }

  [[nodiscard]] Mark MarkOf(int i) const {
    if (scene_.edits && scene_.edits->IsChanged(*scene_.image, OffsetOf(i))) return Mark::Changed;
    return scene_.Differs(start_ + i) ? Mark::Differs : Mark::None;
  }
  [[nodiscard]] Mark Marked(int i) const { return marks_[static_cast<std::size_t>(i)]; }
  [[nodiscard]] bool IsSelected(int i) const { return selection_.Holds(start_ + i); }

  void Put(int column, const wxString& text) { dc_.DrawText(text, scene_.X(column), y_); }

  [[nodiscard]] const wxColour& ColourOf(int i) const {
    if (IsSelected(i)) return palette_.highlightText;
    if (Marked(i) == Mark::Changed) return palette_.changed;
    if (Marked(i) == Mark::Differs) return palette_.differing;
    if (At(i) == 0xFF) return palette_.erased;
    return At(i) == 0 ? palette_.zero : palette_.text;
  }

  // The columns first .. end - 1 of this row.
  [[nodiscard]] wxRect Cells(int first, int end) const {
    return {scene_.X(first), y_, scene_.X(end) - scene_.X(first), scene_.rowHeight};
  }

  void DrawPlace() {
    if (first_ == end_) return;
    const Offset offset = std::max<Offset>(0, OffsetOf(0));
    dc_.SetTextForeground(palette_.place);
    Put(0, Wx(OffsetText(*scene_.image, offset)));
    Put(scene_.columns.Address(), Wx(AddressText(*scene_.image, offset)));
  }

  void DrawSelection() {
    const auto first = static_cast<int>(std::max<Offset>(first_, selection_.offset - start_));
    const auto last = static_cast<int>(std::min<Offset>(end_, selection_.End() - start_)) - 1;
    if (selection_.size == 0 || first > last) return;
    DrawGround(first, last, palette_.highlight);
  }

  void DrawMarks() {
    for (int i = first_; i < end_;) {
      const int first = i;
      while (i < end_ && Marked(i) == Marked(first) && IsSelected(i) == IsSelected(first)) ++i;
      if (Marked(first) == Mark::None) continue;
      const bool isChanged = Marked(first) == Mark::Changed;
      if (IsSelected(first))
        DrawGround(first, i - 1, isChanged ? palette_.changedHighlight : palette_.differingHighlight);
      else
        DrawGround(first, i - 1, isChanged ? palette_.changedGround : palette_.differingGround);
    }
  }

  // Paints the background of the bytes first .. last.
  void DrawGround(int first, int last, const wxColour& colour) {
    Fill(Cells(scene_.columns.Hex(first), scene_.columns.Hex(last) + 2), colour);
    Fill(Cells(scene_.columns.Text(first), scene_.columns.Text(last) + 1), colour);
  }

  void Fill(const wxRect& cells, const wxColour& colour) {
    dc_.SetPen(*wxTRANSPARENT_PEN);
    dc_.SetBrush(colour);
    dc_.DrawRectangle(cells);
  }

  // Underlines what is known in the colours of the dump map.
  void DrawMap() {
    if (!scene_.map || first_ == end_) return;
    const int height = std::max(2, scene_.rowHeight / 8);
    for (const Claim& region : scene_.map->Within(OffsetOf(first_), end_ - first_)) {
      const ClaimGroup* group = region.kind->group;
      if (region.sure == Sureness::Unknown || group == &map::erasedGroup) continue;  // FF says it all
      const auto first = static_cast<int>(std::max<Offset>(first_, region.offset - OffsetOf(0)));
      const auto last = static_cast<int>(std::min<Offset>(end_, region.End() - OffsetOf(0))) - 1;
      wxRect line = Cells(scene_.columns.Hex(first), scene_.columns.Hex(last) + 2);
      line.y += line.height - height;
      line.height = height;
      Fill(line, FromRgb(group->colour));
    }
  }

  // A bar in front of each byte that has a name.
  void DrawNames() {
    if (!scene_.names || scene_.names->Count() == 0) return;
    for (int i = first_; i < end_; ++i) {
      if (!scene_.names->At(scene_.image->PhoneAddress(OffsetOf(i)))) continue;
      wxRect bar = Cells(scene_.columns.Hex(i), scene_.columns.Hex(i) + 1);
      bar.width = std::max(2, scene_.rowHeight / 8);
      bar.x -= bar.width + 1;
      Fill(bar, palette_.named);
    }
  }

  // Draws neighbours of the same colour in one call: a call for each byte would be slow.
  void DrawHexDigits() {
    for (int i = first_; i < end_;) {
      const int first = i;
      std::string digits;
      do digits += HexOfByte(At(i++)) + ' ';
      while (i < end_ && !HexColumns::BeginsGroup(i) && ColourOf(i) == ColourOf(first));
      dc_.SetTextForeground(ColourOf(first));
      Put(scene_.columns.Hex(first), Wx(digits));
    }
  }

  [[nodiscard]] char16_t Shown(int i) const {
    return ShownCharacter(scene_.image->ff(), OffsetOf(i), scene_.encoding);
  }

  // Draws characters that may come from a fallback font with a different width one at a time.
  void DrawText() {
    const auto isPlain = [this](int i) { return Shown(i) < 0x80; };
    for (int i = first_; i < end_;) {
      const int first = i;
      std::u16string text;
      do text += Shown(i++);
      while (i < end_ && isPlain(first) && isPlain(i) && ColourOf(i) == ColourOf(first));
      dc_.SetTextForeground(ColourOf(first));
      Put(scene_.columns.Text(first), Wx(ToUtf8(text)));
    }
  }

  // A frame on both sides; the one with the keyboard focus is stronger.
  void DrawCursor() {
    const Offset i = scene_.cursor.At() - start_;
    if (i < first_ || i >= end_) return;
    const int hex = scene_.columns.Hex(static_cast<int>(i));
    const int text = scene_.columns.Text(static_cast<int>(i));
    dc_.SetBrush(*wxTRANSPARENT_BRUSH);
    const auto frame = [this](const wxRect& cells, bool isActive) {
      dc_.SetPen(isActive && scene_.focused ? palette_.text : palette_.place);
      dc_.DrawRectangle(wxRect(cells).Inflate(1, 0));
    };
    frame(Cells(hex + (scene_.secondDigit ? 1 : 0), hex + 2), !scene_.cursorInText);
    frame(Cells(text, text + 1), scene_.cursorInText);
  }

  wxDC& dc_;
  const HexScene& scene_;
  const Palette& palette_;
  Offset start_;  // the unit of the first byte
  int y_;
  int first_ = 0;  // the bytes of the row that the image has: first_ .. end_ - 1
  int end_ = 0;
  Region selection_;
  std::array<Mark, HexColumns::mostBytes> marks_{};
};

void DrawHeader(wxDC& dc, const HexScene& scene, const Palette& palette, int width) {
  dc.SetTextForeground(palette.place);
  const int y = (scene.headerHeight - dc.GetCharHeight()) / 2;
  for (int i = 0; i < scene.columns.Bytes(); ++i) {
    const wxString digits = Wx(Hex(i));
    dc.DrawText(digits, scene.X(scene.columns.Hex(i) + (i < 16 ? 1 : 0)), y);
    dc.DrawText(digits.Last(), scene.X(scene.columns.Text(i)), y);
  }
  dc.SetPen(palette.line);
  dc.DrawLine(0, scene.headerHeight - 1, width, scene.headerHeight - 1);
}

}  // namespace

Offset HexScene::Rows() const {
  if (!image || !image->IsOpen()) return 0;
  return (cursor.Units() + columns.Bytes() - 1) / columns.Bytes();
}

bool HexScene::Differs(Offset unit) const {
  if (!other) return false;
  const auto own = ByteOfUnit(*image, unit + shift);
  return own && own != ByteOfUnit(*other, unit + otherShift);
}

void DrawHex(wxDC& dc, const HexScene& scene, const wxSize& client) {
  const Palette palette;
  DrawHeader(dc, scene, palette, client.x);
  const Offset end = std::min(scene.Rows(), scene.RowAt(client.y) + 1);
  for (Offset row = scene.topRow; row < end; ++row) Row(dc, scene, palette, row).Draw();
}

}  // namespace tarvelo
