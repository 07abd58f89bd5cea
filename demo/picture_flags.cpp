// Flags of stripes, crosses and discs, waving a little.

#include <iterator>

#include "demo/picture_art.h"

namespace tarvelo::art {
namespace {

constexpr int flagWidth = 30;
constexpr int flagHeight = 20;

constexpr Colour red = Rgb(0xD8202A);
constexpr Colour blue = Rgb(0x1F4FB0);
constexpr Colour yellow = Rgb(0xFFD21E);
constexpr Colour green = Rgb(0x1F9A48);
constexpr Colour orange = Rgb(0xFF8A1E);

struct Stripes {
  Colour colours[3];
  bool upright;
};

constexpr Stripes striped[] = {{{black, red, yellow}, false},  {{blue, white, red}, true},
                               {{green, white, red}, true},    {{red, white, red}, false},
                               {{white, blue, red}, false},    {{black, yellow, red}, true},
                               {{green, white, orange}, true}, {{red, white, green}, false}};

Canvas StripedFlag(const Stripes& stripes) {
  Canvas canvas(flagWidth, flagHeight);
  for (int i = 0; i < 3; ++i) {
    const Path stripe = stripes.upright ? Path::Rect(i * 10, 0, 10, flagHeight)
                                        : Path::Polygon({{0, i * flagHeight / 3.0},
                                                         {flagWidth, i * flagHeight / 3.0},
                                                         {flagWidth, flagHeight},
                                                         {0, flagHeight}});
    canvas.Fill(stripe, stripes.colours[i]);
  }
  return canvas;
}

Canvas Plain(Colour colour) {
  Canvas canvas(flagWidth, flagHeight);
  canvas.Fill(Path::Rect(0, 0, flagWidth, flagHeight), colour);
  return canvas;
}

Canvas HalvedFlag(Colour upper, Colour lower) {
  Canvas canvas = Plain(upper);
  canvas.Fill(Path::Rect(0, 10, flagWidth, 10), lower);
  return canvas;
}

Canvas NordicFlag(Colour field, Colour cross) {
  Canvas canvas = Plain(field);
  canvas.Fill(Path::Rect(8, 0, 4, flagHeight), cross);
  canvas.Fill(Path::Rect(0, 8, flagWidth, 4), cross);
  return canvas;
}

Canvas DiscFlag(Colour field, Colour disc) {
  Canvas canvas = Plain(field);
  canvas.Fill(Path::Circle(15, 10, 6), disc);
  return canvas;
}

Canvas WedgeFlag(Colour upper, Colour lower, Colour wedge) {
  Canvas canvas = HalvedFlag(upper, lower);
  canvas.Fill(Path::Polygon({{0, 0}, {14, 10}, {0, 20}}), wedge);
  return canvas;
}

// Folds of the cloth, as light and shade running from left to right, and a thin edge.
void Wave(Canvas& c) {
  for (int x = 0; x < flagWidth; ++x)
    for (int y = 0; y < flagHeight; ++y) {
      const int fold = TimesSin(56, x * 24 - y * 4);
      c.Blend(x, y, fold > 0 ? Rgb(0xFFFFFF, fold) : Rgb(0x000000, -fold));
    }
  c.Stroke(Path::Rect(0.5, 0.5, flagWidth - 1, flagHeight - 1), 1, Rgb(0x1B2345, 170));
}

}  // namespace

std::vector<Canvas> Flags() {
  std::vector<Canvas> flags;
  for (const Stripes& stripes : striped) flags.push_back(StripedFlag(stripes));
  flags.push_back(HalvedFlag(Rgb(0x2F78E0), yellow));
  flags.push_back(NordicFlag(blue, yellow));
  flags.push_back(DiscFlag(white, red));
  flags.push_back(WedgeFlag(white, red, blue));
  for (Canvas& flag : flags) Wave(flag);
  return flags;
}

}  // namespace tarvelo::art
