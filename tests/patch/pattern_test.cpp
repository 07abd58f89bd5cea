#include "patch/pattern.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "patch/plain_search.h"

namespace tarvelo {
namespace {

using Data = std::vector<std::uint8_t>;

Fullflash Image(const Data& bytes) { return Fullflash(Bytes(bytes)); }

Offset Find(const Data& bytes, std::string_view pattern, Offset start = 0) {
  return Pattern(pattern).FindPat(Image(bytes), start);
}

std::vector<Offset> All(const Data& bytes, std::string_view pattern) {
  NoProgress progress;
  return FindAll(Image(bytes), Pattern(pattern), progress);
}

TEST(Pattern, IsReadInAllItsForms) {
  const Data image{0, 0xE6, 0xFC, 0x41, 0x00, 0xE6, 0};
  for (const char* text : {"E6,FC,41,00,E6", "E6FC4100E6", "e6 fc 41 00 e6", " E6FC41,,00E6 ", "E6FC4100E67"})
    EXPECT_EQ(Find(image, text), 1) << text;
  for (const char* text : {"E6??4100", "e6??41,00", "E6?C4100", "E6F?4100", "E 6 ? ? 41"})
    EXPECT_EQ(Find(image, text), 1) << text;
  for (const char* text : {"e6,g1", "E6FC4100E6x1", "+1", "E6-C", "0xE6", "E6\tFC"})
    EXPECT_EQ(Find(image, text), -1) << text;
  EXPECT_EQ(Find(image, "E6\u0416?41"), 1);  // any character beside a "?"
}

TEST(Pattern, EndsAtTheImagesEndOnlyWithoutWildcardsFromTheStart) {
  const Data image{0, 0x11, 0x22, 0x33};
  EXPECT_EQ(Find(image, "2233"), 2);
  EXPECT_EQ(Find(image, "2233", 1), -1);
  EXPECT_EQ(Find(image, "22??"), -1);
  EXPECT_EQ(Find(image, "??33"), -1);
  EXPECT_EQ(Find(image, "11??"), 1);
  EXPECT_EQ(Find(image, "0011223344"), -1);
  EXPECT_EQ(Find(image, "00112233"), 0);
}

TEST(FindAll, FindsOverlappingHitsButNoneAfterOneAtZero) {
  EXPECT_EQ(All({0, 7, 7, 7, 7, 0}, "07,07"), (std::vector<Offset>{1, 2, 3}));
  EXPECT_EQ(All({7, 7, 7, 7, 0}, "07,07"), std::vector<Offset>{});
  EXPECT_EQ(All({0, 7, 7, 7, 7}, "07,07"), (std::vector<Offset>{1, 2}));  // the last ends with the image
  EXPECT_EQ(All({0, 1, 2, 3}, "??"), std::vector<Offset>{});
  EXPECT_EQ(All({0, 1, 2, 3}, "?"), std::vector<Offset>{});
}

TEST(LineOfHit, ShowsTheBytesFound) {
  Data bytes(0x1A300);
  const Data hit{0xE6, 0x12, 0x41, 0x00, 0xE6};
  std::ranges::copy(hit, bytes.begin() + 0x1A2B4);
  const Pattern pattern("E6??4100E6");
  EXPECT_EQ(LineOfHit(Image(bytes), pattern, 1, 0x1A2B4), "  1. 01A2B4: E6124100E6");
  EXPECT_EQ(LineOfHit(Image(bytes), pattern, 1234, 0x1A2B4), "234. 01A2B4: E6124100E6");
  EXPECT_EQ(NotFound("e6,g1", Messages()), "String \"E6,G1\" wasn't found");
}

TEST(FindPat, AgreesWithItsDefinition) {
  std::minstd_rand random(11);
  for (int round = 0; round < 20000; ++round) {
    Data image(2 + random() % 60);
    for (std::uint8_t& b : image) b = random() % 2 ? 0xFF : static_cast<std::uint8_t>(random() % 3);
    std::string text;
    for (auto count = 1 + random() % 5; count > 0; --count)
      text += random() % 4 == 0 ? "??" : random() % 2 ? "fF" : "0" + std::to_string(random() % 3);
    const auto start = static_cast<Offset>(random() % 4 == 0 ? random() % image.size() : 0);
    ASSERT_EQ(Find(image, text, start), PlainFindPat(image, PlainPattern(text), start))
        << text << " from " << start;
  }
}

}  // namespace
}  // namespace tarvelo
