// The pictures of a firmware, as their table entries describe them.
//
// A picture index table (PIT) is an array of 8-byte entries:
//   0  width in pixels; 255 ends the table
//   1  height in rows; 0 ends the table
//   2  type: bit 7 compressed, bits 0..6 the colour type code
//   3  reserved, 0; anything else ends the table
//   4  pointer to the data (Fullflash::GetAdr)
// Stand-alone headers outside the tables have the same form.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "text/bytes.h"

namespace tarvelo {

// Kept small, because a malformed image may have a picture for every four of its bytes.
struct Picture {
  static constexpr Offset entrySize = 8;

  std::uint8_t table : 7 = 0;  // 1 .. 99; 9 outside the tables, as the list shows it
  bool outside : 1 = false;
  std::uint8_t type = 0;
  std::uint8_t width = 0;
  std::uint8_t height = 0;
  std::int32_t index = 0;   // within the table, or among the pictures outside
  std::int32_t number = 0;  // among all pictures, from 0
  std::int32_t data = 0;    // offset of the data; may be outside the image
  std::int32_t entry = 0;   // offset of the table entry or header
  std::int32_t size = 0;    // bytes of data, SizeP

  [[nodiscard]] bool IsCompressed() const { return type >= 0x80; }
  // 1, 2, 8, 12 or 16; 0 if the type cannot be drawn.
  [[nodiscard]] int BitsPerPixel() const;
  // The size of the uncompressed pixels in bytes.
  [[nodiscard]] int PlainSize() const;
  // The caption of the frame around the picture: " 7.  101 * 80 * 16 (comp) ".
  [[nodiscard]] std::string Caption() const;
};

static_assert(sizeof(Picture) == 24);

// All pictures of an image, in the order of the search.
struct PictureList {
  std::vector<Picture> pictures;
  std::vector<Offset> tables;  // offset of each table found
  int outsideCount = 0;
  // Whether any picture has more than one bit per pixel. This changes how plain monochrome is drawn.
  bool colourSeen = false;
};

// The bits per pixel for the colour type code in a type byte (1, 3, 5, 7 or 8); 0 for any other code.
[[nodiscard]] int BitsOfType(std::uint8_t type);

// The size of an uncompressed row in bytes. 12 bits are stored as 16.
[[nodiscard]] int Stride(int width, int bitsPerPixel);

}  // namespace tarvelo
