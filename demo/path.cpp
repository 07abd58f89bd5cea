#include "demo/path.h"

#include <array>
#include <cstddef>
#include <utility>

namespace tarvelo::art {
namespace {

constexpr std::int64_t sineOne = std::int64_t{1} << 30;  // 1.0 in the sine table

// Sines of 0 to 90 degrees, by turning a vector one degree at a time.
constexpr std::array<std::int64_t, 91> MakeSines() {
  constexpr std::int64_t sin1 = 18739379;    // sin 1 degree
  constexpr std::int64_t cos1 = 1073578288;  // cos 1 degree
  std::array<std::int64_t, 91> sines{};
  std::int64_t x = sineOne;
  std::int64_t y = 0;
  for (std::int64_t& sine : sines) {
    sine = y;
    const std::int64_t turned = (x * cos1 - y * sin1 + sineOne / 2) / sineOne;
    y = (y * cos1 + x * sin1 + sineOne / 2) / sineOne;
    x = turned;
  }
  return sines;
}

constexpr std::array<std::int64_t, 91> sines = MakeSines();

std::int64_t Sine(int degrees) {
  const int a = ((degrees % 360) + 360) % 360;
  if (a > 180) return -Sine(a - 180);
  return sines[static_cast<std::size_t>(a > 90 ? 180 - a : a)];
}

Point OnCircle(Point centre, Fixed rx, Fixed ry, int degrees) {
  return {centre.x + TimesSin(rx, degrees), centre.y - TimesCos(ry, degrees)};
}

Point At(double x, double y) { return {ToFixed(x), ToFixed(y)}; }

// Short arcs need fewer corners to look round.
int StepFor(Fixed radius) {
  return radius < fixedOne * 3 / 2 ? 30 : radius < 3 * fixedOne ? 15 : radius < 16 * fixedOne ? 10 : 5;
}

void AppendArc(Contour& contour, Point centre, Fixed rx, Fixed ry, int from, int to) {
  const int step = StepFor(rx > ry ? rx : ry);
  for (int a = from; a < to; a += step) contour.points.push_back(OnCircle(centre, rx, ry, a));
  contour.points.push_back(OnCircle(centre, rx, ry, to));
}

Contour Disc(Point centre, Fixed radius) {
  Contour disc{.closed = true};
  AppendArc(disc, centre, radius, radius, 0, 360);
  return disc;
}

// The rectangle that a pen of half width `half` covers between two points, without its round ends.
Contour Bar(Point a, Point b, Fixed half) {
  const std::int64_t dx = b.x - a.x;
  const std::int64_t dy = b.y - a.y;
  const std::int64_t length = SquareRoot(dx * dx + dy * dy);
  const Fixed nx = static_cast<Fixed>(-dy * half / length);
  const Fixed ny = static_cast<Fixed>(dx * half / length);
  return {.points = {{a.x + nx, a.y + ny}, {b.x + nx, b.y + ny}, {b.x - nx, b.y - ny}, {a.x - nx, a.y - ny}},
          .closed = true};
}

Fixed Stretch(Fixed value, Fixed centre, Fixed factor) {
  return centre + static_cast<Fixed>(std::int64_t{value - centre} * factor / fixedOne);
}

}  // namespace

std::int64_t SquareRoot(std::int64_t value) {
  std::int64_t root = 0;
  std::int64_t bit = std::int64_t{1} << 62;
  while (bit > value) bit >>= 2;
  for (; bit != 0; bit >>= 2) {
    const bool fits = value >= root + bit;
    if (fits) value -= root + bit;
    root = (root >> 1) + (fits ? bit : 0);
  }
  return root;
}

Fixed TimesSin(Fixed length, int degrees) {
  const std::int64_t product = length * Sine(degrees);
  return static_cast<Fixed>((product + (product < 0 ? -sineOne : sineOne) / 2) / sineOne);
}

Fixed TimesCos(Fixed length, int degrees) { return TimesSin(length, degrees + 90); }

Path Path::Rect(double x, double y, double width, double height) {
  return Polygon({{x, y}, {x + width, y}, {x + width, y + height}, {x, y + height}});
}

Path Path::RoundRect(double x, double y, double width, double height, double r) {
  const Fixed radius = ToFixed(r);
  Contour contour{.closed = true};
  AppendArc(contour, At(x + r, y + r), radius, radius, 270, 360);
  AppendArc(contour, At(x + width - r, y + r), radius, radius, 0, 90);
  AppendArc(contour, At(x + width - r, y + height - r), radius, radius, 90, 180);
  AppendArc(contour, At(x + r, y + height - r), radius, radius, 180, 270);
  Path path;
  path.contours_.push_back(std::move(contour));
  return path;
}

Path Path::Ellipse(double cx, double cy, double rx, double ry) {
  Contour contour{.closed = true};
  AppendArc(contour, At(cx, cy), ToFixed(rx), ToFixed(ry), 0, 360);
  Path path;
  path.contours_.push_back(std::move(contour));
  return path;
}

Path Path::Polygon(std::initializer_list<Spot> spots) {
  Path path = Polyline(spots);
  path.Close();
  return path;
}

Path Path::Polyline(std::initializer_list<Spot> spots) {
  Contour contour;
  for (const Spot& spot : spots) contour.points.push_back(At(spot.x, spot.y));
  Path path;
  path.contours_.push_back(std::move(contour));
  return path;
}

Path Path::Arc(double cx, double cy, double r, int from, int to) {
  Contour contour;
  AppendArc(contour, At(cx, cy), ToFixed(r), ToFixed(r), from, to);
  Path path;
  path.contours_.push_back(std::move(contour));
  return path;
}

Path Path::Pie(double cx, double cy, double r, int from, int to) {
  Path path = Arc(cx, cy, r, from, to);
  path.Line(cx, cy).Close();
  return path;
}

Path Path::Star(double cx, double cy, double outer, double inner, int tips) {
  Contour contour{.closed = true};
  for (int i = 0; i < 2 * tips; ++i) {
    const Fixed radius = ToFixed(i % 2 == 0 ? outer : inner);
    contour.points.push_back(OnCircle(At(cx, cy), radius, radius, i * 180 / tips));
  }
  Path path;
  path.contours_.push_back(std::move(contour));
  return path;
}

Path& Path::Move(double x, double y) {
  contours_.push_back({.points = {At(x, y)}});
  return *this;
}

Path& Path::Line(double x, double y) {
  contours_.back().points.push_back(At(x, y));
  return *this;
}

Path& Path::Curve(double x1, double y1, double x2, double y2, double x, double y) {
  constexpr int steps = 12;
  std::vector<Point>& points = contours_.back().points;
  const Point p[] = {points.back(), At(x1, y1), At(x2, y2), At(x, y)};
  for (std::int64_t t = 1; t <= steps; ++t) {
    const std::int64_t u = steps - t;
    const std::int64_t weight[] = {u * u * u, 3 * u * u * t, 3 * u * t * t, t * t * t};
    std::int64_t sumX = 0;
    std::int64_t sumY = 0;
    for (int i = 0; i < 4; ++i) {
      sumX += weight[i] * p[i].x;
      sumY += weight[i] * p[i].y;
    }
    constexpr std::int64_t cube = steps * steps * steps;
    points.push_back({static_cast<Fixed>(sumX / cube), static_cast<Fixed>(sumY / cube)});
  }
  return *this;
}

Path& Path::Close() {
  contours_.back().closed = true;
  return *this;
}

Path& Path::Plus(const Path& other) {
  contours_.insert(contours_.end(), other.contours_.begin(), other.contours_.end());
  return *this;
}

Path& Path::Minus(const Path& other) {
  for (Contour contour : other.contours_) {
    contour.hole = !contour.hole;
    contours_.push_back(std::move(contour));
  }
  return *this;
}

Path Path::Moved(double dx, double dy) const {
  Path moved = *this;
  const Point by = At(dx, dy);
  for (Contour& contour : moved.contours_)
    for (Point& p : contour.points) p = {p.x + by.x, p.y + by.y};
  return moved;
}

Path Path::Turned(double cx, double cy, int degrees) const {
  Path turned = *this;
  const Point c = At(cx, cy);
  for (Contour& contour : turned.contours_) {
    for (Point& p : contour.points) {
      const Point d{p.x - c.x, p.y - c.y};
      p = {c.x + TimesCos(d.x, degrees) - TimesSin(d.y, degrees),
           c.y + TimesSin(d.x, degrees) + TimesCos(d.y, degrees)};
    }
  }
  return turned;
}

Path Path::Scaled(double cx, double cy, double sx, double sy) const {
  Path scaled = *this;
  const Point c = At(cx, cy);
  for (Contour& contour : scaled.contours_)
    for (Point& p : contour.points) p = {Stretch(p.x, c.x, ToFixed(sx)), Stretch(p.y, c.y, ToFixed(sy))};
  return scaled;
}

Path Path::Stroked(double width) const {
  const Fixed half = ToFixed(width) / 2;
  Path pen;
  for (const Contour& contour : contours_) {
    const std::size_t count = contour.points.size();
    for (std::size_t i = 0; i < count; ++i) {
      const Point a = contour.points[i];
      const Point b = contour.points[(i + 1) % count];
      pen.contours_.push_back(Disc(a, half));
      const bool joined = contour.closed || i + 1 < count;
      if (joined && (a.x != b.x || a.y != b.y)) pen.contours_.push_back(Bar(a, b, half));
    }
  }
  return pen;
}

}  // namespace tarvelo::art
