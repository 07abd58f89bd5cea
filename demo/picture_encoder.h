// From a canvas to a picture as the firmware stores it.
#pragma once

#include <cstdint>

#include "demo/canvas.h"
#include "demo/picture_set.h"

namespace tarvelo::art {

enum class Storage {
  Mono,        // 1 bit a pixel, rows padded to whole bytes
  MonoPacked,  // the same pixels as runs and groups of seven
  TwoBit,      // 2 bits: black, white, dark blue, transparent
  Byte,        // 8 bits, RRRGGGBB, 0xC0 transparent
  BytePacked,
  Twelve,  // 12 bits in little-endian words 0x0RGB, no transparency
  TwelvePacked,
  Sixteen,  // 5-5-5 in little-endian words, 0xE000 transparent
  SixteenPacked,
};

enum class Shading {
  Flat,      // every pixel gets the colour that comes nearest
  Dithered,  // an ordered pattern of the two colours around it: smooth gradients in few colours
};

// Pixels that are less than half opaque are stored as transparent; in the depths without
// transparency they become background (1 bit) or white (12 bits). No visible pixel is stored as
// the transparent value. Throws std::invalid_argument when a side is not 1..254 pixels long: a
// width of 255 and a height of 0 mark the end of a picture table.
[[nodiscard]] EncodedPicture EncodePicture(const Canvas& canvas, Storage storage,
                                           Shading shading = Shading::Flat);

// The colour that an 8-bit pixel value stands for; 0xC0 is transparent.
[[nodiscard]] Colour ByteColour(int value);

}  // namespace tarvelo::art
