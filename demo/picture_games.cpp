// Playing cards, dice and chess.

#include <iterator>
#include <string_view>

#include "demo/lettering.h"
#include "demo/picture_art.h"

namespace tarvelo::art {
namespace {

constexpr int cardWidth = 28;
constexpr int cardHeight = 40;

struct Card {
  std::string_view rank;
  Path (*suit)();
  Colour colour;
  bool court;
};

constexpr Colour cardRed = Rgb(0xD81E28);
constexpr Colour cardBlack = Rgb(0x14182C);
constexpr Card cards[] = {{"A", SpadeShape, cardBlack, false}, {"K", HeartShape, cardRed, true},
                          {"Q", DiamondShape, cardRed, true},  {"J", ClubShape, cardBlack, true},
                          {"10", HeartShape, cardRed, false},  {"9", SpadeShape, cardBlack, false},
                          {"7", DiamondShape, cardRed, false}, {"A", ClubShape, cardBlack, false}};
static_assert(std::size(cards) == cardKinds - 1);

// A shape of the icon square in a square of `size` units at (x, y).
Path Fitted(const Path& path, double x, double y, double size) {
  return path.Scaled(0, 0, size / Canvas::iconUnits, size / Canvas::iconUnits).Moved(x, y);
}

void DrawCardBack(Canvas& c) {
  const Path field = Path::RoundRect(3, 3, cardWidth - 6, cardHeight - 6, 1.5);
  c.Fill(field, Paint::Vertical(3, 37, {Rgb(0x4A7CE8), Rgb(0x1C3C9C)}));
  Canvas lattice(cardWidth, cardHeight);
  for (int i = -40; i < 40; i += 6) {
    const double y = i;
    lattice.Stroke(Path::Polyline({{0, y}, {28, y + 28}}), 1, Rgb(0xBCD4FF));
    lattice.Stroke(Path::Polyline({{0, y + 32}, {28, y + 4}}), 1, Rgb(0xBCD4FF));
  }
  c.Fill(field, lattice);
  Inked(c, Path::Ellipse(14, 20, 6, 8), white, 1);
  c.Stroke(CentredLetters("T", 14, 16.5, 1.25), 2, Rgb(0x1C3C9C));
}

void DrawCardFace(Canvas& c, const Card& card) {
  const double unit = card.rank.size() > 1 ? 0.75 : 1;
  Path corner = Letters(card.rank, 3.5, 3.5, unit).Stroked(1.25);
  corner.Plus(Fitted(card.suit(), 2.5, 11, 6.5));
  c.Fill(corner, card.colour);
  c.Fill(corner.Turned(cardWidth / 2, cardHeight / 2, 180), card.colour);
  if (card.court) {
    Backed(c, Fitted(CrownShape(), 8.5, 8.5, 11.5), Paint::Vertical(10, 20, {Rgb(0xFFF0A0), Rgb(0xE09A1C)}),
           0.75);
    c.Fill(Fitted(card.suit(), 8.25, 20, 11.5), card.colour);
  } else {
    c.Fill(Fitted(card.suit(), 6.5, 12.5, 15), card.colour);
  }
}

Path PawnShape() {
  Path body;
  body.Move(13, 13).Line(19, 13).Curve(19, 19, 23, 22, 23.5, 26).Line(8.5, 26);
  body.Curve(9, 22, 13, 19, 13, 13).Close();
  return body.Plus(Path::Circle(16, 9, 4.75)).Plus(Path::RoundRect(11, 13, 10, 2.5, 1));
}

Path RookShape() {
  return Path::Polygon({{7, 5},
                        {11, 5},
                        {11, 8},
                        {14, 8},
                        {14, 5},
                        {18, 5},
                        {18, 8},
                        {21, 8},
                        {21, 5},
                        {25, 5},
                        {25, 11},
                        {22, 14},
                        {23, 26},
                        {9, 26},
                        {10, 14},
                        {7, 11}});
}

Path KnightShape() {
  Path knight;
  knight.Move(9.5, 26).Curve(9.5, 20, 15, 18, 15, 14).Line(10, 17.5);
  knight.Curve(8, 18.5, 5, 17, 6, 14.5).Line(10, 8).Line(11, 3.5).Line(15, 6.5);
  return knight.Curve(23, 7, 26, 15, 24, 26).Close().Minus(Path::Circle(13, 10.5, 1.25));
}

Path BishopShape() {
  Path bishop;
  bishop.Move(16, 6).Curve(23.5, 11, 22.5, 18, 19, 20).Line(21, 26).Line(11, 26).Line(13, 20);
  bishop.Curve(9.5, 18, 8.5, 11, 16, 6).Close().Plus(Path::Circle(16, 5, 2));
  bishop.Minus(Path::Polygon({{15.25, 11}, {16.75, 11}, {16.75, 17}, {15.25, 17}}));
  return bishop.Plus(Path::RoundRect(11, 19.5, 10, 2.5, 1));
}

Path QueenShape() {
  Path queen = Path::Polygon(
      {{5, 9}, {10, 15.5}, {11, 6}, {16, 14.5}, {21, 6}, {22, 15.5}, {27, 9}, {24, 26}, {8, 26}});
  for (const Spot spot : {Spot{5, 8.5}, Spot{11, 5.5}, Spot{21, 5.5}, Spot{27, 8.5}})
    queen.Plus(Path::Circle(spot.x, spot.y, 1.75));
  return queen;
}

Path KingShape() {
  Path king;
  king.Move(9, 26).Curve(2, 17, 5, 11, 10.5, 11).Curve(13.5, 11, 15.5, 13, 16, 15);
  king.Curve(16.5, 13, 18.5, 11, 21.5, 11).Curve(27, 11, 30, 17, 23, 26).Close();
  king.Plus(Path::Polygon({{16, 15}, {13, 9}, {16, 7}, {19, 9}}));
  return king.Plus(Path::Rect(14.75, 1.5, 2.5, 7)).Plus(Path::Rect(12.5, 3.25, 7, 2.5));
}

using Shape = Path (*)();
constexpr Shape chessShapes[] = {PawnShape, RookShape, KnightShape, BishopShape, QueenShape, KingShape};
static_assert(std::size(chessShapes) == chessKinds);

void DrawChessPiece(Canvas& c, int kind, bool dark) {
  Path piece = chessShapes[kind]();
  piece.Plus(Path::RoundRect(6, 25, 20, 4, 1.5));
  Backed(c, piece, dark ? Rgb(0x3C4F9A) : white, 1.75);
}

// Black's pieces are small letters, White's capital ones.
constexpr std::string_view position[] = {"r..qr.k.", "pp..bppp", "..n.bn..", "..pp....",
                                         "....P...", "..PB.N..", "PP...PPP", "RNBQR.K."};
constexpr std::string_view whiteLetters = "PRNBQK";
constexpr std::string_view blackLetters = "prnbqk";

// Pieces on the board are ten pixels high: shapes without an edge, so that they stay readable.
void DrawSmallPiece(Canvas& c, char letter) {
  const bool dark = blackLetters.find(letter) != std::string_view::npos;
  const std::size_t kind = (dark ? blackLetters : whiteLetters).find(letter);
  if (kind == std::string_view::npos) return;
  Path piece = chessShapes[kind]();
  piece.Plus(Path::RoundRect(6, 25, 20, 4, 1.5));
  Backed(c, piece, dark ? Rgb(0x1C1420) : white, dark ? 0.5 : 2);
}

}  // namespace

Canvas PlayingCard(int kind) {
  Canvas canvas(cardWidth, cardHeight);
  const Path edge = Path::RoundRect(0.5, 0.5, cardWidth - 1, cardHeight - 1, 3);
  Inked(canvas, edge, Paint::Linear({0, 0}, {28, 40}, {white, Rgb(0xE6EAF4)}), 1);
  if (kind == cardKinds - 1)
    DrawCardBack(canvas);
  else
    DrawCardFace(canvas, cards[kind]);
  return canvas;
}

Canvas Die(int pips) {
  Canvas canvas = Canvas::Icon(24);
  Inked(canvas, Path::RoundRect(3, 3, 26, 26, 5),
        Paint::Radial(10, 8, 30, {white, Rgb(0xF4F0E4), Rgb(0xB8A888)}));
  const auto pip = [&](double x, double y) {
    canvas.Fill(Path::Circle(x, y, 2.75), pips == 1 ? cardRed : ink);
  };
  if (pips % 2 == 1) pip(16, 16);
  if (pips >= 2) {
    pip(9.5, 9.5);
    pip(22.5, 22.5);
  }
  if (pips >= 4) {
    pip(22.5, 9.5);
    pip(9.5, 22.5);
  }
  if (pips == 6) {
    pip(9.5, 16);
    pip(22.5, 16);
  }
  return canvas;
}

Canvas ChessPiece(int kind, bool dark) {
  Canvas canvas = Canvas::Icon(24);
  DrawChessPiece(canvas, kind, dark);
  return canvas;
}

Canvas ChessBoard() {
  constexpr int square = 12;
  Canvas canvas(8 * square, 8 * square);
  for (int row = 0; row < 8; ++row)
    for (int column = 0; column < 8; ++column) {
      canvas.Place(column * square, row * square);
      const bool dark = (row + column) % 2 == 1;
      canvas.Fill(Path::Rect(0, 0, square, square),
                  Paint::Linear({0, 0}, {square, square},
                                dark ? std::vector{Rgb(0xB8783C), Rgb(0x96562A)}
                                     : std::vector{Rgb(0xFCE8C0), Rgb(0xECCF98)}));
      canvas.Place(column * square, row * square, square, Canvas::iconUnits);
      DrawSmallPiece(canvas, position[row][static_cast<std::size_t>(column)]);
    }
  return canvas;
}

}  // namespace tarvelo::art
