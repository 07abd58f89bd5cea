#include "media/picture_data.h"

#include <algorithm>

#include "media/colours.h"

namespace tarvelo {
namespace {

constexpr Colour black = 0x000000;
constexpr Colour white = 0xFFFFFF;
constexpr Colour darkBlue = 0x0000C0;
constexpr Colour tone = 0xFADC96;  // the background of a monochrome display

// The colour of a pixel's value. Values are within what the depth can hold.
Colour ColourOf(int bitsPerPixel, int value, bool plainMonochromeIsWhite) {
  const auto index = static_cast<std::size_t>(value);
  switch (bitsPerPixel) {
    case 1: return value == 1 ? black : plainMonochromeIsWhite ? white : tone;
    case 2: return std::array{black, white, darkBlue, backgroundColour}[index];
    case 8: return GetColors().bits8[index];
    case 12: return GetColors().bits12[index & 0xFFF];
    case 16: return GetColors().bits16[index];
    default: return backgroundColour;
  }
}

}  // namespace

int BitS(Bytes image, Offset row, int bitsPerPixel, int bitIndex) {
  const Offset at = row + bitIndex / 8;
  switch (bitsPerPixel) {
    case 12:
    case 16: return WordAt(image, at);
    case 8: return ByteAt(image, at);
    case 2: return ByteAt(image, at) >> (7 - (bitIndex + 1) % 8) & 3;
    default: return ByteAt(image, at) >> (7 - bitIndex % 8) & 1;
  }
}

// Where the runs of no pixels that begin at p, `length` bytes each, come to an end.
template <int length, typename IsEmpty>
Offset PictureDecoder::SkipEmptyRuns(Offset p, IsEmpty isEmpty) {
  constexpr Offset longStretch = 32;  // shorter ones are not worth remembering
  std::vector<Stretch>& known = stretches_[length][static_cast<std::size_t>(p % length)];
  const auto next = std::ranges::upper_bound(known, p, {}, &Stretch::begin);
  if (next != known.begin() && p < (next - 1)->end) return (next - 1)->end;
  const auto end = static_cast<Offset>(image_.size());
  const Offset stop = next == known.end() ? end : next->begin;
  Offset q = p;
  while (q < stop && isEmpty(image_[static_cast<std::size_t>(q)])) q += length;
  if (next != known.end() && q >= next->begin) {
    next->begin = p;
    return next->end;
  }
  q = std::min(q, end);
  if (q - p >= longStretch) known.insert(next, {p, q});
  return q;
}

// The walks call draw(count, value) for each run or pixel until the picture is complete, and return
// the offset behind the last byte used: the image's end, where the stream runs over it.

template <typename Draw>
Offset PictureDecoder::WalkMonochrome(Offset p, int pixels, Draw draw) {
  const auto end = static_cast<Offset>(image_.size());
  while (pixels > 0 && p < end) {
    const int b = image_[static_cast<std::size_t>(p)];
    if ((b & 0xBF) == 0x80) {
      p = SkipEmptyRuns<1>(p, [](int byte) { return (byte & 0xBF) == 0x80; });
      continue;
    }
    ++p;
    if (b >= 0x80) {
      const int count = std::min(b & 0x3F, pixels);
      draw(count, b >> 6 & 1);
      pixels -= count;
    }
    for (int bit = 6; b < 0x80 && bit >= 0 && pixels > 0; --bit, --pixels) draw(1, b >> bit & 1);
  }
  return p;
}

template <int colourBytes, typename Draw>
Offset PictureDecoder::WalkColour(Offset p, int pixels, Draw draw) {
  const auto end = static_cast<Offset>(image_.size());
  const auto byte = [&](Offset at) { return static_cast<int>(image_[static_cast<std::size_t>(at)]); };
  while (pixels > 0 && p < end) {
    const int n = byte(p);
    if (n == 0) {
      p = SkipEmptyRuns<1 + colourBytes>(p, [](int b) { return b == 0; });
      continue;
    }
    ++p;
    const bool isRun = n < 0x80;
    int colours = isRun ? 1 : 256 - n;
    for (; colours > 0 && pixels > 0; --colours) {
      if (end - p < colourBytes) return end;
      const int value = colourBytes == 1 ? byte(p) : byte(p) | byte(p + 1) << 8;
      const int count = isRun ? std::min(n, pixels) : 1;
      p += colourBytes;
      draw(count, value);
      pixels -= count;
    }
  }
  return p;
}

template <typename Draw>
Offset PictureDecoder::Walk(int bitsPerPixel, Offset data, int pixels, Draw draw) {
  if (data < 0 || data >= static_cast<Offset>(image_.size())) return data;
  switch (bitsPerPixel) {
    case 1: return WalkMonochrome(data, pixels, draw);
    case 8: return WalkColour<1>(data, pixels, draw);
    case 12:
    case 16: return WalkColour<2>(data, pixels, draw);
    default: return data;  // 2 bits and unknown depths have no compressed form
  }
}

int PictureDecoder::SizeP(int width, int height, int bitsPerPixel, Offset data, std::uint8_t type) {
  if (type < 0x80) return Stride(width, bitsPerPixel) * height;
  const Offset end = Walk(bitsPerPixel, data, width * height, [](int, int) {});
  return static_cast<int>(end - data);
}

void PictureDecoder::DrawPlain(const Picture& picture, bool colourSeen, Bitmap& bitmap) const try {
  const int bits = picture.BitsPerPixel();
  const int step = bits == 12 ? 16 : bits;
  if (bits == 0) return;
  Offset row = picture.data;
  auto pixel = bitmap.pixels.begin();
  for (int y = 0; y < picture.height; ++y, row += Stride(picture.width, bits))
    for (int x = 0; x < picture.width; ++x)
      *pixel++ = ColourOf(bits, BitS(image_, row, bits, step * x), colourSeen);
} catch (const std::out_of_range&) {
  // The picture ends where the image does.
}

Bitmap PictureDecoder::ShowP(const Picture& picture, bool colourSeen) {
  Bitmap bitmap(picture.width, picture.height);
  if (!picture.IsCompressed()) {
    DrawPlain(picture, colourSeen, bitmap);
    return bitmap;
  }
  const int bits = picture.BitsPerPixel();
  auto pixel = bitmap.pixels.begin();
  Walk(bits, picture.data, picture.width * picture.height,
       [&](int count, int value) { pixel = std::fill_n(pixel, count, ColourOf(bits, value, false)); });
  return bitmap;
}

}  // namespace tarvelo
