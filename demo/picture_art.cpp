#include "demo/picture_art.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace tarvelo::art {
namespace {

// The brightness that `share` pixels do not reach.
int BrightnessAbove(const std::array<int, 256>& counts, int share) {
  int brightness = 0;
  for (int below = counts[0]; below < share && brightness < 255;)
    below += counts[static_cast<std::size_t>(++brightness)];
  return brightness;
}

}  // namespace

void Inked(Canvas& canvas, const Path& path, const Paint& paint, double width) {
  canvas.Fill(path, paint);
  canvas.Stroke(path, width, ink);
}

void Backed(Canvas& canvas, const Path& path, const Paint& paint, double width) {
  canvas.Stroke(path, 2 * width, ink);
  canvas.Fill(path, paint);
}

Canvas DrawIcon(Drawing drawing, int size) {
  Canvas canvas = Canvas::Icon(size);
  drawing(canvas);
  return canvas;
}

Canvas DrawScene(Drawing drawing) {
  Canvas canvas(wallpaperWidth, wallpaperHeight);
  drawing(canvas);
  return canvas;
}

Path Backdrop(double top, double bottom) { return Path::Rect(0, top, wallpaperWidth, bottom - top); }

Canvas GreyCopy(const Canvas& canvas) {
  std::array<int, 256> counts{};
  for (int y = 0; y < canvas.Height(); ++y)
    for (int x = 0; x < canvas.Width(); ++x) ++counts[static_cast<std::size_t>(Luma(canvas.At(x, y)))];
  const int pixels = canvas.Width() * canvas.Height();
  const int darkest = BrightnessAbove(counts, pixels / 8);
  const int brightest = std::max(darkest + 1, BrightnessAbove(counts, pixels * 7 / 8));
  Canvas grey(canvas.Width(), canvas.Height());
  for (int y = 0; y < canvas.Height(); ++y)
    for (int x = 0; x < canvas.Width(); ++x) {
      const int spread = (Luma(canvas.At(x, y)) - darkest) * 255 / (brightest - darkest);
      const auto level = static_cast<std::uint8_t>(std::clamp(spread, 0, 255));
      grey.Put(x, y, {level, level, level, canvas.At(x, y).a});
    }
  return grey;
}

}  // namespace tarvelo::art
