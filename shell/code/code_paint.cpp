#include "shell/code/code_paint.h"

#include <wx/settings.h>

#include <algorithm>

#include "core/places.h"
#include "patch/pattern.h"
#include "shell/base/blend.h"
#include "shell/base/strings.h"

namespace tarvelo {
namespace {

struct Palette {
  wxColour background = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW);
  wxColour text = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT);
  wxColour highlight = wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT);
  wxColour highlightText = wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHTTEXT);
  wxColour place = Blend(text, background, 0.6);
  wxColour line = Blend(text, background, 0.45);
  wxColour caret = Blend(highlight, background, 0.2);
  wxColour band = Blend(text, background, 0.07);  // behind headings
  wxColour mnemonic = Blend(wxColour(40, 110, 220), text, 0.7);
  wxColour reg = Blend(wxColour(20, 150, 120), text, 0.65);
  wxColour constant = Blend(wxColour(200, 120, 20), text, 0.7);
  wxColour address = Blend(wxColour(160, 80, 190), text, 0.65);
  wxColour meaning = Blend(wxColour(90, 140, 60), text, 0.55);
  wxColour changed = Blend(wxColour(220, 30, 50), text, 0.75);

  [[nodiscard]] const wxColour& Of(CodeInk ink) const {
    switch (ink) {
      case CodeInk::Mnemonic: return mnemonic;
      case CodeInk::Register: return reg;
      case CodeInk::Constant: return constant;
      case CodeInk::Address: return address;
      case CodeInk::Plain: break;
    }
    return text;
  }
};

// Draws one row.
class Row {
 public:
  Row(wxDC& dc, const CodeScene& scene, const Palette& palette, Offset number, int width)
      : dc_(dc),
        scene_(scene),
        palette_(palette),
        number_(number),
        width_(width),
        y_(scene.Y(number)),
        row_(scene.view->Rows().At(number)),
        isSelected_(scene.cursor.Selection().Holds(number)) {}

  void Draw() {
    DrawGround();
    const CodeLine line = scene_.view->Reader().Read(number_);
    if (row_.kind == CodeRow::Kind::Heading) return DrawHeading(line);
    const Fullflash& image = scene_.view->Image();
    Put(scene_.columns.Place(), OffsetText(image, row_.offset), palette_.place);
    Put(scene_.columns.Address(), SegmentText(image, row_.offset), palette_.place);
    if (row_.size <= 4)
      Put(scene_.columns.Bytes(), HexOfBytes(image.Region(row_.offset, row_.size)),
          IsChanged() ? palette_.changed : palette_.place);
    int column = scene_.columns.Code();
    for (const CodePart& part : line.parts) column = Put(column, part.text, palette_.Of(part.ink));
    Put(std::max(column + 2, scene_.columns.Meaning()), line.meaning, palette_.meaning);
  }

 private:
  // Draws a text and returns the column behind it.
  int Put(int column, const std::string& text, const wxColour& colour) {
    const wxString drawn = Wx(text);
    dc_.SetTextForeground(isSelected_ ? palette_.highlightText : colour);
    dc_.DrawText(drawn, scene_.X(column), y_);
    return column + static_cast<int>(drawn.length());
  }

  void DrawGround() {
    const bool isCaret = scene_.cursor.At() == number_;
    const wxRect whole(0, y_, width_, scene_.rowHeight);
    dc_.SetPen(isCaret && scene_.focused ? wxPen(palette_.highlight) : *wxTRANSPARENT_PEN);
    if (isSelected_)
      dc_.SetBrush(palette_.highlight);
    else if (isCaret)
      dc_.SetBrush(palette_.caret);
    else if (row_.kind == CodeRow::Kind::Heading)
      dc_.SetBrush(palette_.band);
    else
      return;
    dc_.DrawRectangle(whole);
  }

  void DrawHeading(const CodeLine& line) {
    const wxFont font = dc_.GetFont();
    dc_.SetFont(font.Bold());
    const int column = Put(scene_.columns.Place(), line.Text(), palette_.text);
    dc_.SetFont(font);
    Put(std::max(column + 2, scene_.columns.Code()), line.meaning, palette_.meaning);
  }

