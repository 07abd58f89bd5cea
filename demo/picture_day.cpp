// Wallpapers of the day: sea, desert, snow, fields.

#include "demo/demo_random.h"
#include "demo/picture_art.h"

namespace tarvelo::art {
namespace {

// A cloud `size` units wide with its left top corner near (x, y).
void DrawCloud(Canvas& c, double x, double y, double size, int opacity) {
  const double scale = size / Canvas::iconUnits;
  const Path cloud = CloudShape().Scaled(0, 0, scale, scale).Moved(x, y);
  c.Fill(cloud.Moved(0, 1), Rgb(0xA8BCD8, opacity / 2));
  c.Fill(cloud, Rgb(0xFFFFFF, opacity));
}

void DrawGull(Canvas& c, double x, double y, double size) {
  Path wings;
  wings.Move(x - size, y).Curve(x - size / 2, y - size / 2, x, y - size / 4, x, y + size / 4);
  wings.Curve(x, y - size / 4, x + size / 2, y - size / 2, x + size, y);
  c.Stroke(wings, 1, Rgb(0x3A4660));
}

void DrawWaves(Canvas& c, int top, std::uint32_t seed) {
  Random random(seed);
  for (double y = top + 2; y < wallpaperHeight; y += 3)
    for (int i = 0; i < 7; ++i) {
      const double x = random.Below(wallpaperWidth);
      const double length = 2 + (y - top) / 8.0;
      c.Stroke(Path::Polyline({{x - length, y}, {x, y - 0.75}, {x + length, y}}), 0.75, Rgb(0xFFFFFF, 90));
    }
}

void DrawBoat(Canvas& c) {
  Path main;
  main.Move(52, 14).Curve(66, 28, 72, 42, 74, 52).Line(52, 54).Close();
  c.Fill(main, Paint::Linear({52, 30}, {74, 40}, {white, Rgb(0xF2DCC0)}));
  c.Stroke(Path::Polyline({{52, 30}, {64, 29}}), 0.75, Rgb(0xE8A070));
  c.Stroke(Path::Polyline({{52, 42}, {70.5, 41}}), 0.75, Rgb(0xE8A070));
  Path jib;
  jib.Move(49.5, 17).Curve(42, 32, 36, 44, 31, 53).Line(49.5, 53).Close();
  c.Fill(jib, Paint::Linear({36, 40}, {50, 46}, {Rgb(0xFF7A5C), Rgb(0xD02A2A)}));
  c.Stroke(Path::Polyline({{51, 11}, {51, 57}}), 1.5, Rgb(0x6B3A1A));
  c.Fill(Path::Polygon({{51.5, 10}, {59, 12}, {51.5, 14}}), Rgb(0xFFD21E));
  Path hull;
  hull.Move(28, 57)
      .Line(77, 55)
      .Curve(75, 62, 72, 65, 68, 66)
      .Line(37, 66)
      .Curve(33, 64, 30, 61, 28, 57)
      .Close();
  c.Fill(hull, Paint::Vertical(55, 66, {Rgb(0xB8642C), Rgb(0x5A2A14)}));
  c.Stroke(Path::Polyline({{29, 58.5}, {76, 56.5}}), 1.25, white);
}

void DrawSailing(Canvas& c) {
  c.Fill(Backdrop(0, 50), Paint::Vertical(0, 50, {Rgb(0x3F8CE8), Rgb(0xA8D8FF), Rgb(0xFFF2D8)}));
  c.Fill(Path::Circle(84, 15, 16), Paint::Radial(84, 15, 16, {Rgb(0xFFF6C0, 200), Rgb(0xFFF6C0, 0)}));
  c.Fill(Path::Circle(84, 15, 7), Rgb(0xFFF7B0));
  DrawCloud(c, 2, 4, 30, 240);
  DrawCloud(c, 72, 24, 22, 200);
  c.Fill(Path::Polygon({{0, 50}, {0, 44}, {8, 40}, {15, 45}, {22, 43}, {34, 50}}), Rgb(0x7F9CC0));
  c.Fill(Backdrop(50), Paint::Vertical(50, 80, {Rgb(0x5CB4E0), Rgb(0x1C6AB8), Rgb(0x0C3A80)}));
  DrawWaves(c, 51, 7);
  DrawBoat(c);
  c.Fill(Path::Ellipse(52, 67, 27, 2), Rgb(0xFFFFFF, 120));
  c.Fill(Path::Polygon({{36, 68}, {68, 68}, {60, 79}, {44, 77}}), Rgb(0x5A2A14, 70));
  DrawGull(c, 16, 26, 4);
  DrawGull(c, 25, 32, 3);
  DrawGull(c, 86, 44, 3);
}

void DrawPyramid(Canvas& c, double x, double y, double half, double height) {
  c.Fill(Path::Polygon({{x - half, y}, {x, y - height}, {x + half, y}}),
         Paint::Linear({x - half, y}, {x, y - height}, {Rgb(0xE8A850), Rgb(0xFFE0A0)}));
  c.Fill(Path::Polygon({{x, y - height}, {x + half, y}, {x + half / 4, y}}),
         Paint::Vertical(y - height, y, {Rgb(0xB87838), Rgb(0x7A4420)}));
}

void DrawCactus(Canvas& c) {
  Path cactus = Path::Polyline({{14, 74}, {14, 44}}).Stroked(5);
  cactus.Plus(Path::Polyline({{14, 62}, {7, 60}, {7, 52}}).Stroked(3.5));
  cactus.Plus(Path::Polyline({{14, 57}, {21, 55}, {21, 48}}).Stroked(3.5));
  c.Fill(cactus.Stroked(1.5), Rgb(0x143A20));
  c.Fill(cactus, Paint::Linear({11, 50}, {18, 50}, {Rgb(0x7CC860), Rgb(0x2A7A3C)}));
  for (int y = 46; y < 72; y += 4) c.Fill(Path::Rect(13.5, y, 1, 1.5), Rgb(0xD8F0B0));
}

void DrawDesert(Canvas& c) {
  c.Fill(Backdrop(), Paint::Vertical(0, 48, {Rgb(0x2F7ED8), Rgb(0x8CC8F4), Rgb(0xFFF0C8)}));
  c.Fill(Path::Circle(22, 16, 20), Paint::Radial(22, 16, 20, {Rgb(0xFFFFE0, 230), Rgb(0xFFFFE0, 0)}));
  c.Fill(Path::Circle(22, 16, 6), white);
  DrawPyramid(c, 84, 52, 18, 22);
  DrawPyramid(c, 54, 56, 27, 35);
  Path dunes;
  dunes.Move(0, 54)
      .Curve(20, 44, 34, 58, 52, 54)
      .Curve(70, 50, 84, 46, 101, 53)
      .Line(101, 80)
      .Line(0, 80)
      .Close();
  c.Fill(dunes, Paint::Vertical(48, 80, {Rgb(0xFFD890), Rgb(0xE89A48)}));
  Path near;
  near.Move(0, 70)
      .Curve(24, 60, 46, 66, 60, 72)
      .Curve(76, 78, 90, 66, 101, 64)
      .Line(101, 80)
      .Line(0, 80)
      .Close();
  c.Fill(near, Paint::Vertical(62, 80, {Rgb(0xF8C070), Rgb(0xC87830)}));
  for (int i = 0; i < 3; ++i) {
    const double y = 58 + i * 2.5;
    Path ripple;
    ripple.Move(58 + i * 4, y).Curve(68, y - 2, 76, y + 2, 88 + i * 3, y - 1);
    c.Stroke(ripple, 0.75, Rgb(0xC88848, 140));
  }
  DrawCactus(c);
}

// A fish looking to the right, or with a negative length to the left.
void DrawFish(Canvas& c, double x, double y, double length, Colour light, Colour dark) {
  const double size = length / 20;
  const auto fitted = [&](const Path& path) {
    return path.Scaled(0, 0, size, size < 0 ? -size : size).Moved(x, y);
  };
  c.Fill(fitted(Path::Polygon({{-8, 0}, {-14, -6}, {-12, 0}, {-14, 6}})), dark);
  c.Fill(fitted(Path::Polygon({{-4, -5}, {4, -9}, {6, -3}})), dark);
  c.Fill(fitted(Path::Ellipse(0, 0, 10, 6)), Paint::Vertical(y - 5, y + 5, {light, dark}));
  c.Fill(fitted(Path::Rect(0, -5.5, 2.5, 11)), Rgb(0xFFFFFF, 170));
  c.Fill(fitted(Path::Circle(6, -1.5, 1.75)), white);
  c.Fill(fitted(Path::Circle(6.5, -1.5, 1)), black);
}

void DrawWeed(Canvas& c, double x, double top, Colour colour) {
  for (const double lean : {-5.0, 0.0, 5.0}) {
    Path weed;
    weed.Move(x, 78).Curve(x + lean, 70, x - lean, 66 + top / 8, x + lean, top);
    c.Stroke(weed, 2, colour);
  }
}

void DrawReef(Canvas& c) {
  c.Fill(Backdrop(), Paint::Vertical(0, 80, {Rgb(0x8CE8F4), Rgb(0x2A9AD0), Rgb(0x0C3C80)}));
  for (int i = 0; i < 4; ++i) {
    const double x = 8 + i * 24;
    c.Fill(Path::Polygon({{x, 0}, {x + 9, 0}, {x - 6, 72}, {x - 24, 72}}), Rgb(0xFFFFFF, 34));
  }
  Path sand;
  sand.Move(0, 72)
      .Curve(24, 66, 44, 76, 62, 71)
      .Curve(78, 67, 90, 72, 101, 69)
      .Line(101, 80)
      .Line(0, 80)
      .Close();
  c.Fill(sand, Paint::Vertical(68, 80, {Rgb(0xF4E0A8), Rgb(0xB89858)}));
  DrawWeed(c, 10, 44, Rgb(0x1F8A50));
  DrawWeed(c, 92, 36, Rgb(0x2AA060));
  DrawWeed(c, 82, 54, Rgb(0x6A3A90));
  Inked(c, Path::Star(54, 73, 6, 2.5, 5), Rgb(0xFF7A4A), 1);
  DrawFish(c, 54, 28, 26, Rgb(0xFFE060), Rgb(0xF07A10));
  DrawFish(c, 26, 50, -16, Rgb(0xFF9AC0), Rgb(0xC02A78));
  DrawFish(c, 72, 54, 14, Rgb(0xB0FFD0), Rgb(0x1F9A78));
  for (const Spot& bubble :
       {Spot{72, 22}, Spot{76, 15}, Spot{74, 8}, Spot{12, 42}, Spot{10, 34}, Spot{84, 47}}) {
    c.Fill(Path::Circle(bubble.x, bubble.y, 2), Rgb(0xFFFFFF, 90));
    c.Stroke(Path::Circle(bubble.x, bubble.y, 2), 0.75, Rgb(0xFFFFFF, 210));
  }
}

void DrawPine(Canvas& c, double x, double foot, double height) {
  c.Fill(Path::Rect(x - height / 16, foot - height / 8, height / 8, height / 8), Rgb(0x5A3A24));
  for (int i = 2; i >= 0; --i) {
    const double top = foot - height + i * height / 4;
    const double bottom = top + height * 3 / 8;
    const double half = height * (i + 2) / 16;
    c.Fill(Path::Polygon({{x - half, bottom}, {x, top}, {x + half, bottom}}),
           Paint::Linear({x - half, 0}, {x + half, 0}, {Rgb(0x2F8A5C), Rgb(0x0C3A34)}));
    c.Fill(Path::Polygon({{x - half / 2, top + height * 3 / 16},
                          {x, top},
                          {x + half / 2, top + height * 3 / 16},
                          {x, top + height / 8}}),
           Rgb(0xF4FAFF));
  }
}

void DrawCabin(Canvas& c) {
  Path smoke;
  smoke.Move(64, 38).Curve(70, 34, 58, 30, 66, 25).Curve(72, 21, 62, 16, 70, 10);
  c.Stroke(smoke, 3, Rgb(0xFFFFFF, 120));
  c.Fill(Path::Rect(62, 38, 5, 10), Rgb(0x8A4A3A));
  c.Fill(Path::Rect(46, 50, 26, 16), Paint::Vertical(50, 66, {Rgb(0xB87848), Rgb(0x7A4626)}));
  for (int y = 53; y < 66; y += 3)
    c.Stroke(Path::Polyline({{46, y + 0.0}, {72, y + 0.0}}), 0.5, Rgb(0x5A3018));
  c.Fill(Path::Polygon({{42, 52}, {52, 40}, {67, 40}, {76, 52}}),
         Paint::Vertical(40, 52, {white, Rgb(0xD0E0F4)}));
  c.Fill(Path::Rect(50, 56, 6, 10), Rgb(0x4A2814));
  Inked(c, Path::Rect(61, 55, 7, 6), Rgb(0xFFE070), 1);
}

void DrawWinter(Canvas& c) {
  c.Fill(Backdrop(), Paint::Vertical(0, 56, {Rgb(0x7CA8D8), Rgb(0xC8DCF0), Rgb(0xFFEADC)}));
  c.Fill(Path::Polygon(
             {{0, 56}, {18, 26}, {32, 44}, {50, 20}, {74, 50}, {88, 34}, {101, 50}, {101, 60}, {0, 60}}),
         Rgb(0xA0B8D8));
  c.Fill(Path::Polygon({{12, 36}, {18, 26}, {25, 35}, {20, 33}, {17, 38}}), white);
  c.Fill(Path::Polygon({{40, 34}, {50, 20}, {61, 34}, {54, 30}, {49, 37}, {46, 31}}), white);
  for (int i = 0; i < 9; ++i) DrawPine(c, 4 + i * 12, 60, 13 + i * 5 % 7);
  Path snow;
  snow.Move(0, 60).Curve(26, 52, 60, 64, 101, 56).Line(101, 80).Line(0, 80).Close();
  c.Fill(snow, Paint::Vertical(56, 80, {white, Rgb(0xB4CCEC)}));
  DrawCabin(c);
  DrawPine(c, 22, 74, 40);
  DrawPine(c, 89, 77, 34);
  Random random(11);
  for (int i = 0; i < 60; ++i) {
    const double x = random.Below(wallpaperWidth);
    c.Fill(Path::Circle(x, random.Below(wallpaperHeight), i % 3 == 0 ? 1 : 0.625), Rgb(0xFFFFFF, 220));
  }
}

void DrawBalloon(Canvas& c, double x, double y, double size, Colour odd, Colour even) {
  const auto fitted = [&](const Path& path) { return path.Scaled(0, 0, size, size).Moved(x, y); };
  Path bag;
  bag.Move(-3, 17).Curve(-8, 11, -14, 8, -14, 0).Curve(-14, -8, -7, -13, 0, -13);
  bag.Curve(7, -13, 14, -8, 14, 0).Curve(14, 8, 8, 11, 3, 17).Close();
  c.Fill(fitted(bag), odd);
  for (const double gore : {0.75, 0.5, 0.25})
    c.Fill(fitted(bag.Scaled(0, 0, gore, 1)), gore == 0.5 ? odd : even);
  c.Fill(fitted(bag), Paint::Radial(x - 5 * size, y - 6 * size, 24 * size,
                                    {Rgb(0xFFFFFF, 130), Rgb(0x000000, 0), Rgb(0x000000, 120)}));
  c.Stroke(fitted(Path::Polyline({{-3, 17}, {-2, 22}}).Plus(Path::Polyline({{3, 17}, {2, 22}}))), 0.75,
           Rgb(0x5A3A24));
  c.Fill(fitted(Path::RoundRect(-3, 21, 6, 5, 1)), Rgb(0x9A6430));
}

void DrawBalloons(Canvas& c) {
  c.Fill(Backdrop(), Paint::Vertical(0, 62, {Rgb(0x2A80E0), Rgb(0x8CCAFA), Rgb(0xEAF8FF)}));
  DrawCloud(c, 60, 2, 34, 230);
  DrawCloud(c, -6, 24, 30, 210);
  DrawCloud(c, 44, 36, 20, 190);
  c.Fill(Backdrop(62), Paint::Vertical(62, 80, {Rgb(0xA8D878), Rgb(0x4A9A3A)}));
  c.Fill(Path::Polygon({{0, 68}, {30, 62}, {48, 62}, {20, 80}, {0, 80}}), Rgb(0xF0D860, 200));
  c.Fill(Path::Polygon({{58, 62}, {76, 62}, {101, 72}, {101, 80}, {66, 80}}), Rgb(0x6CB848));
  c.Fill(Path::Polygon({{48, 62}, {52, 62}, {44, 80}, {30, 80}}), Rgb(0xE8E0C8));
  for (int i = 0; i < 9; ++i) c.Fill(Path::Circle(3 + i * 12, 62 + i % 2, 2.5), Rgb(0x2F7A3C));
  DrawBalloon(c, 32, 24, 1.375, Rgb(0xE83A2A), Rgb(0xFFD84A));
  DrawBalloon(c, 76, 32, 0.75, Rgb(0x5A30C0), Rgb(0xF4F0FF));
  DrawBalloon(c, 61, 14, 0.375, Rgb(0x1F9A48), Rgb(0xFFF0A0));
}

constexpr Drawing dayScenes[] = {DrawSailing, DrawDesert, DrawReef, DrawWinter, DrawBalloons};

}  // namespace

std::span<const Drawing> DayScenes() { return dayScenes; }

}  // namespace tarvelo::art
