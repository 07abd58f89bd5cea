#include "core/place_text.h"

#include <gtest/gtest.h>

#include "images.h"

namespace tarvelo {
namespace {

TEST(PlaceText, IsAsWideAsTheImageNeeds) {
  const struct {
    std::size_t size;  // of the image
    Offset offset;
    const char* offsetText;
    const char* addressText;
  } cases[] = {
      {0x10000, 0x20, "000020", "3FC:0020"},  // offset 0 at 0xFF0000
      {0x1000000, 0, "000000", "000:0000"},        {0x1000000, 0xFFFFFF, "FFFFFF", "3FF:3FFF"},
      {0x1000001, 0x1A2B4, "001A2B4", "A001A2B4"}, {0x1000001, 0x1000000, "1000000", "A1000000"},
  };
  for (const auto& [size, offset, offsetText, addressText] : cases) {
    const Fullflash image = ImageOf(ImageBuilder(size));
    EXPECT_EQ(OffsetText(image, offset), offsetText);
    EXPECT_EQ(AddressText(image, offset), addressText);
  }
}

}  // namespace
}  // namespace tarvelo
