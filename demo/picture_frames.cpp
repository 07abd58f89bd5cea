// Animations, frame by frame.

#include "demo/picture_art.h"

namespace tarvelo::art {
namespace {

constexpr int turningFrames = 3;                           // the hourglass is turned in these last ones
constexpr int fallingFrames = frames - turningFrames - 1;  // until its upper half is empty

Path GlassShape() {
  Path glass;
  glass.Move(8, 5).Line(24, 5).Curve(24, 12, 18, 13, 17.5, 16);
  glass.Curve(18, 19, 24, 20, 24, 27).Line(8, 27);
  return glass.Curve(8, 20, 14, 19, 14.5, 16).Curve(14, 13, 8, 12, 8, 5).Close();
}

// The sand in the upright hourglass, wider than the glass that will cut it out.
Path SandShape(int fallen) {
  Path sand;
  if (fallen < fallingFrames) {
    const double top = 7.5 + fallen * 2;
    sand.Plus(Path::Rect(4, top, 24, 16.5 - top)).Plus(Path::Rect(15.5, 16, 1, 11));
  }
  const double heap = 26 - fallen * 1.75;
  Path mound;
  mound.Move(4, 28).Line(4, heap + 2).Curve(12, heap + 2, 13, heap, 16, heap);
  mound.Curve(19, heap, 20, heap + 2, 28, heap + 2).Line(28, 28).Close();
  if (fallen > 0) sand.Plus(mound);
  return sand;
}

// A beach ball of six colours about its middle, turned by `angle` and pressed flat by `flat`.
void DrawBeachBall(Canvas& c, double cy, int angle, double flat) {
  const Colour stripes[] = {Rgb(0xE53A2A), white, Rgb(0x2F78E0), white, Rgb(0xF8C820), white};
  const auto pressed = [&](const Path& path) { return path.Scaled(12, cy, 2 - flat, flat); };
  for (int i = 0; i < 6; ++i)
    c.Fill(pressed(Path::Pie(12, cy, 8, angle + i * 60, angle + i * 60 + 60)), stripes[i]);
  const Path ball = pressed(Path::Circle(12, cy, 8));
  c.Fill(ball, Paint::Radial(9, cy - 4, 15, {Rgb(0xFFFFFF, 150), Rgb(0x000000, 0), Rgb(0x000000, 130)}));
  c.Fill(pressed(Path::Circle(12, cy, 1.5)), white);
  c.Stroke(ball, 1.25, ink);
}

void DrawHand(Canvas& c, double length, double width, int angle, Colour colour) {
  c.Stroke(Path::Polyline({{16, 18}, {16, 16 - length}}).Turned(16, 16, angle), width, colour);
}

}  // namespace

Canvas Hourglass(int frame) {
  Canvas canvas(32, 32);
  canvas.Place(1.5, 1.5, 29, Canvas::iconUnits);  // turned, its corners reach beyond the square
  const bool turning = frame > fallingFrames;
  const int angle = turning ? (frame - fallingFrames) * 180 / (turningFrames + 1) : 0;
  const auto turned = [&](const Path& path) { return path.Turned(16, 16, angle); };
  const Path glass = turned(GlassShape());
  canvas.Fill(glass, Rgb(0xDCF0FF));
  Canvas inside = canvas;
  inside.Fill(turned(SandShape(turning ? fallingFrames : frame)),
              Paint::Vertical(6, 28, {Rgb(0xFFE08A), Rgb(0xD8922A)}));
  canvas.Fill(glass, inside);
  canvas.Stroke(glass, 1.75, ink);
  const Paint wood = Paint::Linear({6, 0}, {26, 0}, {Rgb(0xE0A060), Rgb(0x8A4B20)});
  for (const double y : {2.5, 26.0}) Inked(canvas, turned(Path::RoundRect(6, y, 20, 3.5, 1)), wood, 1.5);
  return canvas;
}

Canvas BouncingBall(int frame) {
  Canvas canvas(24, 40);
  const double rise = frame * (frames - frame) * 1.25;  // a parabola: 0 on the ground, 20 on top
  canvas.Fill(Path::Ellipse(12, 37, 9 - rise / 4, 2.5 - rise / 16), Rgb(0x8A93A8));
  const bool landed = frame == 0;
  DrawBeachBall(canvas, (landed ? 30.5 : 28.5) - rise, frame * 360 / frames / 3, landed ? 0.75 : 1);
  return canvas;
}

Canvas ClockFace(int frame) {
  Canvas canvas = Canvas::Icon(36);
  canvas.Fill(Path::Circle(16, 16, 15), Paint::Linear({4, 4}, {28, 28}, {Rgb(0xFFE9A0), Rgb(0xB8741C)}));
  canvas.Stroke(Path::Circle(16, 16, 15), 1, ink);
  Inked(canvas, Path::Circle(16, 16, 12), Paint::Vertical(4, 28, {white, Rgb(0xD4E0F4)}), 1);
  for (int hour = 0; hour < 12; ++hour) {
    const double length = hour % 3 == 0 ? 3 : 1.5;
    canvas.Fill(Path::Rect(15.5, 5, 1, length).Turned(16, 16, hour * 30), ink);
  }
  const int turn = frame * 360 / frames;
  DrawHand(canvas, 5.5, 2, 300 + turn / 12, ink);
  DrawHand(canvas, 9, 1.5, turn, Rgb(0x2350B8));
  canvas.Fill(Path::Circle(16, 16, 1.75), Rgb(0xE53A2A));
  return canvas;
}

Canvas Spinner(int frame) {
  Canvas canvas = Canvas::Icon(24);
  for (int dot = 0; dot < frames; ++dot) {
    const int age = (frame - dot + frames) % frames;
    const double radius = age == 0 ? 4.25 : age == 1 ? 3.5 : age == 2 ? 2.75 : age == 3 ? 2 : 1.25;
    canvas.Fill(Path::Circle(16, 4.5, radius).Turned(16, 16, dot * 360 / frames), black);
  }
  return canvas;
}

Canvas FlyingEnvelope(int frame) {
  Canvas canvas(56, 24);
  const double x = 2 + frame * 4;
  const int rise = frame < frames / 2 ? frame : frames - 1 - frame;
  const double y = 3 - rise;
  for (int i = 0; i < 3; ++i) {
    const double length = frame * 1.5 - i % 2 * 2;
    if (length > 0) canvas.Fill(Path::Rect(x - 1 - length, y + 9 + i * 4, length, 1), Rgb(0x5A74B8));
  }
  canvas.Place(x, y, 24, Canvas::iconUnits);
  DrawEnvelope(canvas);
  return canvas;
}

}  // namespace tarvelo::art
