#include "pictures/picture_data.h"

#include <algorithm>

#include "pictures/colours.h"

namespace tarvelo {
namespace {

constexpr Colour black = 0x000000;
constexpr Colour white = 0xFFFFFF;
constexpr Colour darkBlue = 0x0000C0;
constexpr Colour tone = 0xFADC96;  // the background of a monochrome display

// The colour of a pixel value, which must fit the depth.
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

bool IsEmptyMonochromeRun(int byte) { return (byte & 0xBF) == 0x80; }

bool IsEmptyColourRun(int byte) { return byte == 0; }

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

// The end of the runs of no pixels that begin at p, `length` bytes each.
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

// The walks call draw(count, value) for each run or pixel until the picture is complete. They return the
// offset behind the last byte used, or the image's end if the stream passes it.

template <typename Draw>
Offset PictureDecoder::WalkMonochrome(Offset p, int pixels, Draw draw) {
  const auto end = static_cast<Offset>(image_.size());
  while (pixels > 0 && p < end) {
    const int b = image_[static_cast<std::size_t>(p)];
    if (IsEmptyMonochromeRun(b)) {
      p = SkipEmptyRuns<1>(p, IsEmptyMonochromeRun);
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
    if (IsEmptyColourRun(n)) {
      p = SkipEmptyRuns<1 + colourBytes>(p, IsEmptyColourRun);
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

// The code at an offset: a run or a block of literals.
PictureDecoder::Code PictureDecoder::CodeAt(Offset p, int bitsPerPixel) const {
  const int n = image_[static_cast<std::size_t>(p)];
  if (bitsPerPixel == 1) return {1, n < 0x80 ? 7 : n & 0x3F};
  const int colourBytes = bitsPerPixel == 8 ? 1 : 2;
  if (n < 0x80) return {1 + colourBytes, n};
  return {1 + colourBytes * (256 - n), 256 - n};
}

// Follows a stream over whole codes, up to the one that holds the last pixel or crosses the image's end.
// Pictures with overlapping data walk the same codes again and again, so about one code in 500 remembers the
// next such code and the number of pixels up to it.
void PictureDecoder::SkipWholeCodes(Offset& p, int& pixels, int bitsPerPixel) {
  const auto end = static_cast<Offset>(image_.size());
  const auto remembers = [](Offset at) {
    return static_cast<std::uint64_t>(at) * 0x9E3779B97F4A7C15 >> 55 == 0;
  };
  auto& memory = landmarks_[bitsPerPixel == 1 ? 0 : bitsPerPixel == 8 ? 1 : 2];
  Offset last = -1;     // the last landmark passed
  int pixelsThere = 0;  // pixels still to draw at it
  while (p < end) {
    if (remembers(p)) {
      if (last >= 0) memory.try_emplace(last, Landmark{p, pixelsThere - pixels});
      const auto known = memory.find(p);
      if (known != memory.end()) {
        if (known->second.pixels >= pixels) return;
        pixels -= known->second.pixels;
        p = known->second.next;
        last = -1;
        continue;
      }
      last = p;
      pixelsThere = pixels;
    }
    const Code code = CodeAt(p, bitsPerPixel);
    if (code.pixels == 0)
      p = bitsPerPixel == 1   ? SkipEmptyRuns<1>(p, IsEmptyMonochromeRun)
          : bitsPerPixel == 8 ? SkipEmptyRuns<2>(p, IsEmptyColourRun)
                              : SkipEmptyRuns<3>(p, IsEmptyColourRun);
    else if (code.pixels >= pixels || p + code.length > end)
      return;
    else {
      p += code.length;
      pixels -= code.pixels;
    }
  }
}

int PictureDecoder::SizeP(int width, int height, int bitsPerPixel, Offset data, std::uint8_t type) {
  if (type < 0x80) return Stride(width, bitsPerPixel) * height;
  const bool hasStream = bitsPerPixel == 1 || bitsPerPixel >= 8;
  int pixels = width * height;
  if (!hasStream || pixels == 0 || data < 0 || data >= static_cast<Offset>(image_.size())) return 0;
  Offset p = data;
  SkipWholeCodes(p, pixels, bitsPerPixel);
  return static_cast<int>(Walk(bitsPerPixel, p, pixels, [](int, int) {}) - data);
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
