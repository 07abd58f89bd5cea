// The drawings of the demonstration artwork, before they are encoded.
//
// An icon is drawn on a square of Canvas::iconUnits units, so that it fits any size in pixels, and
// any place in a larger picture. A scene fills a wallpaper of wallpaperWidth x wallpaperHeight
// units.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "demo/canvas.h"
#include "demo/path.h"

namespace tarvelo::art {

using Drawing = void (*)(Canvas&);

inline constexpr int wallpaperWidth = 101;
inline constexpr int wallpaperHeight = 80;

// Colours that many drawings share.
inline constexpr Colour ink = Rgb(0x1B2345);
inline constexpr Colour white = Rgb(0xFFFFFF);
inline constexpr Colour black = Rgb(0x000000);
inline constexpr Colour gold = Rgb(0xFFD24A);
inline constexpr Colour darkGold = Rgb(0xD98E12);
inline constexpr Colour steel = Rgb(0xE6ECF4);
inline constexpr Colour darkSteel = Rgb(0x93A1B8);
inline constexpr Colour brightRed = Rgb(0xE5402F);

// Fills a path and draws its edge over it, half inside and half outside.
void Inked(Canvas& canvas, const Path& path, const Paint& paint, double width = 2);
// Draws the edge behind the filling: overlapping parts get one common edge, all of it outside.
void Backed(Canvas& canvas, const Path& path, const Paint& paint, double width = 1.5);

// An icon of `size` x `size` pixels; a wallpaper of the scene's own size.
[[nodiscard]] Canvas DrawIcon(Drawing drawing, int size);
[[nodiscard]] Canvas DrawScene(Drawing drawing);
// The part of a wallpaper between two heights, in its full width.
[[nodiscard]] Path Backdrop(double top = 0, double bottom = wallpaperHeight);
// In shades of grey, with an eighth of the pixels black and an eighth white: dithered in two or
// three colours a picture needs all the contrast that it can get.
[[nodiscard]] Canvas GreyCopy(const Canvas& canvas);

// Shapes on the icon square that other drawings use too.
[[nodiscard]] Path HeartShape();
[[nodiscard]] Path DiamondShape();
[[nodiscard]] Path SpadeShape();
[[nodiscard]] Path ClubShape();
[[nodiscard]] Path CrownShape();
[[nodiscard]] Path CloudShape();

// Icons.
void DrawEnvelope(Canvas& canvas);
void DrawHandset(Canvas& canvas);
void DrawNote(Canvas& canvas);
void DrawGlobe(Canvas& canvas);
[[nodiscard]] std::span<const Drawing> MenuIcons();
[[nodiscard]] std::span<const Drawing> ToolIcons();
[[nodiscard]] std::span<const Drawing> SymbolIcons();
[[nodiscard]] std::span<const Drawing> Faces();
[[nodiscard]] std::span<const Drawing> WeatherIcons();

// The status line's pictures, drawn pixel by pixel.
inline constexpr int batteryLevels = 5;
inline constexpr int signalLevels = 6;
[[nodiscard]] Canvas Battery(int level);     // 0 empty .. batteryLevels - 1 full
[[nodiscard]] Canvas SignalBars(int level);  // 0 none .. signalLevels - 1 full
[[nodiscard]] std::vector<Canvas> StatusMarks();
// A seven-segment digit 0..9, or the colon for 10.
[[nodiscard]] Canvas SegmentDigit(int digit);

// Animations, each frame numbered from 0 to its count - 1.
inline constexpr int frames = 8;
[[nodiscard]] Canvas Hourglass(int frame);
[[nodiscard]] Canvas BouncingBall(int frame);
[[nodiscard]] Canvas ClockFace(int frame);
[[nodiscard]] Canvas Spinner(int frame);
[[nodiscard]] Canvas TurningGlobe(int frame);
[[nodiscard]] Canvas FlyingEnvelope(int frame);
[[nodiscard]] Canvas MoonPhase(int frame);  // 0 new moon, 4 full moon

// Games.
inline constexpr int cardKinds = 9;   // the last one is the back
inline constexpr int chessKinds = 6;  // pawn, rook, knight, bishop, queen, king
[[nodiscard]] Canvas PlayingCard(int kind);
[[nodiscard]] Canvas Die(int pips);
[[nodiscard]] Canvas ChessPiece(int kind, bool dark);
[[nodiscard]] Canvas ChessBoard();

[[nodiscard]] std::vector<Canvas> Flags();

// Wallpapers.
[[nodiscard]] std::span<const Drawing> DayScenes();
[[nodiscard]] std::span<const Drawing> NightScenes();

// Lettering and test pictures.
[[nodiscard]] Canvas LogoBanner(int width, int height);
[[nodiscard]] Canvas MonoBanner(int width, int height, Colour pen);
[[nodiscard]] Canvas TestCard(std::string_view name);
[[nodiscard]] Canvas MonoTestCard();
[[nodiscard]] Canvas ColourWheel(int size);
[[nodiscard]] Canvas ByteColourChart();    // all colours of the 8-bit table
[[nodiscard]] Canvas TwelveColourChart();  // all 4096 colours of 12 bits
[[nodiscard]] Canvas HueField();           // hue across, brightness down
[[nodiscard]] Canvas GradientStrip(Colour from, Colour to);
[[nodiscard]] Canvas DottedLine(int width, int height);
[[nodiscard]] Canvas TableMark();  // 4 x 4, the first picture of a table

}  // namespace tarvelo::art
