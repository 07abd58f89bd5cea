#include "demo/picture_encoder.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <stdexcept>
#include <utility>
#include <vector>

namespace tarvelo::art {
namespace {

using Values = std::vector<std::uint16_t>;  // pixel values, row by row
using Levels = std::span<const std::uint8_t>;

// The 8-bit display's own uneven levels.
constexpr std::array<std::uint8_t, 8> redLevels{81, 102, 125, 146, 169, 190, 213, 235};
constexpr std::array<std::uint8_t, 8> greenLevels{25, 52, 82, 111, 142, 172, 204, 235};
constexpr std::array<std::uint8_t, 4> blueLevels{95, 115, 154, 208};
// Brightnesses of the three 2-bit colours, and the values that stand for them.
constexpr std::array<std::uint8_t, 3> twoBitLevels{0, 72, 255};
constexpr std::array<std::uint16_t, 3> twoBitValues{0, 2, 1};
constexpr std::array<std::uint8_t, 2> monoLevels{0, 255};

constexpr std::uint16_t twoBitClear = 3;
constexpr std::uint16_t byteClear = 0xC0;
constexpr std::uint16_t sixteenClear = 0xE000;
constexpr std::uint16_t sixteenUnused = 0x20;  // bit 5 does not count

constexpr std::array<std::uint8_t, 16> MakeTwelveLevels() {
  std::array<std::uint8_t, 16> levels{};
  for (std::size_t i = 0; i < 16; ++i) levels[i] = static_cast<std::uint8_t>(i * 17);
  return levels;
}

constexpr std::array<std::uint8_t, 32> MakeSixteenLevels() {
  std::array<std::uint8_t, 32> levels{};
  for (std::size_t i = 0; i < 32; ++i) levels[i] = static_cast<std::uint8_t>(i * 8 + i / 4);
  return levels;
}

constexpr auto twelveLevels = MakeTwelveLevels();
constexpr auto sixteenLevels = MakeSixteenLevels();

// Thresholds of ordered dithering, each of 0..63 once in an 8 x 8 field. The bits of the position
// are interleaved so that neighbours lie far apart.
int DitherThreshold(int x, int y) {
  int threshold = 0;
  for (int bit = 0; bit < 3; ++bit) {
    const int a = (x >> bit) & 1;
    const int b = (y >> bit) & 1;
    threshold = threshold << 2 | (a ^ b) << 1 | b;
  }
  return threshold;
}

// Chooses levels for one pixel: the nearest, or the one above or below by the dither pattern.
class LevelPicker {
 public:
  LevelPicker(int x, int y, Shading shading)
      : threshold_(shading == Shading::Flat ? 64 : DitherThreshold(x, y) * 2 + 1) {}

  [[nodiscard]] int Pick(Levels levels, int value) const {
    std::size_t upper = 0;
    while (upper < levels.size() && levels[upper] < value) ++upper;
    if (upper == 0) return 0;
    if (upper == levels.size()) return static_cast<int>(upper) - 1;
    const int below = value - levels[upper - 1];
    const int gap = levels[upper] - levels[upper - 1];
    return static_cast<int>(below * 128 > gap * threshold_ ? upper : upper - 1);
  }

