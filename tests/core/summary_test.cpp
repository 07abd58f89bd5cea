#include "core/summary.h"

#include <gtest/gtest.h>

#include "images.h"

namespace tarvelo {
namespace {

std::string SummaryOf(ImageBuilder builder, const Messages& messages = Messages()) {
  Fullflash image = ImageOf(std::move(builder));
  return Summary("C:\\ff\\s45.bin", image, Identify(image), messages);
}

TEST(Summary, HasALineForEachKnownFact) {
  ImageBuilder s45(0x600000);
  PutHeader(s45, "S45");
  s45.Text(0x7FF90, "14.11.2002");
  s45.Fill(0x100000, 0x18000, 0x11);
  s45.Text(0x100000, "T9");
  s45.DWord(0x100004, 0x12345);
  EXPECT_EQ(SummaryOf(s45),
            "Fullflash: C:\\ff\\s45.bin\n"
            "Size: 600000 = 6M = 6291456\n"
            "Loading base: A00000\n"
            "Corrected base: 800000\n"
            "Mobile: S45\n"
            "Firmware 24 FD-02\n"
            "Assembling date: 14.11.2002\n"
            "Empty blocks: , 00 - 06, 08 - 0F, 12 - 5F\n"
            "T9 base: 100000 = 1048576\n"
            "Exact size of T9: 12345 = 74565\n"
            "Full size of T9: 20000 = 131072\n"
            "Empty area in T9: 8000 = 32768\n");
}

TEST(Summary, ShowsControlCharactersAsDots) {
  ImageBuilder builder(0x100000);
  PutHeader(builder,
            "C\x1B"
            "5");
  builder.Text(0x7FF60, "\x1B[2J\x07\x7F\x98 \xE9");
  const std::string text = SummaryOf(builder);
  EXPECT_NE(text.find("Mobile: C.5\nFirmware 24 .[2J... й\n"), std::string::npos) << text;
  Fullflash image = ImageOf(builder);
  EXPECT_EQ(Identify(image).StatusText(), "C.5 v24 .[2J... й");
}

// 1 MiB is 0x100000 bytes: 2 bytes are 1 / 524288.
TEST(Summary, WritesSizesWithoutExponents) {
  const std::pair<std::size_t, const char*> sizes[] = {{2, "2 = 0.0000019073486328125M = 2"},
                                                       {0x67, "67 = 0.0000982284545898438M = 103"},
                                                       {0x80, "80 = 0.0001220703125M = 128"},
                                                       {0x80000, "80000 = 0.5M = 524288"},
                                                       {0xA00000, "A00000 = 10M = 10485760"},
                                                       {0x1000001, "1000001 = 16.0000009536743M = 16777217"},
                                                       {0xFFFFF, "FFFFF = 0.999999046325684M = 1048575"}};
  for (const auto& [size, line] : sizes) {
    const std::string text = SummaryOf(ImageBuilder(size));
    EXPECT_NE(text.find(std::string("Size: ") + line + "\n"), std::string::npos) << text;
    EXPECT_EQ(text.find("Corrected"), std::string::npos) << text;  // the base is the loading base
  }
}

TEST(Summary, SpeaksTheLanguageAndShowsALargeBase) {
  const std::string text = SummaryOf(ImageBuilder(0x1000001), Messages(*FindLanguage("DE")));
  EXPECT_NE(text.find(": A0000000\n"), std::string::npos) << text;
  EXPECT_EQ(text.find("Loading"), std::string::npos) << text;
}

}  // namespace
}  // namespace tarvelo
