#include "patch/name_pattern.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "images.h"

namespace tarvelo {
namespace {

// 1 MiB, so that offset 0 is phone address F00000: segment F0, page 3C0.
Fullflash NamedImage() {
  ImageBuilder image(0x100000);
  image.Data(0x1000,
             "F048DAF0 0020DB00"_hex);  // MOV R4, R8; CALLS F0:2000; RETS
  image.Data(0x2000, "E014DB00"_hex);   // MOV R4, #1; RETS
  image.Data(0x3000,
             "E6FC3412 E6FDC103"_hex);  // MOV R12, #1234h; MOV R13, #3C1h
  image.Data(0x3100,
             "E6FDC103 CC00 E6FC7812"_hex);     // MOV R13, #3C1h; NOP; MOV R12, #1278h
  image.Data(0x4000, "D740C203 F2F47856"_hex);  // EXTP #3C2h, #1; MOV R4, 5678h
  image.Data(0x5000, "77660020 F000"_hex);      // behind 7766 a pointer to F0:2000
  image.Data(0x6000, "BB7E9988"_hex);           // CALLR 60FEh
  image.Data(0x60FE, "C0DE"_hex);
  image.Data(0x7000, "ABCDABCD"_hex);
  image.Data(0x8000, "DAF00020 DAF00020 E011"_hex);  // two calls in a row
  return ImageOf(std::move(image));
}

TEST(NamePattern, FindsAddresses) {
  const struct {
    const char* pattern;
    std::vector<std::uint32_t> addresses;
  } cases[] = {
      {"E0 14 DB00", {0xF02000}},
      {"e014db00", {0xF02000}},
      {"?0 1? [110110..] 00", {0xF02000}},
      {"E0 [00010000] DB00", {}},
      {"F048 {E014} DB00", {0xF01000}},             // in the place of the call
      {"F048 DA?????? { E014 } DB00", {0xF01000}},  // behind it
      {"F048 {E015} DB00", {}},
      {"DA?????? {E014} DA?????? E011", {0xF08000}},   // in front of a call
      {"DA?????? {E014} E011", {0xF08000, 0xF08004}},  // either
      {"?? 7E {C0DE} 9988", {0xF06000}},
      {"F048 + 2", {0xF01002}},
      {"E014 - 0x10", {0xF01FF0}},
      {"&(F048 + 2)", {0xF02000}},       // a call
      {"&(E6FC3412)", {0xF05234}},       // a pair: page 3C1 * 4000 + 1234 = F04000 + 1234 = F05234
      {"&(E6FDC103 CC00)", {0xF05278}},  // page first, not at once: F04000 + 1278
      {"&(E6FDC103 + 6)", {}},           // half a pair
      {"&(C0DE + 2)", {}},               // erased: no page
      {"&(D740C203)", {0xF09678}},       // a page: 3C2 * 4000 = F08000, and 5678 & 3FFF = 1678
      {"&(7766 + 2) + 1", {0xF02001}},   // a pointer
      {"ABCD", {0xF07000, 0xF07002}},
      {"123456", {}},
  };
  const Fullflash image = NamedImage();
  for (const auto& [pattern, addresses] : cases)
    EXPECT_EQ(NamePattern(pattern).Find(image, 10), addresses) << pattern;
  EXPECT_EQ(NamePattern("ABCD").Find(image, 1).size(), 1u);
}

// 32 KiB of JMPR to themselves, which both readings of each brace follow.
TEST(NamePattern, GivesUpOnACraftedImage) {
  ImageBuilder image(0x10000);
  for (std::size_t at = 0; at < 0x8000; at += 2) image.Word(at, 0xFF0D);
  std::string pattern = "0D";
  for (int i = 0; i < 16; ++i) pattern = "{" + pattern + "}";
  EXPECT_TRUE(NamePattern("FF " + pattern + " 1234").Find(ImageOf(std::move(image)), 1).empty());
}

TEST(NamePattern, RefusesWhatItCannotRead) {
  for (const char* text :
       {"", "  ", "1", "123", "GG", "[1111000]", "[1111 0000]", "[11110000", "{E014}", "12 {", "12 {}",
        "12 }", "&12", "&(12", "12 +", "12 + 123456789", "12 - 123456789012345678901234", "12 34 x"})
    EXPECT_THROW(NamePattern{text}, std::invalid_argument) << text;
  std::string deep = "12";
  for (int i = 0; i < 100; ++i) deep = "12 {" + deep + "}";
  EXPECT_THROW(NamePattern{deep}, std::invalid_argument);
}

TEST(NamePattern, ReadsLists) {
  const auto list = ReadNamedPatterns(";comment\r\n\r\n First = 12 34 ; why\nSecond\n= 12\nLast = 1\n");
  ASSERT_EQ(list.size(), 4u);
  EXPECT_EQ(list[0].name, "First");
  EXPECT_TRUE(list[0].pattern);
  EXPECT_EQ(list[0].line, 3u);
  for (std::size_t i = 1; i < list.size(); ++i) {
    EXPECT_FALSE(list[i].pattern) << i;
    EXPECT_FALSE(list[i].problem.empty()) << i;
  }
}

}  // namespace
}  // namespace tarvelo