  [[nodiscard]] bool IsChanged() const {
    for (int i = 0; i < row_.size; ++i)
      if (scene_.edits->IsChanged(scene_.view->Image(), row_.offset + i)) return true;
    return false;
  }

  wxDC& dc_;
  const CodeScene& scene_;
  const Palette& palette_;
  Offset number_;
  int width_;
  int y_;
  CodeRow row_;
  bool isSelected_;
};

// Draws the lines of the jumps in the functions of the rows first .. end - 1.
class JumpLines {
 public:
  JumpLines(wxDC& dc, const CodeScene& scene, const Palette& palette, Offset first, Offset end)
      : dc_(dc), scene_(scene), palette_(palette), first_(first), end_(end) {}

  void Draw() {
    const CodeRows& rows = scene_.view->Rows();
    const std::vector<FunctionJump>* drawn = nullptr;
    for (Offset row = first_; row < end_; ++row) {
      const std::vector<FunctionJump>& jumps = scene_.view->JumpsAt(rows.At(row).offset);
      if (&jumps == drawn) continue;
      drawn = &jumps;
      for (const FunctionJump& jump : jumps) DrawJump(jump);
    }
  }

 private:
  void DrawJump(const FunctionJump& jump) {
    const CodeRows& rows = scene_.view->Rows();
    const Offset from = rows.RowOf(jump.from);
    const Offset to = rows.RowOf(jump.to);
    if (std::max(from, to) < first_ || std::min(from, to) >= end_) return;
    const Offset here = rows.RowOf(rows.At(scene_.cursor.At()).offset);
    dc_.SetPen(from == here || to == here ? palette_.highlight : palette_.line);
    const int right = scene_.X(scene_.columns.Place()) - 3;
    const int left = scene_.X(CodeView::lanes - jump.lane) - 3;
    const int fromY = Middle(from);
    const int toY = Middle(to);
    dc_.DrawLine(left, fromY, right, fromY);
    dc_.DrawLine(left, fromY, left, toY);
    dc_.DrawLine(left, toY, right, toY);
    dc_.DrawLine(right - 4, toY - 3, right, toY);
    dc_.DrawLine(right - 4, toY + 3, right, toY);
  }

  // The rows may be far outside the window.
  [[nodiscard]] int Middle(Offset row) const {
    return scene_.Y(std::clamp(row, first_ - 1, end_ + 1)) + scene_.rowHeight / 2;
  }

  wxDC& dc_;
  const CodeScene& scene_;
  const Palette& palette_;
  Offset first_;
  Offset end_;
};

void DrawHeader(wxDC& dc, const CodeScene& scene, const Palette& palette, int width) {
  const int columns[] = {scene.columns.Place(), scene.columns.Address(), scene.columns.Bytes(),
                         scene.columns.Code(), scene.columns.Meaning()};
  dc.SetTextForeground(palette.place);
  const int y = (scene.headerHeight - dc.GetCharHeight()) / 2;
  for (std::size_t i = 0; i < scene.captions.size(); ++i) {
    const int x = scene.X(columns[i]);
    const int end = i + 1 < std::size(columns) ? scene.X(columns[i + 1]) : width;
    const wxDCClipper clip(dc, x, 0, std::max(1, end - x - 4), scene.headerHeight);
    dc.DrawText(scene.captions[i], x, y);
  }
  dc.SetPen(palette.band);
  dc.DrawLine(0, scene.headerHeight - 1, width, scene.headerHeight - 1);
}

}  // namespace

CodeColumns::CodeColumns(const Fullflash& image) : offsetDigits_(OffsetWidth(image)) {}

void DrawCode(wxDC& dc, const CodeScene& scene, const wxSize& client) {
  const Palette palette;
  const Offset end = std::min(scene.view->Rows().Count(), scene.RowAt(client.y) + 1);
  DrawHeader(dc, scene, palette, client.x);
  const wxRect below(0, scene.headerHeight, client.x, client.y - scene.headerHeight);
  const wxDCClipper clip(dc, below);
  for (Offset row = scene.topRow; row < end; ++row) Row(dc, scene, palette, row, client.x).Draw();
  JumpLines(dc, scene, palette, scene.topRow, end).Draw();
}

}  // namespace tarvelo
