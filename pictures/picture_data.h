// The data of pictures: its size and its pixels.
//
// Plain rows are padded to whole bytes. Pixels of 1 and 2 bits are stored from the high bits down; those of
// 12 and 16 bits are little-endian words. Compressed data is one stream for all rows:
//   1 bit         a byte from 0x80 up: a run of (byte AND 0x3F) pixels, ink if bit 6 is set;
//                 below 0x80: 7 pixels, bit 6 first
//   8 bits        n < 0x80: one colour byte, drawn n times; n >= 0x80: 256 - n colour bytes
//   12, 16 bits   as 8 bits, with colour words
#pragma once

#include <array>
#include <unordered_map>
#include <vector>

#include "pictures/bitmap.h"
#include "pictures/picture.h"

namespace tarvelo {

// The value of one pixel of a plain row; `bitIndex` counts bits from the row's start. Throws
// std::out_of_range outside the image.
[[nodiscard]] int BitS(Bytes image, Offset row, int bitsPerPixel, int bitIndex);

// Measures and draws the pictures of one image, which must outlive the decoder.
class PictureDecoder {
 public:
  explicit PictureDecoder(Bytes image) : image_(image) {}

  // The size of a picture's data in bytes. For a plain picture the image need not hold all of it. A stream
  // ends with the byte that holds the last pixel, or with the image; its size is 0 if there are no pixels or
  // the depth has no compressed form.
  [[nodiscard]] int SizeP(int width, int height, int bitsPerPixel, Offset data, std::uint8_t type);

  // Draws a picture. Pixels outside the image, and all pixels of an unknown depth, stay background.
  // `colourSeen` comes from the finished list.
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
  // Long stretches of runs of no pixels, indexed by the length of one run and the residue of their offset.
  // Each is walked only once, however many pictures begin in it.
  std::array<std::array<std::vector<Stretch>, 3>, 4> stretches_;
  // Positions that streams have passed: for 1 bit, for 8 bits, and for 12 and 16 bits.
  std::array<std::unordered_map<Offset, Landmark>, 3> landmarks_;
};

}  // namespace tarvelo
