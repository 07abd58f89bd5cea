#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <span>

#include "core/identification.h"
#include "demo/demo_image.h"
#include "demo/demo_random.h"
#include "demo/picture_encoder.h"
#include "pictures/colours.h"
#include "pictures/picture_data.h"

namespace tarvelo {
namespace {

using enum Storage;

// 64-bit FNV-1a, to compare whole images across platforms.
std::uint64_t Hash(const std::vector<std::uint8_t>& bytes) {
  return std::accumulate(bytes.begin(), bytes.end(), std::uint64_t{0xCBF29CE484222325},
                         [](std::uint64_t h, std::uint8_t b) { return (h ^ b) * 0x100000001B3; });
}

// The hashes change only when the demonstration is changed on purpose.
TEST(DemoImage, IsIdentifiedAndTheSameEverywhere) {
  for (const auto& [kind, hash] : {std::pair(DemoKind::First, 4981190973505692955u),
                                   {DemoKind::Second, 12816645163789409425u},
                                   {DemoKind::Large, 17043373681851035117u}}) {
    const std::vector<std::uint8_t> bytes = DemoImage(kind);
    EXPECT_EQ(Hash(bytes), hash);
    Fullflash image{Bytes(bytes)};
    const Identification info = Identify(image);
    EXPECT_EQ(info.Family, 7);
    EXPECT_FALSE(info.Model.empty());
    EXPECT_FALSE(info.buildDate.empty());
    EXPECT_EQ(info.t9.has_value(), kind != DemoKind::Large);
  }
}

Bitmap Decoded(const EncodedPicture& encoded) {
  PictureDecoder decoder(encoded.data);
  Picture picture{.type = encoded.type, .width = encoded.width, .height = encoded.height};
  picture.size = decoder.SizeP(picture.width, picture.height, picture.BitsPerPixel(), 0, picture.type);
  EXPECT_EQ(static_cast<std::size_t>(picture.size), encoded.data.size());
  return decoder.ShowP(picture, true);
}

// Runs of 1 to 300 pixels, some longer than any code can count, with single pixels in between.
Bitmap Runs(std::span<const Colour> colours) {
  Bitmap bitmap(101, 80);
  Random random(1);
  for (std::size_t i = 0; i < bitmap.pixels.size();) {
    const Colour next = colours[random.Below(static_cast<std::uint32_t>(colours.size()))];
    const std::size_t end = i + (random.Below(4) != 0 ? 1 : 1 + random.Below(300));
    for (; i < end && i < bitmap.pixels.size(); ++i) bitmap.pixels[i] = next;
  }
  return bitmap;
}

TEST(EncodePicture, DecodesToTheSamePixels) {
  constexpr Colour ink[] = {0xFFFFFF, 0x000000};
  constexpr Colour twoBits[] = {0x000000, 0xFFFFFF, 0x0000C0, backgroundColour};
  const std::pair<std::span<const Colour>, std::vector<Storage>> cases[] = {
      {ink, {Mono, MonoPacked}},
      {twoBits, {TwoBit}},
      {GetColors().bits8, {Byte, BytePacked}},
      {GetColors().bits12, {Twelve, TwelvePacked}},
      {GetColors().bits16, {Sixteen, SixteenPacked}}};
  for (const auto& [colours, storages] : cases)
    for (const Storage storage : storages) {
      const Bitmap bitmap = Runs(colours);
      Bitmap decoded = Decoded(EncodePicture(bitmap, storage));
      if (storage == MonoPacked)  // drawn on the display's own background
        std::ranges::replace_if(
            decoded.pixels, [](Colour c) { return c != 0; }, Colour{0xFFFFFF});
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