 private:
  int threshold_;  // in 1/128 of the gap between two levels
};

bool Clear(Colour colour) { return colour.a < 128; }

std::uint16_t MonoValue(Colour colour, const LevelPicker& picker) {
  return !Clear(colour) && picker.Pick(monoLevels, Luma(colour)) == 0 ? 1 : 0;
}

std::uint16_t TwoBitValue(Colour colour, const LevelPicker& picker) {
  if (Clear(colour)) return twoBitClear;
  return twoBitValues[static_cast<std::size_t>(picker.Pick(twoBitLevels, Luma(colour)))];
}

int Distance(Colour a, Colour b) {
  const int r = a.r - b.r;
  const int g = a.g - b.g;
  const int blue = a.b - b.b;
  return r * r + g * g + blue * blue;
}

// The best substitute for the table's colour at the transparent value.
std::uint16_t NextBestByte(Colour colour) {
  std::uint16_t best = 0;
  for (std::uint16_t value = 1; value < 256; ++value) {
    if (value == byteClear) continue;
    if (Distance(colour, ByteColour(value)) < Distance(colour, ByteColour(best))) best = value;
  }
  return best;
}

std::uint16_t ByteValue(Colour colour, const LevelPicker& picker) {
  if (Clear(colour)) return byteClear;
  const int value = picker.Pick(redLevels, colour.r) << 5 | picker.Pick(greenLevels, colour.g) << 2 |
                    picker.Pick(blueLevels, colour.b);
  return value == byteClear ? NextBestByte(colour) : static_cast<std::uint16_t>(value);
}

std::uint16_t TwelveValue(Colour colour, const LevelPicker& picker) {
  if (Clear(colour)) return 0xFFF;
  return static_cast<std::uint16_t>(picker.Pick(twelveLevels, colour.r) << 8 |
                                    picker.Pick(twelveLevels, colour.g) << 4 |
                                    picker.Pick(twelveLevels, colour.b));
}

std::uint16_t SixteenValue(Colour colour, const LevelPicker& picker) {
  if (Clear(colour)) return sixteenClear;
  const auto value = static_cast<std::uint16_t>(picker.Pick(sixteenLevels, colour.r) << 11 |
                                                picker.Pick(sixteenLevels, colour.g) << 6 |
                                                picker.Pick(sixteenLevels, colour.b));
  // The unused bit tells this red from the transparent value without changing it.
  return value == sixteenClear ? value | sixteenUnused : value;
}

std::uint16_t PixelValue(Colour colour, Storage storage, const LevelPicker& picker) {
  switch (storage) {
    case Storage::Mono:
    case Storage::MonoPacked: return MonoValue(colour, picker);
    case Storage::TwoBit: return TwoBitValue(colour, picker);
    case Storage::Byte:
    case Storage::BytePacked: return ByteValue(colour, picker);
    case Storage::Twelve:
    case Storage::TwelvePacked: return TwelveValue(colour, picker);
    case Storage::Sixteen:
    case Storage::SixteenPacked: return SixteenValue(colour, picker);
  }
  throw std::invalid_argument("unknown picture storage");
}

Values PixelValues(const Canvas& canvas, Storage storage, Shading shading) {
  Values values;
  values.reserve(static_cast<std::size_t>(canvas.Width() * canvas.Height()));
  for (int y = 0; y < canvas.Height(); ++y)
    for (int x = 0; x < canvas.Width(); ++x)
      values.push_back(PixelValue(canvas.At(x, y), storage, LevelPicker(x, y, shading)));
  return values;
}

void AppendColour(std::vector<std::uint8_t>& data, std::uint16_t value, int bytes) {
  data.push_back(static_cast<std::uint8_t>(value));
  if (bytes == 2) data.push_back(static_cast<std::uint8_t>(value >> 8));
}

std::vector<std::uint8_t> PlainColours(const Values& values, int bytes) {
  std::vector<std::uint8_t> data;
  for (const std::uint16_t value : values) AppendColour(data, value, bytes);
  return data;
}

// Pixels of 1 or 2 bits, the leftmost in the highest bits; the rest of a row's last byte is 0.
std::vector<std::uint8_t> PlainBits(const Values& values, int width, int bits) {
  std::vector<std::uint8_t> data;
  for (std::size_t row = 0; row < values.size(); row += static_cast<std::size_t>(width)) {
    for (int x = 0; x < width; ++x) {
      if (x * bits % 8 == 0) data.push_back(0);
      const int value = values[row + static_cast<std::size_t>(x)];
      data.back() |= static_cast<std::uint8_t>(value << (8 - bits - x * bits % 8));
    }
  }
  return data;
}

// How many equal values stand at `start`, at most `limit`.
std::size_t RunLength(const Values& values, std::size_t start, std::size_t limit) {
  const std::size_t end = std::min(values.size(), start + limit);
  std::size_t i = start + 1;
  while (i < end && values[i] == values[start]) ++i;
  return i - start;
}

// 0x80 | ink << 6 | count draws a run of up to 63 pixels, a byte below 0x80 seven single ones,
// highest bit first. Runs and groups go on over row ends.
std::vector<std::uint8_t> PackedBits(const Values& values) {
  constexpr std::size_t groupSize = 7;
  std::vector<std::uint8_t> data;
  for (std::size_t i = 0; i < values.size();) {
    const std::size_t run = RunLength(values, i, 63);
    if (run >= groupSize || i + run == values.size()) {
      data.push_back(static_cast<std::uint8_t>(0x80u | values[i] << 6 | run));
      i += run;
      continue;
    }
    int group = 0;
    for (std::size_t bit = 0; bit < groupSize; ++bit, ++i)
      group = group << 1 | (i < values.size() ? values[i] : 0);
    data.push_back(static_cast<std::uint8_t>(group));
  }
  return data;
}

// A count of 1..127 and one colour draws a run; 256 - count introduces 1..128 single colours.
// A shorter run than three inside a block of singles would cost more than it saves.
std::vector<std::uint8_t> PackedColours(const Values& values, int bytes) {
  constexpr std::size_t shortestRun = 3;
  constexpr std::size_t longestBlock = 128;
  std::vector<std::uint8_t> data;
  for (std::size_t i = 0; i < values.size();) {
    const std::size_t run = RunLength(values, i, 127);
    if (run >= shortestRun) {
      data.push_back(static_cast<std::uint8_t>(run));
      AppendColour(data, values[i], bytes);
      i += run;
      continue;
    }
    const std::size_t start = i;
    while (i < values.size() && i - start < longestBlock && RunLength(values, i, shortestRun) < shortestRun)
      ++i;
    data.push_back(static_cast<std::uint8_t>(256 - (i - start)));
    for (std::size_t k = start; k < i; ++k) AppendColour(data, values[k], bytes);
  }
  return data;
}

struct Form {
  std::uint8_t type;
  std::vector<std::uint8_t> data;
};

Form Store(const Values& values, int width, Storage storage) {
  constexpr std::uint8_t packed = 0x80;
  switch (storage) {
    case Storage::Mono: return {1, PlainBits(values, width, 1)};
    case Storage::MonoPacked: return {packed | 1, PackedBits(values)};
    case Storage::TwoBit: return {3, PlainBits(values, width, 2)};
    case Storage::Byte: return {5, PlainColours(values, 1)};
    case Storage::BytePacked: return {packed | 5, PackedColours(values, 1)};
    case Storage::Twelve: return {7, PlainColours(values, 2)};
    case Storage::TwelvePacked: return {packed | 7, PackedColours(values, 2)};
    case Storage::Sixteen: return {8, PlainColours(values, 2)};
    case Storage::SixteenPacked: return {packed | 8, PackedColours(values, 2)};
  }
  throw std::invalid_argument("unknown picture storage");
}

bool SideFits(int side) { return side >= 1 && side <= 254; }

}  // namespace

Colour ByteColour(int value) {
  if (value == byteClear) return {};
  return {redLevels[static_cast<std::size_t>(value >> 5 & 7)],
          greenLevels[static_cast<std::size_t>(value >> 2 & 7)],
          blueLevels[static_cast<std::size_t>(value & 3)], 255};
}

EncodedPicture EncodePicture(const Canvas& canvas, Storage storage, Shading shading) {
  if (!SideFits(canvas.Width()) || !SideFits(canvas.Height()))
    throw std::invalid_argument("a picture's sides are 1 to 254 pixels long");
  const Values values = PixelValues(canvas, storage, shading);
  Form form = Store(values, canvas.Width(), storage);
  return {static_cast<std::uint8_t>(canvas.Width()), static_cast<std::uint8_t>(canvas.Height()), form.type,
          std::move(form.data)};
}

}  // namespace tarvelo::art
