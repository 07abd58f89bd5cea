#include "pictures/picture_data.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>

#include "images.h"
#include "pictures/bitmap_file.h"
#include "pictures/colours.h"

#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_ONLY_PNG
#define STBI_NO_STDIO
#include <stb/stb_image.h>

namespace tarvelo {
namespace {

constexpr Colour black = 0x000000, white = 0xFFFFFF, tone = 0xFADC96, none = backgroundColour;

Picture Make(std::uint8_t width, std::uint8_t height, std::uint8_t type, std::int32_t data = 0) {
  return {.type = type, .width = width, .height = height, .data = data};
}

std::vector<Colour> Draw(const Data& data, const Picture& picture, bool colourSeen = false) {
  return PictureDecoder(data).ShowP(picture, colourSeen).pixels;
}

int Size(const Data& data, int width, int height, std::uint8_t type, Offset at = 0) {
  return PictureDecoder(data).SizeP(width, height, BitsOfType(type), at, type);
}

TEST(PictureSize, OfPlainRowsIsPadded) {
  EXPECT_EQ(Size({}, 9, 3, 1), 6);
  EXPECT_EQ(Size({}, 5, 3, 3), 6);
  EXPECT_EQ(Size({}, 5, 3, 5), 15);
  EXPECT_EQ(Size({}, 5, 3, 7), 30);  // 12 bits are stored as 16
  EXPECT_EQ(Size({}, 254, 255, 8), 254 * 2 * 255);
  EXPECT_EQ(Size({}, 5, 3, 2), 0);  // an unknown type
}

TEST(PictureSize, OfAStreamEndsWithTheLastPixelOrTheImage) {
  const std::tuple<std::uint8_t, Data, int> cases[] = {
      {0x81, {0xC5, 0x83, 0xFF}, 2},                 // 5 ink pixels, 3 background pixels
      {0x81, {0xFF, 0xFF}, 1},                       // a run that overshoots
      {0x81, {0x80, 0xC0, 0x55, 0x55}, 4},           // empty runs take a byte each; 7 + 1 pixels
      {0x85, {0x08, 0xE0, 0x00}, 2},                 //
      {0x85, {0x00, 0x11, 0x08, 0xE0}, 4},           //
      {0x85, {0xF0, 1, 2, 3, 4, 5, 6, 7, 8, 9}, 9},  // 16 literals, complete after 8
      {0x85, {0x05}, 1},                             // the colour is missing
      {0x88, {0x03, 1, 2, 0xFB, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10}, 14},
      {0x88, {0x05, 0x01}, 2},  // half of the colour is missing
      {0x87, {0x08, 1, 2}, 3},
      {0x83, {0x08, 1, 2}, 0},  // this form does not exist
  };
  for (const auto& [type, data, size] : cases)
    EXPECT_EQ(Size(data, 4, 2, type), size) << int{type} << " " << int{data[0]};
  EXPECT_EQ(Size({0x08, 1, 2}, 0, 2, 0x87), 0);  // no pixels, so nothing is read
  EXPECT_EQ(Size({0, 0, 0x81}, 101, 80, 0x81, 2), 1);
  EXPECT_EQ(Size(Data(1000, 0), 4, 2, 0x85, 1), 999);
  EXPECT_EQ(Size({1, 2}, 4, 2, 0x85, 2), 0);
  EXPECT_EQ(Size({1, 2}, 4, 2, 0x85, -1), 0);
}

// A decoder remembers where codes and stretches of empty runs end. The test measures streams over random
// codes, with short and long gaps, with a fresh decoder and with one that has measured all the others.
TEST(PictureSize, DoesNotDependOnEarlierMeasurements) {
  std::minstd_rand random(7);
  for (const std::uint8_t type : {0x81, 0x85, 0x87, 0x88})
    for (const unsigned gap : {3, 200}) {
      Data data(30000, type == 0x81 ? 0x80 : 0x00);
      for (std::uint8_t& b : data)
        if (random() % gap == 0) b = static_cast<std::uint8_t>(random());
      PictureDecoder warm(data);
      for (Offset i = 0; i < 1000; ++i) {
        const Offset at = i * 7919 % 500 * 60;
        const int width = static_cast<int>(i % 255), height = 1 + static_cast<int>(i % 254);
        EXPECT_EQ(warm.SizeP(width, height, BitsOfType(type), at, type), Size(data, width, height, type, at))
            << at;
      }
    }
}

TEST(ShowP, DrawsEveryPlainDepth) {
  // 0xA0: 1 0 1 0 ...
  EXPECT_EQ(Draw({0xA0, 0x40}, Make(3, 2, 1)), (std::vector{black, tone, black, tone, black, tone}));
  EXPECT_EQ(Draw({0xA0, 0x40}, Make(3, 2, 1), true), (std::vector{black, white, black, white, black, white}));
  // 0x1B: the bit pairs 0 1 2 3
  EXPECT_EQ(Draw({0x1B}, Make(4, 1, 3)), (std::vector<Colour>{black, white, 0x0000C0, none}));
  EXPECT_EQ(Draw({0xFF, 0x00, 0xC0}, Make(3, 1, 5)), (std::vector<Colour>{0xEBEBD0, 0x51195F, none}));
  // the high four bits of a word are ignored
  EXPECT_EQ(Draw({0x3C, 0xF5}, Make(1, 1, 7)), (std::vector<Colour>{0x5533CC}));
  // bit 5 is no part of a colour, but makes E020 opaque
  EXPECT_EQ(Draw({0x20, 0x00, 0x00, 0xE0, 0x20, 0xE0}, Make(3, 1, 8)),
            (std::vector<Colour>{0x000000, none, 0xE70000}));
  EXPECT_EQ(Draw({0xFF}, Make(1, 1, 9)), std::vector{none});
}

// The components of every level; the other two are 0, or 1 where 0 would make the pixel transparent.
TEST(ShowP, DrawsEveryLevelOfEachColour) {
  constexpr int red8[] = {81, 102, 125, 146, 169, 190, 213, 235},
                green8[] = {25, 52, 82, 111, 142, 172, 204, 235};
  constexpr int blue8[] = {95, 115, 154, 208};
  constexpr int levels5[] = {0,   8,   16,  24,  33,  41,  49,  57,  66,  74,  82,  90,  99,  107, 115, 123,
                             132, 140, 148, 156, 165, 173, 181, 189, 198, 206, 214, 222, 231, 239, 247, 255};
  const auto rgb = [](int red, int green, int blue) {
    return static_cast<Colour>(red << 16 | green << 8 | blue);
  };
  const auto pixel = [](std::uint8_t type, unsigned value) {
    return Draw({static_cast<std::uint8_t>(value), static_cast<std::uint8_t>(value >> 8)},
                Make(1, 1, type))[0];
  };
  for (unsigned v = 0; v < 8; ++v) {
    EXPECT_EQ(pixel(5, v << 5 | 1), rgb(red8[v], 25, 115)) << v;
    EXPECT_EQ(pixel(5, v << 2), rgb(81, green8[v], 95)) << v;
  }
  for (unsigned v = 0; v < 4; ++v) EXPECT_EQ(pixel(5, v), rgb(81, 25, blue8[v])) << v;
  for (unsigned v = 0; v < 16; ++v) {
    const int level = static_cast<int>(v * 17);
    EXPECT_EQ(pixel(7, v << 8), rgb(level, 0, 0)) << v;
    EXPECT_EQ(pixel(7, v << 4), rgb(0, level, 0)) << v;
    EXPECT_EQ(pixel(7, v), rgb(0, 0, level)) << v;
  }
  for (unsigned v = 0; v < 32; ++v) {
    EXPECT_EQ(pixel(8, v << 11 | 1), rgb(levels5[v], 0, 8)) << v;
    EXPECT_EQ(pixel(8, v << 6), rgb(0, levels5[v], 0)) << v;
    EXPECT_EQ(pixel(8, v), rgb(0, 0, levels5[v])) << v;
  }
  EXPECT_EQ(pixel(8, 0xFFFF), white);
}

TEST(ShowP, DrawsMonochromeRuns) {
  // One of background, an empty run of each kind, two of ink, seven single pixels: 1 0 0 1 1 0 1.
  EXPECT_EQ(Draw({0x81, 0x80, 0xC0, 0xC2, 0x4D}, Make(10, 1, 0x81)),
            (std::vector{tone, black, black, black, tone, tone, black, black, tone, black}));
  const Data longest{0xBF, 0xFF, 0x00};  // 63 of background, 63 of ink
  const std::vector<Colour> drawn = Draw(longest, Make(127, 1, 0x81));
  EXPECT_EQ(std::ranges::count(drawn, black), 63);
  EXPECT_EQ(drawn[62], tone);
  EXPECT_EQ(drawn[63], black);
  EXPECT_EQ(drawn[126], tone);
}

TEST(ShowP, DrawsStreamsOverRowEnds) {
  EXPECT_EQ(Draw({0xC2, 0x20}, Make(3, 3, 0x81), true),
            (std::vector{black, black, tone, black, tone, tone, tone, tone, tone}));
  EXPECT_EQ(Draw({0x03, 0xFF, 0xFF, 0x00, 0x05, 0xC0}, Make(3, 3, 0x85)),
            (std::vector<Colour>{0xEBEBD0, 0xEBEBD0, 0xEBEBD0, 0x51195F, none, none, none, none, none}));
  EXPECT_EQ(Draw({0xFE, 0x00, 0xF8, 0x1F, 0x00}, Make(2, 1, 0x88)),
            (std::vector<Colour>{0xFF0000, 0x0000FF}));
}

TEST(ShowP, LeavesOutPixelsWithoutData) {
  EXPECT_EQ(Draw({0x00, 0xF8, 0x00}, Make(2, 1, 8)), (std::vector<Colour>{0xFF0000, none}));
  EXPECT_EQ(Draw({0x01, 0xFF, 0x05}, Make(2, 1, 0x85)), (std::vector<Colour>{0xEBEBD0, none}));
  for (const std::uint8_t type : {0x01, 0x81, 0x05, 0x85, 0x88})
    for (const int at : {-5, 1, 1000}) EXPECT_EQ(Draw({0xFF}, Make(1, 1, type, at)), std::vector{none});
}

TEST(BmpFile, IsBottomUpWithAGreenKeyAndRowsOfWholeDoubleWords) {
  Bitmap bitmap(3, 2);
  bitmap.pixels = {0x112233, backgroundColour, 0, 0x010203, 0x040506, 0x070809};
  EXPECT_EQ(BmpFile(bitmap),
            (Data{'B',  'M',  78,   0, 0,    0,    0, 0, 0, 0, 54, 0, 0, 0,         // file header
                  40,   0,    0,    0, 3,    0,    0, 0, 2, 0, 0,  0, 1, 0, 24, 0,  // size, planes, depth
                  0,    0,    0,    0, 24,   0,    0, 0,                            // form, bytes of pixels
                  0x13, 0xB,  0,    0, 0x13, 0xB,  0, 0, 0, 0, 0,  0, 0, 0, 0,  0,  // 2835 pixels a metre
                  3,    2,    1,    6, 5,    4,    9, 8, 7, 0, 0,  0,               // blue, green, red
                  0x33, 0x22, 0x11, 0, 0xFF, 0x00, 0, 0, 0, 0, 0,  0}));
}

TEST(PngFile, ShowsTheSamePixels) {
  Bitmap bitmap(3, 2);
  bitmap.pixels = {0x010203, 0xFFFFFF, backgroundColour, 0x000000, 0xFB00FA, 0x00FF00};
  const Data file = PngFile(bitmap);
  int width = 0, height = 0, channels = 0;
  const std::unique_ptr<stbi_uc, decltype(&stbi_image_free)> pixels(
      stbi_load_from_memory(file.data(), static_cast<int>(file.size()), &width, &height, &channels, 0),
      stbi_image_free);
  ASSERT_TRUE(pixels);
  EXPECT_EQ(std::tuple(width, height, channels), std::tuple(3, 2, 4));
  EXPECT_EQ(Data(pixels.get(), pixels.get() + 24),
            (Data{1, 2, 3, 255, 255, 255, 255, 255, 0, 0,   0, 0,  // the third is transparent
                  0, 0, 0, 255, 251, 0,   250, 255, 0, 255, 0, 255}));
  EXPECT_TRUE(PngFile(Bitmap(0, 5)).empty());
}

}  // namespace
}  // namespace tarvelo
