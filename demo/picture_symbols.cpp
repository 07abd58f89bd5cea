// Signs: hearts, notes, marks, card suits, faces.

#include <string_view>

#include "demo/lettering.h"
#include "demo/picture_art.h"

namespace tarvelo::art {
namespace {

// The foot of the spade and the club.
Path Foot() {
  Path foot;
  foot.Move(15, 18).Curve(15, 24, 13, 27, 10, 29).Line(22, 29).Curve(19, 27, 17, 24, 17, 18).Close();
  return foot;
}

void DrawHeart(Canvas& c) {
  Inked(c, HeartShape(), Paint::Radial(11, 10, 20, {Rgb(0xFFA0A0), Rgb(0xF03040), Rgb(0xA00820)}));
  c.Fill(Path::Ellipse(9.5, 9, 3, 2).Turned(9.5, 9, 320), Rgb(0xFFE4E4));
}

void DrawStar(Canvas& c) {
  Inked(c, Path::Star(16, 17, 14, 6, 5), Paint::Linear({8, 6}, {24, 28}, {Rgb(0xFFF8B8), gold, darkGold}));
}

void DrawTick(Canvas& c) {
  const Path tick = Path::Polyline({{7, 17}, {13, 24}, {26, 8}});
  Backed(c, tick.Stroked(5), Paint::Vertical(6, 26, {Rgb(0xA8F07A), Rgb(0x1E9432)}));
}

void DrawCross(Canvas& c) {
  Path cross = Path::Polyline({{8, 8}, {24, 24}}).Stroked(5);
  cross.Plus(Path::Polyline({{24, 8}, {8, 24}}).Stroked(5));
  Backed(c, cross, Paint::Vertical(6, 26, {Rgb(0xFF8A70), Rgb(0xC01818)}));
}

void DrawWarning(Canvas& c) {
  Path plate;
  plate.Move(14, 5).Curve(15, 3, 17, 3, 18, 5).Line(29, 25).Curve(30, 27, 29, 28, 27, 28);
  plate.Line(5, 28).Curve(3, 28, 2, 27, 3, 25).Close();
  Inked(c, plate, Paint::Vertical(4, 28, {Rgb(0xFFF27A), Rgb(0xF5B400)}));
  c.Fill(Path::Polygon({{14, 11}, {18, 11}, {17, 20}, {15, 20}}), ink);
  c.Fill(Path::Circle(16, 24, 2), ink);
}

void DrawBadge(Canvas& c, Colour light, Colour dark) {
  Inked(c, Path::Circle(16, 16, 13), Paint::Radial(12, 10, 20, {light, dark}));
}

void DrawInformation(Canvas& c) {
  DrawBadge(c, Rgb(0x9CC8FF), Rgb(0x1F4FB8));
  c.Fill(Path::Circle(16, 9, 2.25), white);
  c.Fill(Path::Polygon({{13, 13},
                        {18, 13},
                        {18, 22},
                        {20, 22},
                        {20, 24.5},
                        {12.5, 24.5},
                        {12.5, 22},
                        {14.5, 22},
                        {14.5, 15.5},
                        {13, 15.5}}),
         white);
}

void DrawQuestion(Canvas& c) {
  DrawBadge(c, Rgb(0xC8B0FF), Rgb(0x5A2AA8));
  c.Stroke(CentredLetters("?", 16, 7.5, 2.75), 3.25, white);
}

void DrawNoEntry(Canvas& c) {
  DrawBadge(c, Rgb(0xFF9A86), Rgb(0xC01818));
  c.Fill(Path::RoundRect(7, 13.5, 18, 5, 1), white);
}

void DrawFlower(Canvas& c) {
  Path stem;
  stem.Move(16, 14).Curve(15, 20, 17, 24, 16, 30);
  c.Stroke(stem, 3.5, ink);
  c.Stroke(stem, 1.5, Rgb(0x3E9A3A));
  Path leaf;
  leaf.Move(16, 27).Curve(18, 22, 23, 21, 26, 22).Curve(25, 26, 21, 28, 16, 27).Close();
  Inked(c, leaf, Rgb(0x6CC84A), 1.5);
  Path petals;
  for (int angle = 0; angle < 360; angle += 60)
    petals.Plus(Path::Ellipse(16, 6, 3.5, 4).Turned(16, 11, angle));
  Backed(c, petals, Paint::Radial(16, 11, 9, {Rgb(0xFFD0E0), Rgb(0xF0609A)}));
  Inked(c, Path::Circle(16, 11, 3), gold, 1.5);
}

void DrawYinYang(Canvas& c) {
  c.Fill(Path::Circle(16, 16, 13), white);
  Path half = Path::Pie(16, 16, 13, 0, 180);
  c.Fill(half, ink);
  c.Fill(Path::Circle(16, 9.5, 6.5), ink);
  c.Fill(Path::Circle(16, 22.5, 6.5), white);
  c.Fill(Path::Circle(16, 9.5, 2), white);
  c.Fill(Path::Circle(16, 22.5, 2), ink);
  c.Stroke(Path::Circle(16, 16, 13), 2, ink);
}

void DrawTarget(Canvas& c) {
  for (int ring = 0; ring < 4; ++ring)
    c.Fill(Path::Circle(16, 16, 13 - ring * 3.25), ring % 2 == 0 ? Rgb(0xE5402F) : white);
  c.Stroke(Path::Circle(16, 16, 13), 1.75, ink);
  c.Stroke(Path::Polyline({{16, 16}, {27, 5}}), 2, ink);
  Inked(c, Path::Polygon({{25, 7}, {26, 3}, {29, 1.5}, {29, 4}, {30.5, 4}, {29, 7}}), gold, 1);
}

// The yellow ball of every face.
void DrawHead(Canvas& c) {
  Inked(c, Path::Circle(16, 16, 13),
        Paint::Radial(12, 10, 22, {Rgb(0xFFFCC8), Rgb(0xFFE04A), Rgb(0xF09A10)}));
}

void DrawEyes(Canvas& c) {
  for (const double x : {11.5, 20.5}) c.Fill(Path::Ellipse(x, 12.5, 1.75, 2.75), ink);
}

void DrawHappy(Canvas& c) {
  DrawHead(c);
  DrawEyes(c);
  c.Stroke(Path::Arc(16, 15, 8, 110, 250), 2, ink);
}

void DrawLaughing(Canvas& c) {
  DrawHead(c);
  for (const double x : {11.0, 21.0})
    c.Stroke(Path::Polyline({{x - 2.5, 13.5}, {x, 11}, {x + 2.5, 13.5}}), 1.75, ink);
  Inked(c, Path::Pie(16, 17, 7.5, 90, 270), white, 1.75);
  c.Fill(Path::Ellipse(16, 22.5, 3.5, 1.75), Rgb(0xE0506A));
}

void DrawSad(Canvas& c) {
  DrawHead(c);
  DrawEyes(c);
  c.Stroke(Path::Arc(16, 28, 7.5, 310, 410), 2, ink);
  Inked(c, Path::Ellipse(24, 19, 1.75, 2.75), Rgb(0x7CC4FF), 1);
}

void DrawWinking(Canvas& c) {
  DrawHead(c);
  c.Fill(Path::Ellipse(11.5, 12.5, 1.75, 2.75), ink);
  c.Stroke(Path::Polyline({{18, 11}, {22.5, 13}, {18, 14.5}}), 1.75, ink);
  c.Stroke(Path::Arc(17, 15, 8, 120, 240), 2, ink);
}

void DrawCool(Canvas& c) {
  DrawHead(c);
  c.Fill(Path::RoundRect(6, 10, 9, 6.5, 3), ink);
  c.Fill(Path::RoundRect(17, 10, 9, 6.5, 3), ink);
  c.Stroke(Path::Polyline({{4, 11}, {28, 11}}), 1.75, ink);
  c.Stroke(Path::Polyline({{8, 14}, {10.5, 11.5}}), 1, white);
  c.Stroke(Path::Polyline({{19, 14}, {21.5, 11.5}}), 1, white);
  c.Stroke(Path::Arc(16, 15, 8, 125, 235), 2, ink);
}

void DrawSurprised(Canvas& c) {
  DrawHead(c);
  DrawEyes(c);
  for (const double x : {11.5, 20.5}) c.Stroke(Path::Arc(x, 10, 3.5, 320, 400), 1.5, ink);
  Inked(c, Path::Ellipse(16, 22, 2.75, 3.5), Rgb(0xB03040), 1.5);
}

constexpr Drawing symbolIcons[] = {DrawHeart,   DrawNote,    DrawStar,        DrawTick,
                                   DrawCross,   DrawWarning, DrawInformation, DrawQuestion,
                                   DrawNoEntry, DrawFlower,  DrawYinYang,     DrawTarget};
constexpr Drawing faces[] = {DrawHappy, DrawLaughing, DrawSad, DrawWinking, DrawCool, DrawSurprised};

}  // namespace

Path HeartShape() {
  Path heart;
  heart.Move(16, 28).Curve(8, 21.5, 3, 17, 3, 11).Curve(3, 7, 6, 4, 9.5, 4);
  heart.Curve(12.5, 4, 15, 6, 16, 9).Curve(17, 6, 19.5, 4, 22.5, 4);
  heart.Curve(26, 4, 29, 7, 29, 11).Curve(29, 17, 24, 21.5, 16, 28).Close();
  return heart;
}

Path DiamondShape() {
  Path diamond;
  diamond.Move(16, 3).Curve(18.5, 8, 22, 12.5, 26, 16).Curve(22, 19.5, 18.5, 24, 16, 29);
  diamond.Curve(13.5, 24, 10, 19.5, 6, 16).Curve(10, 12.5, 13.5, 8, 16, 3).Close();
  return diamond;
}

Path SpadeShape() {
  Path spade;
  spade.Move(16, 3).Curve(19, 9, 28, 13, 28, 19).Curve(28, 25, 20, 26, 16.5, 20);
  spade.Line(15.5, 20).Curve(12, 26, 4, 25, 4, 19).Curve(4, 13, 13, 9, 16, 3).Close();
  return spade.Plus(Foot());
}

Path ClubShape() {
  Path club = Path::Circle(16, 9, 5.75);
  club.Plus(Path::Circle(9.5, 18, 5.75)).Plus(Path::Circle(22.5, 18, 5.75));
  return club.Plus(Path::Circle(16, 15.5, 3)).Plus(Foot());
}

Path CrownShape() {
  Path crown = Path::Polygon({{6, 25}, {3.5, 10}, {10, 16}, {16, 6}, {22, 16}, {28.5, 10}, {26, 25}});
  crown.Plus(Path::Circle(3.5, 9.5, 1.75)).Plus(Path::Circle(16, 5.5, 2));
  return crown.Plus(Path::Circle(28.5, 9.5, 1.75));
}

void DrawNote(Canvas& c) {
  Path note = Path::Ellipse(8.5, 25, 4.5, 3.5).Turned(8.5, 25, 340);
  note.Plus(Path::Ellipse(22.5, 22, 4.5, 3.5).Turned(22.5, 22, 340));
  note.Plus(Path::Rect(10.5, 8, 2.5, 17)).Plus(Path::Rect(24.5, 5, 2.5, 17));
  note.Plus(Path::Polygon({{10.5, 7}, {27, 3}, {27, 9}, {10.5, 13}}));
  Backed(c, note, Paint::Linear({6, 4}, {26, 28}, {Rgb(0xC8A0FF), Rgb(0x5A20B0)}));
}

std::span<const Drawing> SymbolIcons() { return symbolIcons; }
std::span<const Drawing> Faces() { return faces; }

}  // namespace tarvelo::art
