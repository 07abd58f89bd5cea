// Encodes pixels as the firmware stores pictures.
#pragma once

#include <cstdint>
#include <vector>

#include "pictures/bitmap.h"

namespace tarvelo {

// A table entry's type: the code of the depth, with bit 7 for compressed data.
enum class Storage : std::uint8_t {
  Mono = 1,     // 1 bit per pixel, rows padded to whole bytes: white, black
  TwoBit = 3,   // 2 bits: black, white, dark blue (0x0000C0), background
  Byte = 5,     // 8 bits: the colours of ColourTables, background too
  Twelve = 7,   // 12 bits in little-endian words, no background
  Sixteen = 8,  // 5-5-5 in little-endian words, background too
  MonoPacked = 0x81,
  BytePacked = 0x85,
  TwelvePacked = 0x87,
  SixteenPacked = 0x88,
};

// One picture as the firmware stores it: a table entry's first three bytes and the data that it points to.
struct EncodedPicture {
  std::uint8_t width = 0;   // pixels per row
  std::uint8_t height = 0;  // rows
  std::uint8_t type = 0;    // Storage
  std::vector<std::uint8_t> data;
};

// Throws std::invalid_argument if the depth lacks one of the colours, or unless both sides are 1..254 pixels
// long: a width of 255 or a height of 0 marks the end of a picture table.
[[nodiscard]] EncodedPicture EncodePicture(const Bitmap& bitmap, Storage storage);

}  // namespace tarvelo
