// Wallpapers of the evening and the night: mountains at sunset, city, stars.

#include "demo/demo_random.h"
#include "demo/picture_art.h"

namespace tarvelo::art {
namespace {

// Faint and bright stars above the row `bottom`.
void DrawStars(Canvas& c, int count, std::uint32_t bottom, std::uint32_t seed) {
  Random random(seed);
  for (int i = 0; i < count; ++i) {
    const int x = static_cast<int>(random.Below(wallpaperWidth));
    const int y = static_cast<int>(random.Below(bottom));
    const Colour tint = i % 4 == 0 ? Rgb(0xFFE8C0) : i % 4 == 1 ? Rgb(0xC0D8FF) : white;
    c.Blend(x, y, tint, 60 + static_cast<int>(random.Below(190)));
  }
}

void DrawTwinkle(Canvas& c, double x, double y, double size) {
  c.Fill(Path::Circle(x, y, size), Paint::Radial(x, y, size, {Rgb(0xFFFFFF, 150), Rgb(0xFFFFFF, 0)}));
  c.Fill(Path::Star(x, y, size, size / 6, 4), white);
}

// A pointed conifer as a shadow.
void DrawFir(Canvas& c, double x, double foot, double height, Colour colour) {
  for (int i = 0; i < 3; ++i) {
    const double top = foot - height + i * height / 4;
    const double half = height * (i + 2) / 16;
    c.Fill(Path::Polygon({{x - half, top + height / 2}, {x, top}, {x + half, top + height / 2}}), colour);
  }
}

void DrawSunset(Canvas& c) {
  c.Fill(Backdrop(0, 58),
         Paint::Vertical(0, 58, {Rgb(0x241A58), Rgb(0x7A2E84), Rgb(0xE85A62), Rgb(0xFFB45C), Rgb(0xFFE89A)}));
  c.Fill(Path::Circle(66, 46, 26),
         Paint::Radial(66, 46, 26, {Rgb(0xFFF4B0, 220), Rgb(0xFFC070, 90), Rgb(0xFFA060, 0)}));
  c.Fill(Path::Circle(66, 46, 8), Rgb(0xFFFBD8));
  for (const Spot& cloud : {Spot{20, 20}, Spot{46, 30}, Spot{84, 24}})
    c.Fill(Path::Ellipse(cloud.x, cloud.y, 17, 1.75).Plus(Path::Ellipse(cloud.x + 5, cloud.y - 2, 9, 1.5)),
           Rgb(0xFF9A8A, 150));
  c.Fill(Path::Polygon({{0, 46},
                        {10, 34},
                        {18, 42},
                        {30, 26},
                        {42, 42},
                        {52, 36},
                        {64, 50},
                        {80, 36},
                        {92, 46},
                        {101, 40},
                        {101, 60},
                        {0, 60}}),
         Paint::Vertical(26, 60, {Rgb(0x8A4A8C), Rgb(0xD87A7A)}));
  c.Fill(Path::Polygon({{25, 33}, {30, 26}, {35.5, 33}, {31, 31}, {28, 36}}), Rgb(0xFFD8C0));
  c.Fill(Path::Polygon({{0, 50},
                        {14, 44},
                        {26, 52},
                        {40, 46},
                        {56, 56},
                        {74, 48},
                        {88, 54},
                        {101, 48},
                        {101, 62},
                        {0, 62}}),
         Paint::Vertical(44, 62, {Rgb(0x4A2A6C), Rgb(0x7A3E78)}));
  c.Fill(Backdrop(58), Paint::Vertical(58, 80, {Rgb(0xF0906A), Rgb(0x9A4A80), Rgb(0x2E2260)}));
  for (int i = 0; i < 9; ++i) {
    const double half = 9 - i * 0.5;
    const double x = 66 + (i % 2 == 0 ? 1.5 : -1.5);
    c.Fill(Path::Rect(x - half, 59 + i * 2, half * 2, 0.75), Rgb(0xFFF0B0, 220 - i * 14));
  }
  Path shore;
  shore.Move(0, 66).Curve(16, 62, 30, 70, 40, 74).Line(46, 80).Line(0, 80).Close();
  c.Fill(shore, Rgb(0x140E2C));
  for (int i = 0; i < 6; ++i) DrawFir(c, 3 + i * 6.5, 70 + i % 3 * 2, 26 - i * 2 + i % 2 * 5, Rgb(0x140E2C));
}

void DrawCottage(Canvas& c, double x, double y) {
  c.Fill(Path::Rect(x, y, 12, 8), Rgb(0x120E24));
  c.Fill(Path::Polygon({{x - 2, y}, {x + 6, y - 7}, {x + 14, y}}), Rgb(0x1A1430));
  c.Fill(Path::Rect(x + 9, y - 8, 2, 5), Rgb(0x1A1430));
  c.Fill(Path::Circle(x + 4, y + 4, 7),
         Paint::Radial(x + 4, y + 4, 7, {Rgb(0xFFC850, 150), Rgb(0xFFC850, 0)}));
  c.Fill(Path::Rect(x + 2.5, y + 2.5, 3, 3), Rgb(0xFFE890));
}

void DrawStarryNight(Canvas& c) {
  c.Fill(Backdrop(), Paint::Vertical(0, 66, {Rgb(0x060A28), Rgb(0x142060), Rgb(0x2F4C9C)}));
  for (int i = 0; i < 12; ++i) {  // the milky way, a chain of faint clouds
    const double x = 4 + i * 9;
    const double y = 52 - i * 4.5;
    c.Fill(Path::Circle(x, y, 13), Paint::Radial(x, y, 13, {Rgb(0xC8C8FF, 44), Rgb(0xC8C8FF, 0)}));
  }
  DrawStars(c, 150, 64, 3);
  for (const Spot& star : {Spot{14, 12}, Spot{44, 22}, Spot{61, 8}, Spot{92, 38}, Spot{30, 40}})
    DrawTwinkle(c, star.x, star.y, 3.5);
  c.Fill(Path::Circle(80, 17, 18), Paint::Radial(80, 17, 18, {Rgb(0xFFF4C8, 110), Rgb(0xFFF4C8, 0)}));
  Path moon;
  moon.Move(82, 7)
      .Curve(74, 11, 74, 23, 83, 27)
      .Curve(74, 30, 68, 24, 68, 17)
      .Curve(68, 10, 75, 5, 82, 7)
      .Close();
  c.Fill(moon, Paint::Linear({68, 8}, {80, 28}, {Rgb(0xFFFDE0), Rgb(0xF0C860)}));
  c.Stroke(Path::Polyline({{36, 6}, {22, 15}}), 1,
           Paint::Linear({22, 15}, {36, 6}, {white, Rgb(0xFFFFFF, 0)}));
  Path hills;
  hills.Move(0, 64)
      .Curve(18, 54, 36, 60, 54, 64)
      .Curve(70, 68, 86, 56, 101, 60)
      .Line(101, 80)
      .Line(0, 80)
      .Close();
  c.Fill(hills, Paint::Vertical(56, 80, {Rgb(0x1C2C5C), Rgb(0x0E1636)}));
  Path near;
  near.Move(0, 74)
      .Curve(24, 64, 52, 72, 70, 70)
      .Curve(84, 68, 94, 72, 101, 70)
      .Line(101, 80)
      .Line(0, 80)
      .Close();
  c.Fill(near, Rgb(0x080C20));
  DrawCottage(c, 30, 62);
  for (int i = 0; i < 4; ++i) DrawFir(c, 68 + i * 8, 74, 18 + i % 2 * 7, Rgb(0x080C20));
}

void DrawTower(Canvas& c, Random& random, double x, double width, double height) {
  const double top = 62 - height;
  c.Fill(Path::Rect(x, top, width, height), Paint::Vertical(top, 62, {Rgb(0x283468), Rgb(0x141A3C)}));
  c.Fill(Path::Rect(x + width - 1.5, top, 1.5, height), Rgb(0x0A0E24));
  for (double y = top + 2; y < 59; y += 3)
    for (double windowX = x + 1; windowX < x + width - 3; windowX += 3) {
      const auto light = random.Below(5);
      if (light < 3) c.Fill(Path::Rect(windowX, y, 1.5, 1.5), light == 0 ? Rgb(0x9AD8FF) : Rgb(0xFFE07A));
    }
}

// Everything above the row `level` again below it, upside down, darker and a little shaken.
void MirrorInWater(Canvas& c, int level) {
  for (int y = level; y < c.Height(); ++y)
    for (int x = 0; x < c.Width(); ++x) {
      const int depth = y - level;
      const int shift = TimesSin(depth / 4 + 1, depth * 75);
      Colour above = c.At((x + shift + c.Width()) % c.Width(), level - 1 - depth);
      c.Put(x, y, Mix(above, Rgb(0x0A1440), 110 + depth * 4));
    }
}

void DrawCity(Canvas& c) {
  c.Fill(Backdrop(), Paint::Vertical(0, 62, {Rgb(0x0C1038), Rgb(0x3A2A70), Rgb(0xC05A7A)}));
  DrawStars(c, 50, 34, 5);
  c.Fill(Path::Circle(20, 15, 16), Paint::Radial(20, 15, 16, {Rgb(0xFFF6D8, 130), Rgb(0xFFF6D8, 0)}));
  c.Fill(Path::Circle(20, 15, 7), Rgb(0xFFF8E0));
  for (const Spot& crater : {Spot{18, 13}, Spot{22, 17}, Spot{22, 11}})
    c.Fill(Path::Circle(crater.x, crater.y, 1.5), Rgb(0xE8D8B0));
  for (int i = 0; i < 13; ++i) c.Fill(Path::Rect(i * 8, 40 - i * 5 % 9, 8, 30), Rgb(0x3A2C66));
  Random random(21);
  const int heights[] = {22, 33, 27, 46, 19, 38, 30, 50, 25, 35, 21};
  for (int i = 0; i < 11; ++i) DrawTower(c, random, i * 9.25, 8.5, heights[i]);
  c.Fill(Path::Polygon({{64.75, 12}, {69, 2}, {73.25, 12}}), Rgb(0x283468));
  c.Stroke(Path::Polyline({{69, 1}, {69, 6}}), 0.75, Rgb(0xFF5A4A));
  c.Stroke(Path::Polyline({{32, 16}, {32, 9}}), 0.75, Rgb(0x9AA8D8));
  c.Fill(Backdrop(61, 63), Rgb(0x0A0E24));
  MirrorInWater(c, 63);
}

void DrawPlanet(Canvas& c) {
  c.Fill(Backdrop(), Paint::Radial(20, 70, 110, {Rgb(0x3A1A5C), Rgb(0x140C38), Rgb(0x04040E)}));
  c.Fill(Path::Circle(86, 16, 26), Paint::Radial(86, 16, 26, {Rgb(0x3A90C0, 90), Rgb(0x3A90C0, 0)}));
  DrawStars(c, 130, 80, 9);
  DrawTwinkle(c, 12, 14, 4);
  DrawTwinkle(c, 90, 60, 3.5);
  const Path ball = Path::Circle(48, 40, 19);
  Path ring = Path::Ellipse(48, 40, 36, 9).Minus(Path::Ellipse(48, 40, 25, 5)).Turned(48, 40, 340);
  const Paint dust =
      Paint::Linear({14, 52}, {82, 28}, {Rgb(0xF0D8A0, 230), Rgb(0xB88A60, 230), Rgb(0xFFF0C8, 230)});
  c.Fill(ring, dust);
  Canvas surface = c;
  surface.Fill(ball, Rgb(0xE8B070));
  const Colour bands[] = {Rgb(0xF8D8A0), Rgb(0xC8824A), Rgb(0xFFE8C0), Rgb(0xD89A60), Rgb(0xB87040)};
  for (int i = 0; i < 5; ++i)
    surface.Fill(Path::Ellipse(48, 26 + i * 7, 24, 2.75).Turned(48, 40, 340), bands[i]);
  surface.Fill(Path::Ellipse(54, 45, 4, 2).Turned(54, 45, 340), Rgb(0xC04A30));
  surface.Fill(ball, Paint::Radial(40, 30, 32, {Rgb(0xFFFFFF, 70), Rgb(0x000000, 0), Rgb(0x000010, 210)}));
  c.Fill(ball, surface);
  Canvas front = c;
  front.Fill(ring, dust);
  c.Fill(Path::Polygon({{0, 58}, {101, 22}, {101, 80}, {0, 80}}), front);
  c.Fill(Path::Circle(84, 62, 5), Paint::Radial(82, 60, 7, {Rgb(0xE0E8F4), Rgb(0x4A5878)}));
}

void DrawLighthouse(Canvas& c) {
  c.Fill(Backdrop(), Paint::Vertical(0, 60, {Rgb(0x14204C), Rgb(0x4A4A8C), Rgb(0xD88A8A)}));
  DrawStars(c, 40, 30, 15);
  c.Fill(Path::Polygon({{70, 17}, {0, 2}, {0, 30}}),
         Paint::Linear({70, 0}, {0, 0}, {Rgb(0xFFF4B0, 210), Rgb(0xFFF4B0, 20)}));
  c.Fill(Path::Polygon({{74, 17}, {101, 10}, {101, 25}}),
         Paint::Linear({74, 0}, {101, 0}, {Rgb(0xFFF4B0, 190), Rgb(0xFFF4B0, 60)}));
  c.Fill(Backdrop(58), Paint::Vertical(58, 80, {Rgb(0x5A5A98), Rgb(0x16204C)}));
  for (int i = 0; i < 14; ++i) {
    const double x = i * 29 % 97;
    const double y = 60 + i * 1.25;
    c.Fill(Path::Rect(x, y, 6 + i / 2.0, 0.625), Rgb(0xFFD0C0, 110));
  }
  Path rocks;
  rocks.Move(46, 80)
      .Curve(50, 68, 56, 62, 64, 61)
      .Line(82, 61)
      .Curve(92, 63, 97, 70, 101, 72)
      .Line(101, 80)
      .Close();
  c.Fill(rocks, Paint::Vertical(60, 80, {Rgb(0x4A4260), Rgb(0x181428)}));
  const Path tower = Path::Polygon({{67.5, 24}, {76.5, 24}, {79, 62}, {65, 62}});
  Canvas stripes = c;
  stripes.Fill(tower, white);
  for (int i = 0; i < 3; ++i) stripes.Fill(Path::Rect(60, 28 + i * 12, 24, 6), Rgb(0xD82A2A));
  stripes.Fill(tower, Paint::Linear({65, 0}, {79, 0}, {Rgb(0x000000, 0), Rgb(0x000020, 150)}));
  c.Fill(tower, stripes);
  c.Fill(Path::Rect(65.5, 22, 13, 2.25), Rgb(0x14182C));
  c.Fill(Path::Rect(69, 13, 6, 9), Rgb(0xFFF8C0));
  c.Fill(Path::Circle(72, 17, 9), Paint::Radial(72, 17, 9, {Rgb(0xFFFCE0, 230), Rgb(0xFFF4B0, 0)}));
  c.Fill(Path::Polygon({{67, 13}, {72, 7}, {77, 13}}), Rgb(0xB82020));
  c.Fill(Path::Rect(70.5, 55, 3, 7), Rgb(0x2A2038));
}

void DrawFirework(Canvas& c, double x, double y, double r, int hue) {
  c.Fill(Path::Circle(x, y, r),
         Paint::Radial(x, y, r, {Mix(Hue(hue), Rgb(0xFFFFFF, 150), 128), Rgb(0x000000, 0)}));
  for (int angle = 0; angle < 360; angle += 20) {
    const double reach = angle % 40 == 0 ? r : r * 0.75;
    const Path spark = Path::Polyline({{x, y - reach / 4}, {x, y - reach}}).Turned(x, y, angle);
    c.Stroke(spark, 0.75, Paint::Radial(x, y, r, {white, Hue(hue), Hue(hue + 30)}));
    c.Fill(Path::Circle(x, y - reach, 0.875).Turned(x, y, angle), Mix(Hue(hue), white, 150));
  }
}

void DrawFireworks(Canvas& c) {
  c.Fill(Backdrop(), Paint::Vertical(0, 62, {Rgb(0x04061C), Rgb(0x121C4C), Rgb(0x3A3470)}));
  DrawStars(c, 40, 44, 31);
  DrawFirework(c, 28, 22, 18, 20);
  DrawFirework(c, 70, 18, 15, 200);
  DrawFirework(c, 52, 38, 11, 110);
  DrawFirework(c, 88, 40, 9, 310);
  c.Fill(Path::Polygon({{0, 58},  {9, 58},  {9, 52},  {16, 52}, {16, 57}, {22, 57},  {22, 46},  {24, 42},
                        {26, 46}, {26, 57}, {40, 57}, {48, 51}, {56, 57}, {70, 57},  {70, 53},  {80, 53},
                        {80, 57}, {88, 57}, {88, 50}, {94, 50}, {94, 58}, {101, 58}, {101, 64}, {0, 64}}),
         Rgb(0x080A1C));
  MirrorInWater(c, 63);
}

constexpr Drawing nightScenes[] = {DrawSunset, DrawStarryNight, DrawCity,
                                   DrawPlanet, DrawLighthouse,  DrawFireworks};

}  // namespace

std::span<const Drawing> NightScenes() { return nightScenes; }

}  // namespace tarvelo::art
