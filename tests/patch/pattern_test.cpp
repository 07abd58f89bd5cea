#include "patch/pattern.h"

#include <algorithm>
#include <random>

#include "images.h"
#include "on_each_unit.h"
#include "patch/hit_search.h"
#include "patch/plain_search.h"
#include "temporary_folder.h"

namespace tarvelo {
namespace {

Fullflash Image(const Data& bytes) { return Fullflash(Bytes(bytes)); }

Offset Find(const Data& bytes, std::string_view pattern, Offset start = 0) {
  return Pattern(pattern).FindPat(Image(bytes), start);
}

std::vector<Offset> All(const Data& bytes, std::string_view pattern, std::size_t most = 1000) {
  return FindAll(Image(bytes), Pattern(pattern), noProgress, most);
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

TEST(FindAll, FindsNoMoreThanAskedFor) {
  EXPECT_EQ(All({0, 7, 7, 7, 7, 0}, "07,07"), (std::vector<Offset>{1, 2, 3}));
  EXPECT_EQ(All({0, 7, 7, 7, 7, 0}, "07,07", 2), (std::vector<Offset>{1, 2}));
}

TEST(LineOfHit, ShowsTheBytesFound) {
  Data bytes(0x1A300);
  std::ranges::copy(Data{0xE6, 0x12, 0x41, 0x00, 0xE6}, bytes.begin() + 0x1A2B4);
  EXPECT_EQ(LineOfHit(Image(bytes), Pattern("E6??4100E6"), 1234, 0x1A2B4), "234. 01A2B4: E6124100E6");
}

struct RandomPattern {
  explicit RandomPattern(std::minstd_rand& random, std::size_t longest) : bytes(1 + random() % longest) {
    for (int& b : bytes) {
      b = random() % 4 == 0 ? -1 : random() % 2 ? 0xFF : static_cast<int>(random() % 3);
      text += b < 0 ? "??" : b == 0xFF ? "fF" : "0" + std::to_string(b);
    }
  }
  std::vector<int> bytes;  // -1 for a wildcard
  std::string text;
};

// Images with many near matches: they use few different bytes, and sometimes contain a copy of the pattern.
Data RandomImage(std::minstd_rand& random, std::size_t longest, const std::vector<int>& pattern) {
  Data image(2 + random() % longest);
  const auto usual = 2 + random() % 6;
  for (std::uint8_t& b : image) b = random() % usual ? 0xFF : static_cast<std::uint8_t>(random() % 3);
  for (auto copies = random() % 3; copies > 0 && pattern.size() < image.size(); --copies) {
    const std::size_t at = random() % (image.size() - pattern.size() + 1);
    for (std::size_t k = 0; k < pattern.size(); ++k)
      if (pattern[k] >= 0) image[at + k] = static_cast<std::uint8_t>(pattern[k]);
  }
  return image;
}

class FindPatOnEachUnit : public OnEachUnit {};
INSTANTIATE_TEST_SUITE_P(Units, FindPatOnEachUnit, eachUnit);

TEST_P(FindPatOnEachUnit, AgreesWithItsDefinition) {
  std::minstd_rand random(11);
  for (int round = 0; round < 10000; ++round) {
    const bool small = random() % 2 == 0;
    const RandomPattern pattern(random, small ? 5 : 40);
    const Data image = RandomImage(random, small ? 60 : 600, pattern.bytes);
    const auto start = static_cast<Offset>(random() % 2 == 0 ? random() % image.size() : 0);
    ASSERT_EQ(Find(image, pattern.text, start), PlainFindPat(image, pattern.bytes, start)) << pattern.text;
    ASSERT_EQ(All(image, pattern.text), PlainFindAll(image, pattern.bytes)) << pattern.text;
  }
}

TEST(HitSearch, FindsTheSameInPiecesOfAnySize) {
  std::minstd_rand random(12);
  for (int round = 0; round < 5000; ++round) {
    const RandomPattern text(random, 12);
    const Data image = RandomImage(random, 400, text.bytes);
    const Pattern pattern(text.text);
    HitSearch search(pattern, static_cast<Offset>(image.size()));
    std::vector<Offset> hits;
    for (std::size_t end = 0; !search.IsOver();) {
      const auto at = static_cast<std::size_t>(search.Next());
      end = std::min(image.size(), std::max(end, at) + 1 + random() % 300);
      search.Take(Bytes(image).subspan(at, end - at), search.Next(), hits);
    }
    ASSERT_EQ(hits, PlainFindAll(image, text.bytes)) << text.text;
  }
}

// Occurrences around the boundaries of the pieces that are read.
TEST(FindInFile, AgreesWithTheSearchInAnImage) {
  std::minstd_rand random(13);
  Data image(0x150000);
  for (std::uint8_t& b : image) b = static_cast<std::uint8_t>(random() % 64);
  for (const int at : {0x3FFFA, 0x3FFFC, 0x40000, 0x7FFF9, 0x14FFFB})
    std::ranges::copy(Data{0xE6, 0xFC, 0x41, 0x00, 0xE6}, image.begin() + at);
  image[0x50000] = 0x77;
  const TemporaryFolder folder;
  const auto path = folder.Write("dump.bin", image);
  for (const std::string& text :
       {std::string("E6FC4100E6"), std::string("E6??41"), std::string("01??02"), std::string("77"),
        std::string(700, '0'), std::string("e6,g1"), std::string("7")}) {
    const Pattern pattern(text);
    FileReader file(path, Fullflash::sizeLimit);
    std::vector<Offset> found;
    FindInFile(file, pattern, noProgress, [&](std::span<const Offset> hits, Bytes piece, Offset at) {
      found.insert(found.end(), hits.begin(), hits.end());
      for (const Offset hit : hits) {
        ASSERT_EQ(ByteAt(piece, hit - at), image[static_cast<std::size_t>(hit)]);
        ASSERT_LE(hit - at + pattern.PatCount(), std::ssize(piece));
      }
    });
    EXPECT_EQ(found, All(image, text)) << text;
  }
}

}  // namespace
}  // namespace tarvelo
