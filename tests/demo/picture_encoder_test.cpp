#include "demo/picture_encoder.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <utility>

#include "demo/demo_random.h"
#include "pictures/colours.h"
#include "pictures/picture_data.h"

namespace tarvelo {
namespace {

using enum Storage;

Bitmap Decoded(const EncodedPicture& encoded) {
  Picture picture;
  picture.type = encoded.type;
  picture.width = encoded.width;
  picture.height = encoded.height;
  PictureDecoder decoder(encoded.data);
  picture.size = decoder.SizeP(picture.width, picture.height, picture.BitsPerPixel(), 0, picture.type);
  EXPECT_EQ(static_cast<std::size_t>(picture.size), encoded.data.size());
  return decoder.ShowP(picture, true);
}

// Runs of 1 to 300 pixels, some longer than any code can count, with single pixels in between.
Bitmap Runs(const std::function<Colour()>& colour) {
  Bitmap bitmap(101, 80);
  Random random(1);
  for (std::size_t i = 0; i < bitmap.pixels.size();) {
    const Colour next = colour();
    const std::size_t end = i + (random.Below(4) != 0 ? 1 : 1 + random.Below(300));
    for (; i < end && i < bitmap.pixels.size(); ++i) bitmap.pixels[i] = next;
  }
  return bitmap;
}

TEST(EncodePicture, DecodesToTheSamePixels) {
  Random random(2);
  const auto anyOf = [&](const auto& table) {
    return [&random, &table] { return table[random.Below(static_cast<std::uint32_t>(table.size()))]; };
  };
  const std::array<Colour, 4> twoBits{0x000000, 0xFFFFFF, 0x0000C0, backgroundColour};
  const std::vector<std::pair<Bitmap, std::vector<Storage>>> cases{
      {Runs(anyOf(twoBits)), {TwoBit}},
      {Runs(anyOf(GetColors().bits8)), {Byte, BytePacked}},
      {Runs(anyOf(GetColors().bits12)), {Twelve, TwelvePacked}},
      {Runs(anyOf(GetColors().bits16)), {Sixteen, SixteenPacked}}};
  for (const auto& [bitmap, storages] : cases)
    for (const Storage storage : storages)
      EXPECT_EQ(Decoded(EncodePicture(bitmap, storage)).pixels, bitmap.pixels) << static_cast<int>(storage);
}

TEST(EncodePicture, KeepsTheInkOfMonochromePictures) {
  const std::array<Colour, 2> ink{0xFFFFFF, 0x000000};
  Random random(3);
  const Bitmap bitmap = Runs([&] { return ink[random.Below(2)]; });
  for (const Storage storage : {Mono, MonoPacked}) {
    Bitmap decoded = Decoded(EncodePicture(bitmap, storage));
    for (Colour& pixel : decoded.pixels)
      if (pixel != 0) pixel = 0xFFFFFF;  // the display's own background
    EXPECT_EQ(decoded.pixels, bitmap.pixels) << static_cast<int>(storage);
  }
}

TEST(EncodePicture, RefusesWhatATableCannotHold) {
  EXPECT_THROW((void)EncodePicture(Bitmap(255, 1), Sixteen), std::invalid_argument);
  EXPECT_THROW((void)EncodePicture(Bitmap(1, 0), Sixteen), std::invalid_argument);
  EXPECT_THROW((void)EncodePicture(Bitmap(1, 1), Twelve), std::invalid_argument);  // no background
  EXPECT_NO_THROW((void)EncodePicture(Bitmap(254, 254), SixteenPacked));
}

}  // namespace
}  // namespace tarvelo
