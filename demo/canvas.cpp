#include "demo/canvas.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace tarvelo::art {
namespace {

constexpr int samplingLines = 16;  // sampling lines a pixel row; across, coverage is exact
constexpr int fullCover = samplingLines * fixedOne;

std::uint8_t MixByte(int from, int to, int t) {
  return static_cast<std::uint8_t>((from * (256 - t) + to * t + 128) / 256);
}

// The signed area decides which way round a contour runs.
bool Clockwise(const std::vector<Point>& points) {
  std::int64_t area = 0;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const Point a = points[i];
    const Point b = points[(i + 1) % points.size()];
    area += std::int64_t{a.x} * b.y - std::int64_t{b.x} * a.y;
  }
  return area > 0;
}

void AddSpan(std::vector<int>& cover, Fixed from, Fixed to) {
  from = std::max(from, 0);
  to = std::min(to, static_cast<Fixed>(cover.size()) * fixedOne);
  while (from < to) {
    const Fixed pixelEnd = (from / fixedOne + 1) * fixedOne;
    const Fixed end = std::min(to, pixelEnd);
    cover[static_cast<std::size_t>(from / fixedOne)] += end - from;
    from = end;
  }
}

}  // namespace

Colour Mix(Colour from, Colour to, int t) {
  return {MixByte(from.r, to.r, t), MixByte(from.g, to.g, t), MixByte(from.b, to.b, t),
          MixByte(from.a, to.a, t)};
}

Colour Hue(int degrees) {
  const int hue = ((degrees % 360) + 360) % 360;
  const int way = hue % 120;
  const auto rising = static_cast<std::uint8_t>(std::min(255, way * 255 / 60));
  const auto falling = static_cast<std::uint8_t>(std::min(255, (120 - way) * 255 / 60));
  if (hue < 120) return {falling, rising, 0, 255};
  if (hue < 240) return {0, falling, rising, 255};
  return {rising, 0, falling, 255};
}

int Luma(Colour colour) { return (77 * colour.r + 150 * colour.g + 29 * colour.b) / 256; }

Paint Paint::Linear(Spot from, Spot to, std::vector<Colour> colours) {
  Paint paint(colours.front());
  paint.colours_ = std::move(colours);
  paint.from_ = {ToFixed(from.x), ToFixed(from.y)};
  paint.to_ = {ToFixed(to.x), ToFixed(to.y)};
  return paint;
}

Paint Paint::Vertical(double top, double bottom, std::vector<Colour> colours) {
  return Linear({0, top}, {0, bottom}, std::move(colours));
}

Paint Paint::Radial(double cx, double cy, double r, std::vector<Colour> colours) {
  Paint paint = Linear({cx, cy}, {cx, cy}, std::move(colours));
  paint.radius_ = ToFixed(r);
  return paint;
}

std::int64_t Paint::Way(Point p) const {
  const std::int64_t px = p.x - from_.x;
  const std::int64_t py = p.y - from_.y;
  if (radius_ != 0) return SquareRoot(px * px + py * py) * 65536 / radius_;
  const std::int64_t dx = to_.x - from_.x;
  const std::int64_t dy = to_.y - from_.y;
  return (px * dx + py * dy) * 65536 / (dx * dx + dy * dy);
}

Colour Paint::At(Point p) const {
  if (colours_.size() == 1) return colours_.front();
  const auto gaps = static_cast<std::int64_t>(colours_.size()) - 1;
  const std::int64_t way = std::clamp<std::int64_t>(Way(p), 0, 65536) * gaps;
  const std::int64_t gap = std::min(way / 65536, gaps - 1);
  const auto first = colours_.begin() + static_cast<std::ptrdiff_t>(gap);
  return Mix(first[0], first[1], static_cast<int>((way - gap * 65536) / 256));
}

// Where a path's outline meets a sampling line.
struct Canvas::Crossing {
  int line;    // counted from the top of the canvas
  Fixed x;     // in 1/256 pixel
  int inward;  // what crossing it from left to right adds to the winding number
};

Canvas::Canvas(int width, int height)
    : width_(width), height_(height), pixels_(static_cast<std::size_t>(width * height)) {}

Canvas Canvas::Icon(int size) {
  Canvas canvas(size, size);
  canvas.Place(0, 0, size, iconUnits);
  return canvas;
}

void Canvas::Place(double x, double y, int pixels, int units) {
  origin_ = {ToFixed(x), ToFixed(y)};
  scale_ = std::int64_t{pixels} * 65536 / units;
}

Fixed Canvas::ToPixels(Fixed units) const { return static_cast<Fixed>((units * scale_ + 32768) >> 16); }

Point Canvas::UnitsAt(int x, int y) const {
  const std::int64_t fromX = x * fixedOne + fixedOne / 2 - origin_.x;
  const std::int64_t fromY = y * fixedOne + fixedOne / 2 - origin_.y;
  return {static_cast<Fixed>(fromX * 65536 / scale_), static_cast<Fixed>(fromY * 65536 / scale_)};
}

