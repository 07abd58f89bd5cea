// The drawing surface of the demonstration artwork: straight-alpha pixels, anti-aliased fills.
//
// Whole numbers only: the same drawing gives the same pixels on every machine and compiler.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "demo/path.h"

namespace tarvelo::art {

struct Colour {
  std::uint8_t r = 0;
  std::uint8_t g = 0;
  std::uint8_t b = 0;
  std::uint8_t a = 0;  // 0 transparent, 255 opaque

  bool operator==(const Colour&) const = default;
};

// The colour 0xRRGGBB with the opacity `a`.
[[nodiscard]] constexpr Colour Rgb(std::uint32_t rgb, int a = 255) {
  return {static_cast<std::uint8_t>(rgb >> 16), static_cast<std::uint8_t>(rgb >> 8),
          static_cast<std::uint8_t>(rgb), static_cast<std::uint8_t>(a)};
}
// `from` at t = 0, `to` at t = 256.
[[nodiscard]] Colour Mix(Colour from, Colour to, int t);
// The pure colour of a hue: 0 red, 120 green, 240 blue.
[[nodiscard]] Colour Hue(int degrees);
// Brightness, 0..255, as the eye weighs the components.
[[nodiscard]] int Luma(Colour colour);

// What a path is filled with. The colours of a gradient are spread evenly over its way and go on
// beyond both of its ends.
class Paint {
 public:
  Paint(Colour colour) : colours_{colour} {}  // NOLINT: a plain colour is a paint
  [[nodiscard]] static Paint Linear(Spot from, Spot to, std::vector<Colour> colours);
  [[nodiscard]] static Paint Vertical(double top, double bottom, std::vector<Colour> colours);
  [[nodiscard]] static Paint Radial(double cx, double cy, double r, std::vector<Colour> colours);

  [[nodiscard]] Colour At(Point p) const;

 private:
  [[nodiscard]] std::int64_t Way(Point p) const;  // 0 at the start, 65536 at the end

  std::vector<Colour> colours_;
  Point from_;
  Point to_;
  Fixed radius_ = 0;  // 0: linear
};

class Canvas {
 public:
  // A transparent canvas, one drawing unit a pixel.
  Canvas(int width, int height);
  // A square canvas whose sides are iconUnits units long, whatever its size in pixels.
  static constexpr int iconUnits = 32;
  [[nodiscard]] static Canvas Icon(int size);

  [[nodiscard]] int Width() const { return width_; }
  [[nodiscard]] int Height() const { return height_; }

  // Moves the origin of the drawing units to the pixel position (x, y) and makes a unit
  // pixels / units pixels long. Whoever draws next, draws there.
  void Place(double x, double y, int pixels = 1, int units = 1);

  void Fill(const Path& path, const Paint& paint);
  // Fills with the pixels of a canvas of the same size: what lies outside the path is cut off.
  void Fill(const Path& path, const Canvas& pattern);
  void Stroke(const Path& path, double width, const Paint& paint);

  // Single pixels, by pixel position. Reading or writing outside the canvas is harmless.
  [[nodiscard]] Colour At(int x, int y) const;
  void Put(int x, int y, Colour colour);
  // Lays a colour over the pixel; coverage 0..256 thins it out.
  void Blend(int x, int y, Colour colour, int coverage = 256);

 private:
  struct Crossing;

  [[nodiscard]] bool Inside(int x, int y) const;
  [[nodiscard]] Fixed ToPixels(Fixed units) const;
  [[nodiscard]] Point UnitsAt(int x, int y) const;
  void AddEdge(std::vector<Crossing>& crossings, Point a, Point b, bool reversed) const;
  [[nodiscard]] std::vector<Crossing> InOrder(const std::vector<Crossing>& crossings) const;
  [[nodiscard]] std::vector<Crossing> Crossings(const Path& path) const;
  template <typename ColourAt>
  void FillRows(const Path& path, ColourAt colourAt);

  int width_;
  int height_;
  Point origin_;                  // of the drawing units, in 1/256 pixel
  std::int64_t scale_ = 1 << 16;  // pixels a unit, in 1/65536
  std::vector<Colour> pixels_;
};

}  // namespace tarvelo::art
