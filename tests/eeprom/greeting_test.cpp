#include "eeprom/greeting.h"

#include <gtest/gtest.h>

#include "images.h"

namespace tarvelo {
namespace {

std::string ModelOf(ImageBuilder builder) {
  const Fullflash image = ImageOf(std::move(builder));
  return GreetingModel(image, GetEE(image, "", noProgress));
}

TEST(Greeting, NamesTheModelBeforeItsFirstBlank) {
  const std::pair<Data, const char*> cases[] = {
      {{'C', '5', '5', ' ', 'b', 0}, "C55"},
      {{'C', '5', '5', 0, 'b'}, "C55"},
      {{'C', '5', '5', 0xFF, 'b'}, "C55"},
      {{'C', '5', '5'}, "C55"},  // ends with its block
      {{0xCF, 0xF0, ' ', 0x1B, 0}, "\u041F\u0440"},
      {{' ', 'C', '5', '5', 0}, ""},
      {{'C', 0x1B, '5', 0}, ""},
      {{'C', 0x7F, 0}, ""},
      {{'C', 0x98, 0}, ""},
      {{0, 'C'}, ""},
      {{}, ""},
  };
  for (const auto& [greeting, model] : cases) {
    ImageBuilder image(mebi);
    image.Fill(0x90000, 0x100, 'x');  // what lies behind the block is no part of it
    image.Data(0x90000, greeting);
    PutBlock(image, 0x1000, liveBlockState, 5076, 0x90000, static_cast<std::uint16_t>(greeting.size()));
    EXPECT_EQ(ModelOf(std::move(image)), model);
  }
}

TEST(Greeting, IsTheLastLiveBlock) {
  ImageBuilder image(mebi);
  image.Text(image.Text(image.Text(0x90000, "OLD"), "NEW"), "DEL");
  PutBlock(image, 0x1000, liveBlockState, 5076, 0x90000, 4);
  PutBlock(image, 0x100C, liveBlockState, 5076, 0x90004, 4);
  PutBlock(image, 0x1018, deletedBlockState, 5076, 0x90008, 4);
  PutBlock(image, 0x1024, liveBlockState, 5077, 0x90008, 4);
  EXPECT_EQ(ModelOf(image), "NEW");
  image.Data(mebi - 3, Data{'N', 'E', 'W'});
  PutBlock(image, 0x100C, liveBlockState, 5076, mebi - 3, 4);  // not wholly in the image
  EXPECT_EQ(ModelOf(image), "");
  EXPECT_EQ(ModelOf(ImageBuilder(mebi)), "");
}

}  // namespace
}  // namespace tarvelo
