// Lettering and test pictures: what shows at a glance whether a depth is decoded rightly.

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "demo/lettering.h"
#include "demo/picture_art.h"
#include "demo/picture_encoder.h"

namespace tarvelo::art {
namespace {

constexpr std::string_view brand = "TARVELO";

// The pen unit, in eighths, that makes the brand fill `width`.
double BrandUnit(double width) {
  const int eighths = static_cast<int>(width) * 8 / static_cast<int>(LettersWidth(brand));
  return eighths / 8.0;
}

// Three waves of a transmitter above the point (x, y).
void DrawTransmitter(Canvas& c, double x, double y, double size, Colour colour) {
  c.Fill(Path::Circle(x, y, size / 6), colour);
  for (int i = 1; i <= 3; ++i) c.Stroke(Path::Arc(x, y, size * i / 3, 315, 405), size / 9, colour);
}

void DrawBrand(Canvas& c, double cx, double y, double unit, const Paint& paint) {
  const Path letters = CentredLetters(brand, cx, y, unit);
  c.Stroke(letters.Moved(0.75, 1), unit * 1.625, Rgb(0x06103C, 150));
  c.Stroke(letters, unit * 1.625, Rgb(0x0C1C5C));
  c.Stroke(letters, unit * 1.125, paint);
}

constexpr Colour bars[] = {Rgb(0xFFFFFF), Rgb(0xFFFF00), Rgb(0x00FFFF), Rgb(0x00FF00),
                           Rgb(0xFF00FF), Rgb(0xFF0000), Rgb(0x0000FF), Rgb(0x000000)};

}  // namespace

Canvas LogoBanner(int width, int height) {
  Canvas canvas(width, height);
  const Path plate = Path::RoundRect(0, 0, width, height, 5);
  canvas.Fill(plate, Paint::Vertical(0, height, {Rgb(0x8CC8FF), Rgb(0x2F6AE0), Rgb(0x122C8C)}));
  Canvas glow = canvas;
  const double middle = width / 2.0;
  glow.Fill(Path::Ellipse(middle, -height * 0.25, width * 0.75, height * 0.625), Rgb(0xFFFFFF, 70));
  const bool tall = height >= 40;
  if (tall) DrawTransmitter(glow, middle, height * 0.375, height * 0.25, Rgb(0xFFE89A));
  canvas.Fill(plate, glow);
  const double unit = BrandUnit(tall ? width - 16 : std::min(width - 16, (height - 10) * 6));
  const double top = tall ? height * 0.5625 : (height - 6 * unit) / 2;
  DrawBrand(canvas, middle, top, unit, Paint::Vertical(top, top + 6 * unit, {white, Rgb(0xFFD24A)}));
  canvas.Stroke(Path::RoundRect(0.5, 0.5, width - 1, height - 1, 4.5), 1, Rgb(0x0C1C5C));
  return canvas;
}

Canvas MonoBanner(int width, int height, Colour pen) {
  Canvas canvas(width, height);
  const double middle = width / 2.0;
  const double unit = BrandUnit(width - 14);
  const bool tall = height >= 40;
  canvas.Stroke(Path::RoundRect(0.5, 0.5, width - 1, height - 1, 4), 1, pen);
  if (tall) DrawTransmitter(canvas, middle, 27, 18, pen);
  const double top = tall ? 36 : (height - 6 * unit) / 2;
  canvas.Stroke(CentredLetters(brand, middle, top, unit), unit, pen);
  if (tall) canvas.Stroke(CentredLetters("FULLFLASH", middle, 53.5), 1, pen);
  return canvas;
}

Canvas TestCard(std::string_view name) {
  Canvas canvas(wallpaperWidth, wallpaperHeight);
  constexpr double barWidth = wallpaperWidth / 8.0;
  for (int i = 0; i < 8; ++i) canvas.Fill(Path::Rect(i * barWidth, 0, barWidth, 26), bars[i]);
  const Colour ramps[] = {Rgb(0xFF0000), Rgb(0x00FF00), Rgb(0x0000FF), white};
  for (int i = 0; i < 4; ++i)
    canvas.Fill(Path::Rect(0, 26 + i * 9, wallpaperWidth, 9),
                Paint::Linear({0, 0}, {wallpaperWidth, 0}, {black, ramps[i]}));
  canvas.Fill(Path::Rect(0, 62, wallpaperWidth, 18), Rgb(0x303848));
  canvas.Stroke(CentredLetters(name, wallpaperWidth / 2.0, 66, 1.625), 2, white);
  // The lower corners are cut off: transparent where the depth can show it.
  for (int y = 0; y < 8; ++y)
    for (int x = 0; x < 8 - y; ++x) {
      canvas.Put(x, wallpaperHeight - 1 - y, {});
      canvas.Put(wallpaperWidth - 1 - x, wallpaperHeight - 1 - y, {});
    }
  return canvas;
}

Canvas MonoTestCard() {
  Canvas canvas(wallpaperWidth, wallpaperHeight);
  canvas.Stroke(Path::Rect(0.5, 0.5, wallpaperWidth - 1, wallpaperHeight - 1), 1, black);
  for (int i = 0; i < 4; ++i) {  // checks and bars of 1 to 4 pixels
    const int size = i + 1;
    for (int y = 0; y < 16; ++y)
      for (int x = 0; x < 16; ++x) {
        if ((x / size + y / size) % 2 == 0) canvas.Put(4 + i * 24 + x, 4 + y, black);
        if (x / size % 2 == 0) canvas.Put(4 + i * 24 + x, 24 + y, black);
      }
  }
  for (int ring = 1; ring <= 5; ++ring) canvas.Stroke(Path::Circle(20, 60, ring * 3), 1, black);
  for (int ray = 0; ray < 360; ray += 15) canvas.Fill(Path::Pie(52, 60, 15, ray, ray + 7), black);
  canvas.Stroke(Letters("1 BIT", 69.5, 47.5), 1, black);
  for (int level = 1; level < 5; ++level)
    canvas.Fill(Path::Rect(74 + level * 5, 76 - level * 4, 4, level * 4), black);
  return canvas;
}

Canvas ColourWheel(int size) {
  Canvas canvas = Canvas::Icon(size);
  for (int angle = 0; angle < 360; angle += 5) {
    const int overlap = angle < 355 ? 2 : 0;  // hides the seams
    canvas.Fill(Path::Pie(16, 16, 15.5, angle, angle + 5 + overlap), Hue(angle));
  }
  canvas.Fill(Path::Circle(16, 16, 15.75),
              Paint::Radial(16, 16, 15.5, {white, Rgb(0xFFFFFF, 90), Rgb(0xFFFFFF, 0)}));
  return canvas;
}

Canvas ByteColourChart() {
  constexpr int cell = 5;
  constexpr int tile = 8;  // 2 x 2 tiles, one for each blue; green grows across, red down
  Canvas canvas(2 * tile * cell, 2 * tile * cell);
  for (int y = 0; y < canvas.Height(); ++y)
    for (int x = 0; x < canvas.Width(); ++x) {
      const int column = x / cell;
      const int row = y / cell;
      const int blue = row / tile * 2 + column / tile;
      canvas.Put(x, y, ByteColour(row % tile << 5 | column % tile << 2 | blue));
    }
  return canvas;
}

Canvas TwelveColourChart() {
  constexpr int side = 64;  // 4 x 4 tiles, one for each blue; red grows across, green down
  Canvas canvas(side, side);
  for (int y = 0; y < side; ++y)
    for (int x = 0; x < side; ++x) {
      const int blue = y / 16 * 4 + x / 16;
      const auto level = [](int value) { return static_cast<std::uint8_t>(value * 17); };
      canvas.Put(x, y, {level(x % 16), level(y % 16), level(blue), 255});
    }
  return canvas;
}

Canvas HueField() {
  Canvas canvas(wallpaperWidth, wallpaperHeight);
  for (int y = 0; y < wallpaperHeight; ++y)
    for (int x = 0; x < wallpaperWidth; ++x) {
      const Colour hue = Hue(x * 360 / wallpaperWidth);
      const int t = y * 512 / (wallpaperHeight - 1);
      canvas.Put(x, y, t < 256 ? Mix(white, hue, t) : Mix(hue, black, t - 256));
    }
  return canvas;
}

Canvas GradientStrip(Colour from, Colour to) {
  Canvas canvas(wallpaperWidth, 12);
  canvas.Fill(Path::Rect(0, 0, wallpaperWidth, 12), Paint::Linear({0, 0}, {wallpaperWidth, 0}, {from, to}));
  canvas.Fill(Path::Rect(0, 0, wallpaperWidth, 6),
              Paint::Vertical(0, 6, {Rgb(0xFFFFFF, 110), Rgb(0xFFFFFF, 10)}));
  return canvas;
}

Canvas DottedLine(int width, int height) {
  Canvas canvas(width, height);
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x)
      if ((x + y) % 4 < 2) canvas.Put(x, y, black);
  return canvas;
}

Canvas TableMark() {
  Canvas canvas(4, 4);
  for (int i = 0; i < 4; ++i) {
    canvas.Put(i, i, black);
    canvas.Put(3 - i, i, black);
  }
  return canvas;
}

}  // namespace tarvelo::art
