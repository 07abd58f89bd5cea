// Icons of the things that a phone's owner meets: tools, presents, the house.

#include "demo/lettering.h"
#include "demo/picture_art.h"

namespace tarvelo::art {
namespace {

constexpr Colour wood = Rgb(0xD08A40);

void DrawBin(Canvas& c) {
  Inked(c, Path::Polygon({{7, 10}, {25, 10}, {23, 29}, {9, 29}}),
        Paint::Linear({7, 10}, {25, 10}, {Rgb(0x8A99B2), steel, Rgb(0x76859E)}));
  for (const double x : {12.5, 16.0, 19.5}) c.Stroke(Path::Polyline({{x, 14}, {x, 25}}), 1.5, Rgb(0x56658A));
  Inked(c, Path::RoundRect(5, 6, 22, 4, 1), steel);
  Inked(c, Path::Rect(13, 3, 6, 3), darkSteel);
}

void DrawSpeaker(Canvas& c) {
  Inked(c, Path::Polygon({{3, 12}, {8, 12}, {15, 5}, {15, 27}, {8, 20}, {3, 20}}),
        Paint::Vertical(5, 27, {steel, darkSteel}));
  const Colour waves[] = {Rgb(0x2A6FE0), Rgb(0x4E95F4), Rgb(0x8CC0FF)};
  for (int i = 0; i < 3; ++i) c.Stroke(Path::Arc(14, 16, 5 + i * 4, 50, 130), 2, waves[i]);
}

void DrawHeadphones(Canvas& c) {
  const Path band = Path::Arc(16, 17, 11, 270, 450);
  c.Stroke(band, 5, ink);
  c.Stroke(band, 2, Rgb(0x7F8FAE));
  for (const double x : {3.0, 21.0})
    Inked(c, Path::RoundRect(x, 16, 8, 12, 3), Paint::Vertical(16, 28, {Rgb(0xFF9E5A), brightRed}));
}

void DrawJoystick(Canvas& c) {
  Inked(c, Path::RoundRect(4, 21, 24, 8, 2), Paint::Vertical(21, 29, {Rgb(0x7C8BB0), Rgb(0x3B4870)}));
  c.Stroke(Path::Polyline({{16, 21}, {18, 10}}), 5, ink);
  c.Stroke(Path::Polyline({{16, 21}, {18, 10}}), 2, darkSteel);
  Inked(c, Path::Circle(18.5, 8, 5), Paint::Radial(17, 6, 7, {Rgb(0xFFC0B0), brightRed, Rgb(0x981010)}));
  Inked(c, Path::Circle(8.5, 21, 2), gold, 1.5);
}

void DrawHouse(Canvas& c) {
  Inked(c, Path::Rect(21, 5, 4, 8), Rgb(0xA8543A));
  Inked(c, Path::Rect(6, 14, 20, 15), Paint::Vertical(14, 29, {Rgb(0xFFF6DC), Rgb(0xE8CFA0)}));
  Inked(c, Path::Polygon({{2, 16}, {16, 4}, {30, 16}}),
        Paint::Vertical(4, 16, {Rgb(0xFF7A5C), Rgb(0xB8281C)}));
  Inked(c, Path::Rect(9, 20, 5, 9), wood, 1.5);
  Inked(c, Path::Rect(18, 19, 5, 5), Rgb(0x9FD2FF), 1.5);
}

void DrawCup(Canvas& c) {
  for (const double x : {10.0, 15.0, 20.0}) {
    Path steam;
    steam.Move(x, 10).Curve(x - 2.5, 8, x + 2.5, 6, x, 3);
    c.Stroke(steam, 1.5, Rgb(0x9AA6BC));
  }
  Path handle = Path::Circle(24.5, 18, 3.5);
  c.Stroke(handle, 4.5, ink);
  c.Stroke(handle, 1.75, white);
  Path cup;
  cup.Move(5, 12).Line(25, 12).Curve(25, 22, 22, 26, 19, 26).Line(11, 26);
  cup.Curve(8, 26, 5, 22, 5, 12).Close();
  Inked(c, cup, Paint::Linear({5, 12}, {25, 26}, {white, Rgb(0xA9BEE2)}));
  c.Fill(Path::Rect(6.5, 13, 17, 2.5), Rgb(0x6B3A1A));
  Inked(c, Path::RoundRect(4, 26.5, 22, 2.5, 1.25), Rgb(0xD5DFF0), 1.5);
}

void DrawBulb(Canvas& c) {
  Path glass;
  glass.Move(12, 22).Curve(12, 18, 7, 17, 7, 11).Curve(7, 6, 11, 3, 16, 3);
  glass.Curve(21, 3, 25, 6, 25, 11).Curve(25, 17, 20, 18, 20, 22).Close();
  Inked(c, glass, Paint::Radial(14, 9, 15, {Rgb(0xFFFFE8), Rgb(0xFFE760), Rgb(0xF4A81C)}));
  c.Stroke(Path::Polyline({{13, 12}, {15, 15}, {17, 12}, {19, 15}, {17.5, 21}}), 1, Rgb(0xB06A10));
  Inked(c, Path::RoundRect(12, 22, 8, 7, 2), darkSteel);
  c.Stroke(Path::Polyline({{12, 25}, {20, 25}}), 1.25, ink);
}

void DrawPencil(Canvas& c) {
  const auto part = [](std::initializer_list<Spot> spots) { return Path::Polygon(spots).Turned(16, 16, 45); };
  Inked(c, part({{12.5, 1}, {19.5, 1}, {19.5, 5}, {12.5, 5}}), Rgb(0xFF9AA8));
  Inked(c, part({{12.5, 5}, {19.5, 5}, {19.5, 23}, {12.5, 23}}),
        Paint::Linear({12, 12}, {20, 20}, {Rgb(0xFFF09A), gold, darkGold}));
  Inked(c, part({{12.5, 23}, {19.5, 23}, {16, 31}}), Rgb(0xF6DDB4));
  c.Fill(part({{14.5, 27.5}, {17.5, 27.5}, {16, 31}}), ink);
}

void DrawGift(Canvas& c) {
  Inked(c, Path::Rect(5, 14, 22, 15), Paint::Vertical(14, 29, {Rgb(0x7FB2FF), Rgb(0x2A56C0)}));
  Inked(c, Path::Rect(3, 10, 26, 5), Rgb(0x9CC6FF));
  Inked(c, Path::Rect(13.5, 10, 5, 19), Rgb(0xFFD95A), 1.5);
  const Path bow = Path::Ellipse(16, 6, 3, 5);
  Inked(c, bow.Turned(16, 10, 300), brightRed, 1.75);
  Inked(c, bow.Turned(16, 10, 60), brightRed, 1.75);
  Inked(c, Path::Circle(16, 9, 2.25), Rgb(0xFF8A70), 1.5);
}

void DrawUmbrella(Canvas& c) {
  Path stick;
  stick.Move(16, 3).Line(16, 25).Curve(16, 31, 9, 31, 9, 26);
  c.Stroke(stick, 3.5, ink);
  c.Stroke(stick, 1, wood);
  Path cover;
  cover.Move(3, 17).Curve(3, 9, 9, 5, 16, 5).Curve(23, 5, 29, 9, 29, 17);
  cover.Curve(27, 14, 22, 14, 20.5, 17).Curve(18, 14, 14, 14, 11.5, 17);
  cover.Curve(10, 14, 5, 14, 3, 17).Close();
  Inked(c, cover, Paint::Linear({5, 6}, {27, 18}, {Rgb(0xFF9AC0), Rgb(0xD02A70)}));
  Path gore;
  gore.Move(11.5, 16).Curve(11.5, 10, 14, 7, 16, 5).Curve(18, 7, 20.5, 10, 20.5, 16);
  c.Stroke(gore, 1.25, ink);
}

void DrawAnchor(Canvas& c) {
  Path anchor = Path::Circle(16, 6, 2.5).Stroked(2.5);
  anchor.Plus(Path::Polyline({{16, 9}, {16, 27}}).Stroked(3));
  anchor.Plus(Path::Polyline({{11, 13}, {21, 13}}).Stroked(3));
  Path arms;
  arms.Move(5, 18).Curve(6, 25, 12, 27, 16, 27).Curve(20, 27, 26, 25, 27, 18);
  anchor.Plus(arms.Stroked(3));
  anchor.Plus(Path::Polygon({{5, 15}, {9, 20}, {2.5, 21}}));
  anchor.Plus(Path::Polygon({{27, 15}, {29.5, 21}, {23, 20}}));
  Backed(c, anchor, Paint::Linear({4, 4}, {28, 28}, {Rgb(0x8FC0FF), Rgb(0x1D4AA0)}));
}

void DrawTrophy(Canvas& c) {
  for (const double x : {7.5, 24.5}) {
    c.Stroke(Path::Circle(x, 10, 4), 4, ink);
    c.Stroke(Path::Circle(x, 10, 4), 1.5, gold);
  }
  Inked(c, Path::Polygon({{14, 18}, {18, 18}, {19, 25}, {13, 25}}), darkGold);
  Path cup;
  cup.Move(7, 4).Line(25, 4).Curve(25, 14, 21, 20, 16, 20).Curve(11, 20, 7, 14, 7, 4).Close();
  Inked(c, cup, Paint::Linear({7, 4}, {25, 12}, {darkGold, Rgb(0xFFF6B8), gold, darkGold}));
  Inked(c, Path::RoundRect(8, 25, 16, 4, 1), Rgb(0x8A4B20));
  c.Fill(Path::Star(16, 10.5, 4, 1.75, 5), white);
}

void DrawFilm(Canvas& c) {
  Inked(c, Path::Rect(4, 5, 24, 22), Rgb(0x343F62));
  for (int i = 0; i < 4; ++i)
    for (const double x : {5.5, 24.0}) c.Fill(Path::Rect(x, 7 + i * 5.25, 2.5, 2.75), white);
  c.Fill(Path::Rect(10, 6.5, 12, 8.5), Paint::Vertical(6, 15, {Rgb(0xFFB04A), Rgb(0xFFF0A0)}));
  c.Fill(Path::Rect(10, 17, 12, 8.5), Paint::Vertical(17, 26, {Rgb(0x6FB4FF), Rgb(0xD8F0FF)}));
  c.Fill(Path::Polygon({{10, 15}, {14, 10}, {17, 13}, {19, 11.5}, {22, 15}}), Rgb(0x8A3A60));
  c.Fill(Path::Polygon({{10, 25.5}, {14, 20.5}, {17, 23.5}, {19, 22}, {22, 25.5}}), Rgb(0x2F7A3C));
}

void DrawDisk(Canvas& c) {
  Inked(c, Path::Polygon({{4, 4}, {25, 4}, {28, 7}, {28, 28}, {4, 28}}),
        Paint::Linear({4, 4}, {28, 28}, {Rgb(0x7A9CFF), Rgb(0x2A3FA8)}));
  Inked(c, Path::Rect(9, 5, 13, 8), steel, 1.5);
  c.Fill(Path::Rect(17, 6.5, 3, 5), Rgb(0x3B4870));
  Inked(c, Path::Rect(8, 17, 16, 11), white, 1.5);
  for (const double y : {20.0, 23.0}) c.Stroke(Path::Polyline({{11, y}, {21, y}}), 1.25, Rgb(0xE5705A));
}

void DrawPad(Canvas& c) {
  Inked(c, Path::RoundRect(4, 9, 24, 16, 7), Paint::Vertical(9, 25, {steel, darkSteel}));
  Path cross = Path::Rect(8, 15.5, 7, 2.75);
  cross.Plus(Path::Rect(10.125, 13.375, 2.75, 7));
  c.Fill(cross, ink);
  Inked(c, Path::Circle(20, 19, 2), Rgb(0xFFB92E), 1.25);
  Inked(c, Path::Circle(23.5, 14.5, 2), brightRed, 1.25);
}

constexpr Drawing toolIcons[] = {DrawBin,    DrawSpeaker, DrawHeadphones, DrawJoystick, DrawHouse,
                                 DrawCup,    DrawBulb,    DrawPencil,     DrawGift,     DrawUmbrella,
                                 DrawAnchor, DrawTrophy,  DrawFilm,       DrawDisk,     DrawPad};

}  // namespace

std::span<const Drawing> ToolIcons() { return toolIcons; }

}  // namespace tarvelo::art
