// The data of pictures: its size, its pixels.
//
// Plain rows are padded to whole bytes; pixels of 1 and 2 bits lie from the high bits down, those of
// 12 and 16 bits are little-endian words. Compressed data is a stream over all rows:
//   1 bit         a byte from 0x80 up: a run of (byte AND 0x3F) pixels, ink if bit 6 is set;
//                 below 0x80: 7 pixels, bit 6 first
//   8 bits        n < 0x80: one colour byte, drawn n times; n >= 0x80: 256 - n colour bytes
//   12, 16 bits   likewise with colour words
#pragma once

#include <array>
#include <unordered_map>
#include <vector>

#include "pictures/bitmap.h"
#include "pictures/picture.h"

namespace tarvelo {

// The value of one pixel of a plain row: `bitIndex` counts bits from the row's start. Throws
// std::out_of_range.
[[nodiscard]] int BitS(Bytes image, Offset row, int bitsPerPixel, int bitIndex);

// Measures and draws the pictures of one image, which must outlive it.
class PictureDecoder {
 public:
  explicit PictureDecoder(Bytes image) : image_(image) {}

  // Bytes of data that a picture occupies, whether or not the image holds them all when it is plain. A
  // stream ends with the byte that holds the last pixel, or with the image; without pixels, or where
  // the depth has no compressed form, its size is 0.
  [[nodiscard]] int SizeP(int width, int height, int bitsPerPixel, Offset data, std::uint8_t type);

  // Draws a picture. What the image does not hold, and what has no known depth, stays background.
  // `colourSeen` is that of the finished list.
  [[nodiscard]] Bitmap ShowP(const Picture& picture, bool colourSeen);

 private:
  struct Stretch {
    Offset begin, end;
  };
  struct Code {
    int length;  // bytes
    int pixels;
  };
  struct Landmark {
    Offset next;
    int pixels;
  };

  template <typename Draw>
  Offset WalkMonochrome(Offset p, int pixels, Draw draw);
  template <int colourBytes, typename Draw>
  Offset WalkColour(Offset p, int pixels, Draw draw);
  template <typename Draw>
  Offset Walk(int bitsPerPixel, Offset data, int pixels, Draw draw);
  void DrawPlain(const Picture& picture, bool colourSeen, Bitmap& bitmap) const;

  [[nodiscard]] Code CodeAt(Offset p, int bitsPerPixel) const;
  void SkipWholeCodes(Offset& p, int& pixels, int bitsPerPixel);
  template <int length, typename IsEmpty>
  Offset SkipEmptyRuns(Offset p, IsEmpty isEmpty);

  Bytes image_;
  // Long stretches of runs of no pixels, by the length of such a run and the residue of their
  // offsets. Each is walked once, however many pictures begin in it.
  std::array<std::array<std::vector<Stretch>, 3>, 4> stretches_;
  // Where streams have come by, for 1, 8, and 12 and 16 bits.
  std::array<std::unordered_map<Offset, Landmark>, 3> landmarks_;
};

}  // namespace tarvelo
