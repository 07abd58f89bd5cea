// Parts of carrying a patch: which loads make an address, where an area may go, what code comes along.
#include <gtest/gtest.h>

#include "images.h"
#include "port/brought_code.h"
#include "port/free_areas.h"
#include "port/load_pairs.h"

namespace tarvelo {
namespace {

// A letter for each instruction: loads of R4 .. R6, a short one of R4 or R5, a jump, and NOP.
TEST(PartnerOf, IsTheNearestLoadOfTheNextRegister) {
  std::map<char, std::string> bytesOf{{'4', "E6F43412"}, {'5', "E6F5C103"}, {'6', "E6F6C103"}, {'r', "E014"},
                                      {'s', "E015"},     {'j', "0D00"},     {'.', "CC00"}};
  const std::tuple<std::string_view, std::size_t, std::optional<std::size_t>> cases[] = {
      {"45", 0, 1},          {"46", 0, {}},       {"54", 1, 0},          {"4.......5", 0, 8},
      {"4........5", 0, {}}, {"5.......4", 8, 0}, {"5........4", 9, {}}, {"4j5", 0, {}},
      {"5j4", 2, {}},        {"4s5", 0, {}},      {"4r5", 0, {}},        {"4.54", 0, {}},
      {"4..5.4", 0, {}},     {"4.5r", 0, {}},     {"4.5.4", 0, 2}};
  for (const auto& [instructions, load, partner] : cases) {
    std::vector<DecodedCode> code;
    for (const char each : instructions)
      code.push_back({0, Instruction::Decode(*ReadHex(bytesOf[each]), 0), {}});
    EXPECT_EQ(PartnerOf(code, load), partner) << instructions << ", " << load;
  }
}

// A pointer at 102h, whose low byte stays, leads to code behind three bytes. With one byte in front of the
// image, both are at odd offsets.
TEST(BroughtCode, IsAtEvenAddresses) {
  for (const Offset front : {0, 1}) {
    ImageBuilder builder(static_cast<std::size_t>(0x10000 + front));
    builder.Fill(static_cast<std::size_t>(0x100 + front), 16, 0);
    const Fullflash image = ImageOf(std::move(builder));
    const CodeUnits none;
    const std::vector<PatchChange> changes{{1, {0x103 + front, {0, 0, 0}, {0x80, 0xFF, 0}}},
                                           {2, {0x7FFD + front, Data(7, 0xFF), "123456E014DB00"_hex}}};
    const PatchedImage patched(changes, image, none);
    const BroughtCode code(patched, none);
    EXPECT_TRUE(code.AssumedIn(patched.Pieces()[1]).empty()) << front;
    EXPECT_EQ(code.Blocks(), (std::vector<BroughtBlock>{{{0x7FFD + front, 3}}, {{0x8000 + front, 4}, true}}))
        << front;
  }
}

// One piece of five parts, with erased bytes between them: what is called, code that nothing leads to, a
// text, data, and two lines of more code.
TEST(BroughtCode, IsAssumedInEachPartThatNothingLeadsTo) {
  const Fullflash image = ImageOf(ImageBuilder(0x10000));
  const CodeUnits none;
  std::vector<PatchChange> changes;
  const auto add = [&](Offset at, const Data& bytes) {
    changes.push_back({0, {at, Data(bytes.size(), 0xFF), bytes}});
  };
  add(0x8000, "CC00 DAFF0080 DB00"_hex);
  add(0x8020, "E014 DB00"_hex);
  add(0x8040, "226F7261 6E676E00"_hex);
  add(0x8050, "0001 8C00"_hex);
  add(0x8060, "CC00 DA"_hex);
  add(0x8063, "FF0080 DB00"_hex);
  const PatchedImage patched(changes, image, none);
  const BroughtCode code(patched, none);
  ASSERT_EQ(patched.Pieces().size(), 1u);
  const std::vector<BroughtBlock> blocks{
      {{0x8000, 8}, true}, {{0x8020, 4}, true}, {{0x8040, 8}}, {{0x8050, 4}}, {{0x8060, 8}, true}};
  EXPECT_EQ(code.Blocks(), blocks);
}

// Routines one behind the other that call the first, the last of which runs into data.
TEST(BroughtCode, GoesOnBehindEachReturn) {
  const Fullflash image = ImageOf(ImageBuilder(0x10000));
  const CodeUnits none;
  const Data bytes = "DB00 DAFF0080 DB00 DAFF0080 DB00 DAFF0080 8C00"_hex;
  const std::vector<PatchChange> changes{{0, {0x8000, Data(bytes.size(), 0xFF), bytes}}};
  const PatchedImage patched(changes, image, none);
  const std::vector<BroughtBlock> blocks{
      {{0x8000, 2}, true}, {{0x8002, 6}, true}, {{0x8008, 6}, true}, {{0x800E, 6}}};
  EXPECT_EQ(BroughtCode(patched, none).Blocks(), blocks);
}

// 100h bytes from a phone address in an image of 320 KiB, whose segments begin at offset 0, 10000h and so on.
TEST(FreeAreas, HaveRoomWithinTheBoundsOfPagesAndSegments) {
  const std::tuple<std::vector<Region>, Offset, std::optional<Offset>> cases[] = {
      {{}, 0x801234, 0x21234},  // nearest to the middle with the same offset in the segment
      {{{0, 0x5000}, {0xF000, 0x31000}}, 0x801234, 0x9234},  // in the page
      {{{0, 0x5800}, {0x6400, 0x39C00}}, 0x801234, 0x5D34},  // in neither
      {{{0, 0x5000}, {0x5300, 0x3AD00}}, 0x801000, 0x5100},  // 100h bytes from all
      {{{0, 0x5000}, {0x52FF, 0x3AD01}}, 0x801000, {}},
      {{{0, 0x5001}, {0x5300, 0x3AD00}}, 0x801000, {}},
      {{{0, 0x3FD00}}, 0x801000, 0x3FE00},                   // in front of the last 64 KiB
      {{{0, 0x7E00}, {0x8200, 0x37E00}}, 0x801080, {}},      // would cross the end of a page
      {{{0, 0x7E00}, {0x8200, 0x37E00}}, 0x803F80, 0x7F80},  // as it did before
      {{{0, 0x7E00}, {0x8200, 0xE00}, {0x93C0, 0x36C40}}, 0x801080, 0x9180},
      {{{0, 0x5000}, {0x6000, 0x2000}, {0xA000, 0x36000}}, 0x801080, 0x9080}};  // the longest
  const Fullflash image = Erased(0x50000);
  for (const auto& [used, from, place] : cases) {
    FreeAreas areas(image, used);
    EXPECT_EQ(areas.Find(from, 0x100), place) << used.size() << ", " << from;
    if (!place) continue;
    EXPECT_TRUE(areas.Suits(from, 0x100, *place)) << *place;
    EXPECT_FALSE(areas.Suits(from, 0x100, *place + 1)) << *place;
    areas.Take({*place, 1});
    EXPECT_FALSE(areas.Suits(from, 0x100, *place)) << *place;
  }
}

}  // namespace
}  // namespace tarvelo
