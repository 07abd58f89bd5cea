// Outlines of the demonstration artwork: polygons with holes in a coordinate system of their own.
//
// Coordinates are given in drawing units, x to the right and y down, and kept as fixed-point
// numbers, so that the same outline comes out on every machine: nothing is left to a mathematics
// library. Angles are whole degrees, clockwise from 12 o'clock, like the hands of a clock.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <vector>

namespace tarvelo::art {

// A length in 1/256 drawing unit.
using Fixed = std::int32_t;
inline constexpr Fixed fixedOne = 256;

// Rounds to the nearest 1/256. The product is exact, so that no compiler can round it differently.
[[nodiscard]] constexpr Fixed ToFixed(double units) {
  const double scaled = units * fixedOne;
  return static_cast<Fixed>(scaled < 0 ? scaled - 0.5 : scaled + 0.5);
}

// `length` times the sine (cosine) of a whole number of degrees, to the last 1/256.
[[nodiscard]] Fixed TimesSin(Fixed length, int degrees);
[[nodiscard]] Fixed TimesCos(Fixed length, int degrees);
// The largest whole number whose square is at most `value`.
[[nodiscard]] std::int64_t SquareRoot(std::int64_t value);

struct Point {
  Fixed x = 0;
  Fixed y = 0;
};

// A point as the artist writes it, in units.
struct Spot {
  double x = 0;
  double y = 0;
};

struct Contour {
  std::vector<Point> points = {};
  bool closed = false;  // whether a stroke joins the last point to the first; a fill always does
  bool hole = false;    // taken out of the contours that it lies in
};

class Path {
 public:
  [[nodiscard]] static Path Rect(double x, double y, double width, double height);
  [[nodiscard]] static Path RoundRect(double x, double y, double width, double height, double r);
  [[nodiscard]] static Path Ellipse(double cx, double cy, double rx, double ry);
  [[nodiscard]] static Path Circle(double cx, double cy, double r) { return Ellipse(cx, cy, r, r); }
  [[nodiscard]] static Path Polygon(std::initializer_list<Spot> spots);
  [[nodiscard]] static Path Polyline(std::initializer_list<Spot> spots);  // open
  // The arc is open, the slice of a pie closed over the centre; both run clockwise.
  [[nodiscard]] static Path Arc(double cx, double cy, double r, int from, int to);
  [[nodiscard]] static Path Pie(double cx, double cy, double r, int from, int to);
  // A star with its first tip up; `inner` is the radius of the notches.
  [[nodiscard]] static Path Star(double cx, double cy, double outer, double inner, int tips);

  // Free-hand drawing: Move begins an open contour, Curve adds a cubic curve with two control
  // points, Close joins the contour's ends.
  Path& Move(double x, double y);
  Path& Line(double x, double y);
  Path& Curve(double x1, double y1, double x2, double y2, double x, double y);
  Path& Close();

  Path& Plus(const Path& other);   // adds the other's contours
  Path& Minus(const Path& other);  // adds them as holes

  [[nodiscard]] Path Moved(double dx, double dy) const;
  [[nodiscard]] Path Turned(double cx, double cy, int degrees) const;
  // Stretched about (cx, cy); negative factors mirror.
  [[nodiscard]] Path Scaled(double cx, double cy, double sx, double sy) const;
  // The area that a round pen of this width covers when it follows the contours.
  [[nodiscard]] Path Stroked(double width) const;

  [[nodiscard]] const std::vector<Contour>& Contours() const { return contours_; }

 private:
  std::vector<Contour> contours_;
};

}  // namespace tarvelo::art