void Canvas::AddEdge(std::vector<Crossing>& crossings, Point a, Point b, bool reversed) const {
  int inward = reversed ? -1 : 1;
  if (a.y > b.y) {
    std::swap(a, b);
    inward = -inward;
  }
  constexpr Fixed step = fixedOne / samplingLines;
  // Sampling line n lies half a step below n steps.
  const int top = std::max(0, (a.y + step / 2 - 1) / step);
  const int bottom = std::min(height_ * samplingLines, (b.y + step / 2 - 1) / step);
  for (int line = top; line < bottom; ++line) {
    const std::int64_t down = line * step + step / 2 - a.y;
    const std::int64_t x = a.x + down * (b.x - a.x) / (b.y - a.y);
    crossings.push_back({line, static_cast<Fixed>(x), inward});
  }
}

std::vector<Canvas::Crossing> Canvas::Crossings(const Path& path) const {
  std::vector<Crossing> crossings;
  for (const Contour& contour : path.Contours()) {
    std::vector<Point> points = contour.points;
    for (Point& p : points) p = {origin_.x + ToPixels(p.x), origin_.y + ToPixels(p.y)};
    const bool reversed = Clockwise(points) == contour.hole;
    for (std::size_t i = 0; i < points.size(); ++i)
      AddEdge(crossings, points[i], points[(i + 1) % points.size()], reversed);
  }
  return InOrder(crossings);
}

// Deals the crossings out to their lines first: what is left to sort on each line is short.
std::vector<Canvas::Crossing> Canvas::InOrder(const std::vector<Crossing>& crossings) const {
  std::vector<std::ptrdiff_t> ends(static_cast<std::size_t>(height_ * samplingLines + 1));
  for (const Crossing& c : crossings) ++ends[static_cast<std::size_t>(c.line + 1)];
  std::partial_sum(ends.begin(), ends.end(), ends.begin());
  std::vector<Crossing> ordered(crossings.size());
  for (const Crossing& c : crossings)
    ordered[static_cast<std::size_t>(ends[static_cast<std::size_t>(c.line)]++)] = c;
  auto first = ordered.begin();
  for (const std::ptrdiff_t end : ends) {
    const auto last = ordered.begin() + end;
    std::sort(first, last, [](const Crossing& a, const Crossing& b) { return a.x < b.x; });
    first = last;
  }
  return ordered;
}

template <typename ColourAt>
void Canvas::FillRows(const Path& path, ColourAt colourAt) {
  const std::vector<Crossing> crossings = Crossings(path);
  std::vector<int> cover(static_cast<std::size_t>(width_));
  for (std::size_t i = 0; i < crossings.size();) {
    const int row = crossings[i].line / samplingLines;
    std::ranges::fill(cover, 0);
    // On every line the outlines close, so that its winding number begins and ends at 0.
    Fixed spanStart = 0;
    for (int winding = 0; i < crossings.size() && crossings[i].line / samplingLines == row; ++i) {
      if (winding == 0) spanStart = crossings[i].x;
      winding += crossings[i].inward;
      if (winding == 0) AddSpan(cover, spanStart, crossings[i].x);
    }
    for (int x = 0; x < width_; ++x) {
      const int covered = cover[static_cast<std::size_t>(x)];
      if (covered != 0) Blend(x, row, colourAt(x, row), covered * 256 / fullCover);
    }
  }
}

void Canvas::Fill(const Path& path, const Paint& paint) {
  FillRows(path, [&](int x, int y) { return paint.At(UnitsAt(x, y)); });
}

void Canvas::Fill(const Path& path, const Canvas& pattern) {
  FillRows(path, [&](int x, int y) { return pattern.At(x, y); });
}

void Canvas::Stroke(const Path& path, double width, const Paint& paint) { Fill(path.Stroked(width), paint); }

bool Canvas::Inside(int x, int y) const { return x >= 0 && x < width_ && y >= 0 && y < height_; }

Colour Canvas::At(int x, int y) const {
  return Inside(x, y) ? pixels_[static_cast<std::size_t>(y * width_ + x)] : Colour{};
}

void Canvas::Put(int x, int y, Colour colour) {
  if (Inside(x, y)) pixels_[static_cast<std::size_t>(y * width_ + x)] = colour;
}

void Canvas::Blend(int x, int y, Colour colour, int coverage) {
  if (!Inside(x, y)) return;
  Colour& below = pixels_[static_cast<std::size_t>(y * width_ + x)];
  const int over = colour.a * coverage / 256;
  const int under = below.a * (255 - over) / 255;
  const int alpha = over + under;
  if (alpha == 0) return;
  const auto blend = [&](int top, int bottom) {
    return static_cast<std::uint8_t>((top * over + bottom * under + alpha / 2) / alpha);
  };
  below = {blend(colour.r, below.r), blend(colour.g, below.g), blend(colour.b, below.b),
           static_cast<std::uint8_t>(alpha)};
}

}  // namespace tarvelo::art
