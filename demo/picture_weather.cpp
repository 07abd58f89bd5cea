// The weather, the globe and the phases of the moon.

#include "demo/picture_art.h"

namespace tarvelo::art {
namespace {

void DrawRays(Canvas& c, double cx, double cy, double r) {
  Path rays;
  for (int angle = 0; angle < 360; angle += 45)
    rays.Plus(Path::Polygon({{cx - 2, cy - r}, {cx, cy - r - 4}, {cx + 2, cy - r}}).Turned(cx, cy, angle));
  Backed(c, rays, Rgb(0xFFC61E), 0.75);
}

void DrawSunAt(Canvas& c, double cx, double cy, double r) {
  DrawRays(c, cx, cy, r + 2);
  Inked(c, Path::Circle(cx, cy, r),
        Paint::Radial(cx - 2, cy - 2, r * 1.5, {Rgb(0xFFFBC0), Rgb(0xFFDB3A), Rgb(0xF59A0C)}), 1.75);
}

void DrawCloudAt(Canvas& c, double dx, double dy, Colour light, Colour dark) {
  Backed(c, CloudShape().Moved(dx, dy), Paint::Vertical(8 + dy, 24 + dy, {light, dark}));
}

void DrawSun(Canvas& c) { DrawSunAt(c, 16, 16, 8); }
void DrawFairCloud(Canvas& c) { DrawCloudAt(c, 0, 0, white, Rgb(0xB4C8E8)); }
void DrawDarkCloud(Canvas& c) { DrawCloudAt(c, 0, -4, Rgb(0xC4CCDC), Rgb(0x66748E)); }

void DrawPartlyCloudy(Canvas& c) {
  DrawSunAt(c, 20.5, 10.5, 5);
  DrawCloudAt(c, -1, 4, white, Rgb(0xB4C8E8));
}

void DrawRain(Canvas& c) {
  DrawDarkCloud(c);
  for (int i = 0; i < 4; ++i) {
    const double x = 8.5 + i * 5.5;
    const double y = i % 2 == 0 ? 23 : 25;
    c.Stroke(Path::Polyline({{x + 1, y}, {x - 1, y + 4}}), 2, Rgb(0x2F7BE8));
  }
}

void DrawThunder(Canvas& c) {
  DrawDarkCloud(c);
  Inked(c,
        Path::Polygon({{16, 15}, {10.5, 23.5}, {15, 23.5}, {12.5, 31}, {21.5, 20.5}, {17, 20.5}, {20, 15}}),
        Paint::Vertical(15, 31, {Rgb(0xFFF68A), Rgb(0xFFB800)}), 1.5);
}

void DrawFlake(Canvas& c, double x, double y, double r) {
  for (int angle = 0; angle < 180; angle += 60)
    c.Stroke(Path::Polyline({{x, y - r}, {x, y + r}}).Turned(x, y, angle), 1.25, Rgb(0x4A90E0));
}

void DrawSnow(Canvas& c) {
  DrawCloudAt(c, 0, -4, white, Rgb(0x9DB4D8));
  DrawFlake(c, 8.5, 25, 3);
  DrawFlake(c, 16, 28, 3);
  DrawFlake(c, 23.5, 25, 3);
}

void DrawFog(Canvas& c) {
  DrawCloudAt(c, 0, -4, Rgb(0xF0F2F6), Rgb(0xB6BECC));
  for (int i = 0; i < 3; ++i) {
    const double x = i % 2 == 0 ? 4 : 7;
    const double y = 23 + i * 3;
    c.Stroke(Path::Polyline({{x, y}, {x + 21, y}}), 1.75, Rgb(0x8A97AE));
  }
}

void DrawMoonlight(Canvas& c) {
  Path crescent;
  crescent.Move(19, 4).Curve(9, 7, 9, 24, 21, 27).Curve(12, 31, 3, 24, 3.5, 15);
  crescent.Curve(4, 7, 12, 2, 19, 4).Close();
  Inked(c, crescent, Paint::Linear({4, 4}, {18, 28}, {Rgb(0xFFFBD8), Rgb(0xF5C84A)}), 1.75);
  Inked(c, Path::Star(24, 10, 5, 2, 5), Rgb(0xFFE86A), 1.25);
  Inked(c, Path::Star(25.5, 21, 3.5, 1.5, 5), Rgb(0xFFE86A), 1);
}

void DrawThermometer(Canvas& c) {
  Path glass = Path::RoundRect(12.5, 2.5, 7, 22, 3.5);
  glass.Plus(Path::Circle(16, 24, 6));
  Backed(c, glass, Paint::Linear({10, 16}, {22, 16}, {white, Rgb(0xC4D4EE)}));
  c.Fill(Path::Circle(16, 24, 4), Paint::Radial(15, 23, 5, {Rgb(0xFF9A86), Rgb(0xD01818)}));
  c.Fill(Path::Rect(14.75, 9, 2.5, 14), Rgb(0xE02A20));
  for (const double y : {7.0, 11.0, 15.0}) c.Stroke(Path::Polyline({{22, y}, {25, y}}), 1.25, ink);
}

constexpr Drawing weatherIcons[] = {DrawSun,  DrawPartlyCloudy, DrawFairCloud, DrawRain,       DrawThunder,
                                    DrawSnow, DrawFog,          DrawMoonlight, DrawThermometer};

// A round patch of land on a globe: its middle by latitude and longitude in degrees.
struct Land {
  int latitude;
  int longitude;
  double width;
  double height;
};

// Two invented continents and a few islands.
constexpr Land lands[] = {{40, 0, 6, 4},      {25, 18, 5, 4},     {50, 25, 5, 3},   {5, 30, 4, 5},
                          {-15, 38, 2.5, 4},  {30, 150, 7, 4},    {45, 170, 5, 4},  {10, 165, 4, 4},
                          {-25, 200, 4, 4.5}, {-10, 185, 3.5, 4}, {-20, 95, 3, 2},  {30, 90, 2.5, 2},
                          {-35, 290, 5, 3},   {20, 280, 3, 2.5},  {55, 300, 4, 2.5}};

// The globe of radius 13 with the given longitude in the middle.
void DrawGlobeAt(Canvas& c, int longitude) {
  const Path disc = Path::Circle(16, 16, 13);
  Canvas surface = c;
  surface.Fill(disc, Paint::Radial(12, 10, 22, {Rgb(0xA8DCFF), Rgb(0x2F78E0), Rgb(0x0E2A78)}));
  for (const Land& land : lands) {
    const int angle = land.longitude - longitude;
    if (TimesCos(fixedOne, angle) <= 0) continue;
    const double along = TimesCos(13 * fixedOne, land.latitude) / double{fixedOne};
    const double x = 16 + TimesSin(ToFixed(along), angle) / double{fixedOne};
    const double y = 16 - TimesSin(13 * fixedOne, land.latitude) / double{fixedOne};
    const double width = TimesCos(ToFixed(land.width), angle) / double{fixedOne};
    surface.Fill(Path::Ellipse(x, y, width, land.height),
                 Paint::Radial(11, 9, 24, {Rgb(0xB8F07A), Rgb(0x3FA040), Rgb(0x124A20)}));
  }
  for (const double y : {3.5, 28.5}) surface.Fill(Path::Ellipse(16, y, 6, 2), Rgb(0xF4FAFF));
  c.Fill(disc, surface);
  c.Stroke(disc, 2, ink);
}

}  // namespace

Path CloudShape() {
  Path cloud = Path::Circle(9, 18.5, 5.5);
  cloud.Plus(Path::Circle(16, 14, 7)).Plus(Path::Circle(23.5, 18, 6));
  return cloud.Plus(Path::Rect(9, 17, 14, 7));
}

void DrawGlobe(Canvas& c) { DrawGlobeAt(c, 20); }

Canvas TurningGlobe(int frame) {
  Canvas canvas = Canvas::Icon(28);
  DrawGlobeAt(canvas, -frame * 360 / frames);
  return canvas;
}

Canvas MoonPhase(int frame) {
  Canvas canvas = Canvas::Icon(22);
  const Path disc = Path::Circle(16, 16, 13);
  const Paint dark = Paint::Radial(16, 16, 13, {Rgb(0x3A4262), Rgb(0x262C48)});
  const Paint light = Paint::Radial(12, 10, 22, {Rgb(0xFFFDF0), Rgb(0xF0E4B0), Rgb(0xB8A468)});
  const bool waxing = frame <= frames / 2;
  const int angle = frame * 360 / frames;
  const double bulge = TimesCos(fixedOne, angle) / double{fixedOne};
  canvas.Fill(disc, dark);
  canvas.Fill(Path::Pie(16, 16, 13, waxing ? 0 : 180, waxing ? 180 : 360), light);
  // The border of light and shade is half an ellipse.
  const Path border = disc.Scaled(16, 16, bulge < 0 ? -bulge : bulge, 1);
  canvas.Fill(border, bulge > 0 ? dark : light);
  for (const Spot spot : {Spot{12, 11}, Spot{19, 19}, Spot{13, 21}, Spot{21, 11}})
    canvas.Fill(Path::Circle(spot.x, spot.y, 2.25), Rgb(0x000000, 40));
  canvas.Stroke(disc, 1.5, ink);
  return canvas;
}

std::span<const Drawing> WeatherIcons() { return weatherIcons; }

}  // namespace tarvelo::art
