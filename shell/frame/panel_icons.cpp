#include "shell/frame/panel_icons.h"

#include <wx/brush.h>
#include <wx/graphics.h>
#include <wx/pen.h>

#include <algorithm>
#include <sstream>
#include <string>

namespace tarvelo {
namespace {

// In a square of 16 units: M and L move and draw to a point, R is a rectangle, O a circle with its radius, Z
// closes a line. A shape after * is filled.
struct Icon {
  std::string_view name;
  const char* drawing;
};

constexpr double units = 16;
constexpr Icon icons[] = {
    {"back", "M 10 3 L 5 8 L 10 13"},
    {"forward", "M 6 3 L 11 8 L 6 13"},
    {"info", "O 8 8 6.3 *O 8 4.9 .6 M 8 7.3 L 8 11.6"},
    {"eeprom",
     "R 4.5 3 7 10 M 2 5.5 L 4.5 5.5 M 2 8 L 4.5 8 M 2 10.5 L 4.5 10.5 M 11.5 5.5 L 14 5.5 M 11.5 8 L 14 8 "
     "M 11.5 10.5 L 14 10.5"},
    {"pictures", "R 2 3 12 10 *O 5.3 6.2 .9 M 2.5 12 L 6.5 8.5 L 9 10.7 L 11.3 8 L 13.7 10.2"},
    {"ringtones", "*O 5 12 1.7 M 6.9 12 L 6.9 3 L 12.3 4.6 L 12.3 7"},
    {"files", "M 2 12.7 L 2 3.7 L 6 3.7 L 7.6 5.5 L 14 5.5 L 14 12.7 Z"},
    {"map", "R 2 3 12 10 M 6 3 L 6 13 M 6 8 L 14 8 *R 10 8 4 5"},
    {"functions", "M 11.5 2.8 L 9.6 2.8 L 8.5 4.2 L 7.2 11.8 L 6.2 13.2 L 4.5 13.2 M 5.6 7 L 11 7"},
    {"code", "M 5 4.5 L 1.8 8 L 5 11.5 M 11 4.5 L 14.2 8 L 11 11.5 M 9.3 3 L 6.7 13"},
    {"references", "*O 8 8 1.4 M 2 3 L 5.9 6.3 M 14 3 L 10.1 6.3 M 8 14 L 8 10.6"},
    {"hex",
     "*R 2.5 3 2.2 2.2 *R 7 3 2.2 2.2 *R 11.5 3 2.2 2.2 *R 2.5 7 2.2 2.2 *R 7 7 2.2 2.2 *R 11.5 7 2.2 2.2 "
     "*R 2.5 11 2.2 2.2 *R 7 11 2.2 2.2"},
    {"names", "M 4 2.5 L 12 2.5 L 12 13.5 L 8 10.2 L 4 13.5 Z"},
    {"hits", "O 6.8 6.8 4.3 M 10 10 L 14 14"},
    {"compare", "R 2 2.5 7 8.5 R 7 5.5 7 8.5 *R 7 5.5 2 5.5"},
    {"patch", "M 2.6 13.4 L 3.5 10 L 10.8 2.7 L 13.3 5.2 L 6 12.5 Z M 9.2 4.3 L 11.7 6.8"},
};

// Reads the drawing and draws it.
class Pen {
 public:
  Pen(wxGraphicsContext& context, const wxRect2DDouble& square)
      : context_(context), square_(square), path_(context.CreatePath()) {}

  void Draw(const char* drawing) {
    std::istringstream in(drawing);
    for (std::string word; in >> word;) {
      isFilled_ = word.front() == '*';
      DrawShape(word.back(), in);
    }
    context_.StrokePath(path_);
  }

 private:
  void DrawShape(char shape, std::istringstream& in) {
    double x = 0, y = 0, width = 0, height = 0;
    if (shape == 'Z') return path_.CloseSubpath();
    in >> x >> y;
    if (shape == 'O' || shape == 'R') in >> width;
    if (shape == 'R') in >> height;
    wxGraphicsPath filled = isFilled_ ? context_.CreatePath() : path_;
    wxGraphicsPath& path = isFilled_ ? filled : path_;
    if (shape == 'M') path.MoveToPoint(X(x), Y(y));
    if (shape == 'L') path.AddLineToPoint(X(x), Y(y));
    if (shape == 'R') path.AddRectangle(X(x), Y(y), width * Unit(), height * Unit());
    if (shape == 'O') path.AddCircle(X(x), Y(y), width * Unit());
    if (isFilled_) context_.DrawPath(path);
  }
  [[nodiscard]] double Unit() const { return square_.m_width / units; }
  [[nodiscard]] double X(double x) const { return square_.m_x + x * Unit(); }
  [[nodiscard]] double Y(double y) const { return square_.m_y + y * Unit(); }

  wxGraphicsContext& context_;
  wxRect2DDouble square_;
  wxGraphicsPath path_;
  bool isFilled_ = false;
};

void DrawLetter(wxGraphicsContext& context, char letter, const wxRect2DDouble& square,
                const wxColour& colour) {
  const double unit = square.m_width / units;
  context.SetBrush(*wxTRANSPARENT_BRUSH);
  context.DrawRoundedRectangle(square.m_x + 2 * unit, square.m_y + 2 * unit, 12 * unit, 12 * unit, 2 * unit);
  context.SetFont(wxFont(wxFontInfo(wxSize(0, static_cast<int>(9 * unit)))), colour);
  double width = 0, height = 0;
  const wxString text(letter);
  context.GetTextExtent(text, &width, &height);
  context.DrawText(text, square.m_x + (square.m_width - width) / 2,
                   square.m_y + (square.m_height - height) / 2);
}

}  // namespace

void DrawIcon(wxGraphicsContext& context, std::string_view name, char letter, const wxRect2DDouble& square,
              const wxColour& colour) {
  const double line = std::max(1.0, square.m_width / units * 1.3);
  context.SetPen(context.CreatePen(wxGraphicsPenInfo(colour, line).Cap(wxCAP_ROUND).Join(wxJOIN_ROUND)));
  context.SetBrush(wxBrush(colour));
  const auto* icon = std::ranges::find(icons, name, &Icon::name);
  if (icon == std::end(icons))
    DrawLetter(context, letter, square, colour);
  else
    Pen(context, square).Draw(icon->drawing);
}

}  // namespace tarvelo
