#include "demo/artwork.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "pictures/bitmap_file.h"

namespace tarvelo {
namespace {

std::string_view TextOf(const std::vector<std::uint8_t>& bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

TEST(CutStrip, CutsAPngFile) {
  Bitmap strip(5, 2);
  for (std::size_t i = 1; i < strip.pixels.size(); ++i) strip.pixels[i] = static_cast<Colour>(0x123400 + i);
  const std::vector<std::uint8_t> png = PngFile(strip);
  const std::vector<Bitmap> pictures = CutStrip(TextOf(png), 2);
  ASSERT_EQ(pictures.size(), 3u);
  EXPECT_EQ(pictures[0].pixels, (std::vector<Colour>{backgroundColour, 0x123401, 0x123405, 0x123406}));
  EXPECT_EQ(pictures[2].pixels, (std::vector<Colour>{0x123404, 0x123409}));
  EXPECT_THROW((void)CutStrip(TextOf(png).substr(0, 40), 2), std::invalid_argument);
  EXPECT_THROW((void)CutStrip("", 2), std::invalid_argument);
}

}  // namespace
}  // namespace tarvelo
