// Icons of the phone's main menu.

#include <string_view>

#include "demo/lettering.h"
#include "demo/picture_art.h"

namespace tarvelo::art {
namespace {

constexpr Colour paperShade = Rgb(0xC4D4EE);

Path HandsetShape() {
  Path shape = Path::Arc(16, 28, 15, 318, 402).Stroked(5);
  const Path end = Path::RoundRect(11, -4.5, 10, 7, 2.5);
  shape.Plus(end.Moved(0, 17).Turned(16, 28, 312)).Plus(end.Moved(0, 17).Turned(16, 28, 48));
  return shape;
}

Path BellShape() {
  Path bell;
  bell.Move(5, 25).Curve(9, 21, 8, 16, 9, 12).Curve(10, 7, 13, 5, 16, 5);
  bell.Curve(19, 5, 22, 7, 23, 12).Curve(24, 16, 23, 21, 27, 25).Close();
  return bell;
}

void DrawBell(Canvas& c) {
  Inked(c, Path::Circle(16, 26, 3), darkGold);
  Inked(c, Path::Circle(16, 4.5, 2), gold, 1.5);
  Inked(c, BellShape(), Paint::Linear({8, 6}, {25, 24}, {Rgb(0xFFF0A8), gold, darkGold}));
  Path shine;
  shine.Move(12, 20).Curve(11, 15, 12, 11, 14, 9);
  c.Stroke(shine, 1.75, Rgb(0xFFFBE0));
}

void DrawAlarmClock(Canvas& c) {
  for (const double x : {7.5, 24.5}) Inked(c, Path::Circle(x, 7.5, 4), gold);
  c.Stroke(Path::Polyline({{9, 26}, {6, 30}}), 2.5, ink);
  c.Stroke(Path::Polyline({{23, 26}, {26, 30}}), 2.5, ink);
  Inked(c, Path::Circle(16, 18, 11), Paint::Radial(12, 13, 18, {Rgb(0xFF8E7A), Rgb(0xB81C14)}));
  c.Fill(Path::Circle(16, 18, 8), Paint::Vertical(10, 26, {white, Rgb(0xD6E2F4)}));
  for (int angle = 0; angle < 360; angle += 90)
    c.Fill(Path::Circle(16, 11.5, 0.75).Turned(16, 18, angle), ink);
  c.Stroke(Path::Polyline({{16, 12.5}, {16, 18}, {20, 20}}), 1.75, ink);
}

void DrawOpenEnvelope(Canvas& c) {
  Inked(c, Path::Polygon({{3, 14}, {16, 3}, {29, 14}}), Rgb(0x9DB4DC));
  Inked(c, Path::Rect(7, 7, 18, 16), white);
  for (const double y : {11.0, 14.0, 17.0}) c.Stroke(Path::Polyline({{10, y}, {22, y}}), 1, Rgb(0x7C90BC));
  Inked(c, Path::Polygon({{3, 14}, {16, 23}, {29, 14}, {29, 29}, {3, 29}}),
        Paint::Vertical(14, 29, {white, paperShade}));
  c.Stroke(Path::Polyline({{4, 28}, {13, 21}}), 1.5, ink);
  c.Stroke(Path::Polyline({{28, 28}, {19, 21}}), 1.5, ink);
}

void DrawPhonebook(Canvas& c) {
  const Colour tabs[] = {Rgb(0xF2C230), Rgb(0x5DB83A), brightRed};
  for (int i = 0; i < 3; ++i) Inked(c, Path::Rect(25, 6 + i * 7, 5, 5), tabs[i]);
  Inked(c, Path::RoundRect(5, 3, 21, 26, 2), Paint::Linear({5, 3}, {26, 29}, {Rgb(0x6FA8FF), Rgb(0x2350B8)}));
  c.Fill(Path::Rect(6, 4, 3, 24), Rgb(0x1D3F94));
  c.Fill(Path::Circle(17.5, 12, 4), white);
  Path shoulders;
  shoulders.Move(10.5, 24).Curve(10.5, 15.5, 24.5, 15.5, 24.5, 24).Close();
  c.Fill(shoulders, white);
}

void DrawCamera(Canvas& c) {
  Inked(c, Path::Polygon({{10, 10}, {12, 5}, {20, 5}, {22, 10}}), Rgb(0xA9B4C6));
  Inked(c, Path::RoundRect(3, 9, 26, 18, 3), Paint::Vertical(9, 27, {steel, darkSteel}));
  c.Fill(Path::RoundRect(4, 14, 24, 7, 0), Rgb(0x4A5878));
  Inked(c, Path::Circle(16, 18, 7), Rgb(0xD5DCE8));
  c.Fill(Path::Circle(16, 18, 4.75), Paint::Radial(14, 16, 7, {Rgb(0x8FC4FF), Rgb(0x1D4AA0), Rgb(0x0A1533)}));
  c.Fill(Path::Circle(14, 16, 1.25), white);
  c.Fill(Path::Rect(23, 11, 4, 2), gold);
}

void DrawMutedBell(Canvas& c) {
  DrawBell(c);
  c.Stroke(Path::Polyline({{5, 28}, {27, 4}}), 6, white);
  c.Stroke(Path::Polyline({{5, 28}, {27, 4}}), 3, brightRed);
}

// The closed bow of a lock, to be stroked.
Path Shackle() {
  Path bow;
  bow.Move(10, 16).Line(10, 11).Curve(10, 3, 22, 3, 22, 11).Line(22, 16);
  return bow;
}

void DrawLockBody(Canvas& c) {
  Inked(c, Path::RoundRect(6, 15, 20, 14, 2), Paint::Linear({6, 15}, {26, 29}, {Rgb(0xFFE07A), darkGold}));
  c.Fill(Path::Circle(16, 20.5, 2.5), ink);
  c.Fill(Path::Polygon({{15, 21}, {17, 21}, {18, 26}, {14, 26}}), ink);
}

void DrawLock(Canvas& c) {
  c.Stroke(Shackle(), 6, ink);
  c.Stroke(Shackle(), 2.5, steel);
  DrawLockBody(c);
}

void DrawOpenLock(Canvas& c) {
  const Path bow = Shackle().Moved(0, 0.5).Turned(10, 16, -22);
  c.Stroke(bow, 6, ink);
  c.Stroke(bow, 2.5, steel);
  DrawLockBody(c);
}

void DrawKey(Canvas& c) {
  Path key = Path::Circle(16, 8.5, 6.5);
  key.Plus(Path::Rect(14.25, 13, 3.5, 16)).Plus(Path::Rect(17, 20, 5, 3));
  key.Plus(Path::Rect(17, 25.5, 6, 3.5)).Minus(Path::Circle(16, 7, 2.5));
  Backed(c, key.Turned(16, 16, 40), Paint::Linear({6, 6}, {24, 26}, {gold, darkGold}), 1.75);
}

void DrawFolder(Canvas& c) {
  Inked(c, Path::Polygon({{3, 27}, {3, 7}, {5, 5}, {12, 5}, {15, 9}, {27, 9}, {27, 27}}), darkGold);
  c.Fill(Path::Polygon({{7, 11}, {24, 11}, {24, 20}, {7, 20}}), white);
  Inked(c, Path::Polygon({{3, 27}, {7, 14}, {30, 14}, {27, 27}}),
        Paint::Vertical(14, 27, {Rgb(0xFFEA9A), Rgb(0xF2B02E)}));
}

void DrawCalendar(Canvas& c) {
  Inked(c, Path::RoundRect(4, 6, 24, 23, 2), Paint::Vertical(12, 29, {white, Rgb(0xDDE5F2)}));
  c.Fill(Path::Rect(5, 7, 22, 6), Paint::Vertical(7, 13, {Rgb(0xFF7A5C), Rgb(0xC82A20)}));
  c.Stroke(Path::Polyline({{4, 13}, {28, 13}}), 1.5, ink);
  for (const double x : {10.0, 22.0}) {
    c.Stroke(Path::Polyline({{x, 4}, {x, 9}}), 4, ink);
    c.Stroke(Path::Polyline({{x, 4}, {x, 9}}), 1.5, steel);
  }
  c.Stroke(CentredLetters("24", 16, 16.5, 1.5), 2.25, ink);
}

void DrawCalculator(Canvas& c) {
  Inked(c, Path::RoundRect(6, 3, 20, 26, 3), Paint::Vertical(3, 29, {Rgb(0xB8C3D6), Rgb(0x6C7A96)}));
  Inked(c, Path::Rect(9, 6, 14, 5), Rgb(0xCDEBB0), 1.5);
  for (int row = 0; row < 3; ++row)
    for (int column = 0; column < 3; ++column) {
      const Colour key = column == 2 ? Rgb(0xFF9A3C) : white;
      Inked(c, Path::Rect(9 + column * 5, 14 + row * 4.5, 3.5, 2.75), key, 1);
    }
}

void DrawHangUp(Canvas& c) {
  const Path handset = HandsetShape().Moved(0, 3);
  Backed(c, handset, Paint::Vertical(9, 24, {Rgb(0xFF8A70), Rgb(0xC01818)}), 1.75);
}

void DrawSim(Canvas& c) {
  Inked(c, Path::Polygon({{7, 3}, {20, 3}, {27, 10}, {27, 29}, {5, 29}, {5, 5}}),
        Paint::Linear({5, 3}, {27, 29}, {Rgb(0xF4F8FF), Rgb(0x9DB9E8)}));
  Inked(c, Path::RoundRect(9, 13, 14, 12, 2), Paint::Vertical(13, 25, {gold, darkGold}), 1.5);
  c.Stroke(Path::Polyline({{9, 17}, {13, 17}, {13, 21}, {9, 21}}), 1, ink);
  c.Stroke(Path::Polyline({{23, 17}, {19, 17}, {19, 21}, {23, 21}}), 1, ink);
  c.Stroke(Path::Polyline({{16, 13}, {16, 25}}), 1, ink);
}

void DrawGear(Canvas& c) {
  Path gear = Path::Circle(16, 16, 9.5);
  const Path tooth = Path::Polygon({{13, 9}, {14, 2.5}, {18, 2.5}, {19, 9}});
  for (int angle = 0; angle < 360; angle += 45) gear.Plus(tooth.Turned(16, 16, angle));
  Backed(c, gear, Paint::Linear({6, 4}, {26, 28}, {white, Rgb(0x7F8FAE)}), 1.75);
  Inked(c, Path::Circle(16, 16, 4), Rgb(0x3E4E78), 1.75);
}

void DrawMagnifier(Canvas& c) {
  const Path handle = Path::Polyline({{19.5, 19.5}, {27.5, 27.5}});
  c.Stroke(handle, 6, ink);
  c.Stroke(handle, 2.5, Rgb(0xD08A40));
  Inked(c, Path::Circle(13, 13, 9), Paint::Radial(10, 9, 15, {white, Rgb(0x9FD2FF)}), 3);
  c.Stroke(Path::Arc(13, 13, 5.5, 285, 350), 1.75, white);
}

constexpr Drawing menuIcons[] = {DrawEnvelope, DrawOpenEnvelope, DrawPhonebook,  DrawAlarmClock, DrawCamera,
                                 DrawBell,     DrawMutedBell,    DrawLock,       DrawOpenLock,   DrawKey,
                                 DrawFolder,   DrawCalendar,     DrawCalculator, DrawHandset,    DrawHangUp,
                                 DrawSim,      DrawGear,         DrawMagnifier};

}  // namespace

void DrawEnvelope(Canvas& c) {
  Inked(c, Path::Rect(3, 7, 26, 18), Paint::Vertical(7, 25, {white, paperShade}));
  c.Stroke(Path::Polyline({{4, 24}, {12, 16}}), 1.5, Rgb(0x8FA2C8));
  c.Stroke(Path::Polyline({{28, 24}, {20, 16}}), 1.5, Rgb(0x8FA2C8));
  c.Fill(Path::Polygon({{4, 8}, {16, 18}, {28, 8}}), white);
  c.Stroke(Path::Polyline({{3, 7}, {16, 18}, {29, 7}}), 2, ink);
}

void DrawHandset(Canvas& c) {
  const Path handset = HandsetShape().Moved(0, -3).Turned(16, 16, 225).Moved(0, 0);
  Backed(c, handset, Paint::Vertical(4, 28, {Rgb(0xA8F07A), Rgb(0x1E9432)}), 1.75);
}

std::span<const Drawing> MenuIcons() { return menuIcons; }

}  // namespace tarvelo::art
