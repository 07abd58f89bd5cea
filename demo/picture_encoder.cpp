#include "demo/picture_encoder.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <map>
#include <span>
#include <stdexcept>
#include <string>
#include <unordered_map>

#include "core/byte_writer.h"
#include "core/notation.h"
#include "pictures/colours.h"

namespace tarvelo {
namespace {

using Values = std::vector<std::uint16_t>;  // pixel values, row by row
using ValueOfColour = std::unordered_map<Colour, std::uint16_t>;

constexpr std::array<Colour, 2> monoColours{0xFFFFFF, 0x000000};
constexpr std::array<Colour, 4> twoBitColours{0x000000, 0xFFFFFF, 0x0000C0, backgroundColour};

// The inverse of a depth's colour table: the lowest value of each colour.
ValueOfColour Inverted(std::span<const Colour> colours) {
  ValueOfColour values;
  for (std::size_t i = 0; i < colours.size(); ++i)
    values.try_emplace(colours[i], static_cast<std::uint16_t>(i));
  return values;
}

const ValueOfColour& ValuesOf(Storage depth) {
  static const std::map<Storage, ValueOfColour> depths{{Storage::Mono, Inverted(monoColours)},
                                                       {Storage::TwoBit, Inverted(twoBitColours)},
                                                       {Storage::Byte, Inverted(GetColors().bits8)},
                                                       {Storage::Twelve, Inverted(GetColors().bits12)},
                                                       {Storage::Sixteen, Inverted(GetColors().bits16)}};
  return depths.at(depth);
}

Values PixelValues(const Bitmap& bitmap, Storage depth) {
  const ValueOfColour& known = ValuesOf(depth);
  Values values;
  for (const Colour pixel : bitmap.pixels) {
    const auto value = known.find(pixel);
    if (value == known.end()) throw std::invalid_argument("a depth without the colour " + Hex(pixel));
    values.push_back(value->second);
  }
  return values;
}

void AppendColour(ByteBuffer& data, std::uint16_t value, int bytes) {
  if (bytes == 2)
    AppendWord(data, value);
  else
    data.push_back(static_cast<std::uint8_t>(value));
}

ByteBuffer PlainColours(const Values& values, int bytes) {
  ByteBuffer data;
  for (const std::uint16_t value : values) AppendColour(data, value, bytes);
  return data;
}

// Pixels of 1 or 2 bits, the leftmost in the highest bits. The unused bits of a row's last byte are 0.
ByteBuffer PlainBits(const Values& values, int width, int bits) {
  ByteBuffer data;
  for (std::size_t row = 0; row < values.size(); row += static_cast<std::size_t>(width)) {
    for (int x = 0; x < width; ++x) {
      if (x * bits % 8 == 0) data.push_back(0);
      const int value = values[row + static_cast<std::size_t>(x)];
      data.back() |= static_cast<std::uint8_t>(value << (8 - bits - x * bits % 8));
    }
  }
  return data;
}

// The number of equal values from `start` on, at most `limit`.
std::size_t RunLength(const Values& values, std::size_t start, std::size_t limit) {
  const std::size_t end = std::min(values.size(), start + limit);
  std::size_t i = start + 1;
  while (i < end && values[i] == values[start]) ++i;
  return i - start;
}

// 0x80 | ink << 6 | count draws a run of up to 63 pixels; a byte below 0x80 draws seven single ones, highest
// bit first. Runs and groups continue across row ends.
ByteBuffer PackedBits(const Values& values) {
  constexpr std::size_t groupSize = 7;
  ByteBuffer data;
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

// A count of 1..127 and one colour draw a run; 256 - count introduces 1..128 single colours. Inside a block
// of singles, a run shorter than three would cost more than it saves.
ByteBuffer PackedColours(const Values& values, int bytes) {
  constexpr std::size_t shortestRun = 3;
  constexpr std::size_t longestBlock = 128;
  ByteBuffer data;
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

ByteBuffer Plain(const Values& values, int width, Storage depth) {
  switch (depth) {
    case Storage::Mono: return PlainBits(values, width, 1);
    case Storage::TwoBit: return PlainBits(values, width, 2);
    case Storage::Byte: return PlainColours(values, 1);
    default: return PlainColours(values, 2);
  }
}

ByteBuffer Packed(const Values& values, Storage depth) {
  return depth == Storage::Mono ? PackedBits(values) : PackedColours(values, depth == Storage::Byte ? 1 : 2);
}

bool SideFits(int side) { return side >= 1 && side <= 254; }

}  // namespace

EncodedPicture EncodePicture(const Bitmap& bitmap, Storage storage) {
  if (!SideFits(bitmap.width) || !SideFits(bitmap.height))
    throw std::invalid_argument("a picture's sides are 1 to 254 pixels long");
  const auto type = static_cast<std::uint8_t>(storage);
  const auto depth = static_cast<Storage>(type & 0x7F);
  const Values values = PixelValues(bitmap, depth);
  return {static_cast<std::uint8_t>(bitmap.width), static_cast<std::uint8_t>(bitmap.height), type,
          storage == depth ? Plain(values, bitmap.width, depth) : Packed(values, depth)};
}

}  // namespace tarvelo
