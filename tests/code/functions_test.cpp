#include "code/functions.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <sstream>
#include <utility>

#include "code/functions_explorer.h"
#include "code/made_firmware.h"
#include "code/sound_functions.h"
#include "images.h"

namespace tarvelo {
namespace {

using Parts = std::vector<std::pair<std::size_t, std::string>>;  // offset and bytes

// The image has 128 KiB: the segments FEh and FFh, pages from 3F8h on. The rest of it is erased.
Fullflash ImageOfParts(const Parts& parts) {
  ImageBuilder image(0x20000);
  for (const auto& [at, digits] : parts) image.Data(at, *ReadHex(digits));
  return ImageOf(std::move(image));
}

void ExpectSound(const FunctionList& list, const Fullflash& image) { ASSERT_EQ(FaultOf(list, image), ""); }

// "offset size calls, " of each function; the offset in hexadecimal.
std::string Listed(const Parts& parts) {
  const Fullflash image = ImageOfParts(parts);
  const FunctionList list = GetFunctions(image, noProgress);
  ExpectSound(list, image);
  std::ostringstream text;
  for (const Function& function : list.All())
    text << std::hex << function.code.offset << std::dec << ' ' << function.code.size << ' ' << function.calls
         << ", ";
  return text.str();
}

struct FunctionCase {
  const char* name;
  Parts parts;
  const char* listed;
};

// 28 bytes.
const char* const nops =
    "CC 00 CC 00 CC 00 CC 00 CC 00 CC 00 CC 00 CC 00 CC 00 CC 00 CC 00 CC 00 CC 00 CC 00";

TEST(Functions, AreNamedByCallsAndTables) {
  const FunctionCase cases[] = {
      {"CALLS", {{0x100, "DA FE 00 02 DB 00"}, {0x200, "CC 00 DB 00"}}, "200 4 1, "},
      {"CALLS to an odd place", {{0x100, "DA FE 01 02 DB 00"}, {0x200, "CC 00 DB 00"}}, ""},
      {"CALLS out of the image", {{0x100, "DA 00 00 02 DB 00"}, {0x200, "CC 00 DB 00"}}, ""},
      {"JMPS", {{0x100, "FA FE 00 02"}, {0x200, "DB 00"}}, "200 2 0, "},
      {"pointer", {{0x300, "00 02 FE 00"}, {0x200, "CC 00 DB 00"}}, "200 4 0, "},
      {"pointer to an odd place", {{0x300, "01 02 FE 00"}, {0x200, "CC 00 DB 00"}}, ""},
      {"page pointer", {{0x300, "00 02 F8 03"}, {0x200, "CC 00 DB 00"}}, ""},
      {"pointer inside code",
       {{0x300, "00 01 FE 00"}, {0x100, "E6 F5 FE 00 DB 00"}, {0xF5E6, "DB 00"}},
       "100 6 0, "},
      {"two MOVs",
       {{0x300, "00 01 FE 00"}, {0x100, "E6 FC 00 02 E6 FD FE 00 DB 00"}, {0x200, "DB 00"}},
       "100 10 0, 200 2 0, "},
      {"MOVs of other registers",
       {{0x300, "00 01 FE 00"}, {0x100, "E6 FC 00 02 E6 FE FE 00 DB 00"}, {0x200, "DB 00"}},
       "100 10 0, "},
      {"CALLR", {{0x300, "00 01 FE 00"}, {0x100, "BB 7F DB 00"}, {0x200, "DB 00"}}, "100 4 0, 200 2 1, "},
      {"CALLA",
       {{0x300, "00 01 FE 00"}, {0x100, "CA 20 00 02 DB 00"}, {0x200, "DB 00"}},
       "100 6 0, 200 2 1, "},
      {"PCALL",
       {{0x300, "00 01 FE 00"}, {0x100, "E2 F4 00 02 DB 00"}, {0x200, "EB F4"}},
       "100 6 0, 200 2 1, "},
      {"itself", {{0x100, "DA FE 00 01 DB 00"}}, "100 6 1, "},
      {"one call into code", {{0x100, "DA FE 00 02 DB 00"}, {0x1E4, nops}, {0x200, "DB 00"}}, ""},
      {"two calls into code",
       {{0x100, "DA FE 00 02 DB 00"}, {0x140, "DA FE 00 02 DB 00"}, {0x1E4, nops}, {0x200, "DB 00"}},
       "200 2 2, "},
      {"one call, behind data", {{0x100, "DA FE 00 02 DB 00"}, {0x1FC, "8C 00 8C 00 DB 00"}}, "200 2 1, "},
      {"one call in data, behind data",
       {{0xFC, "8C 00 8C 00 DA FE 00 02 8C 00"}, {0x1FC, "8C 00 8C 00 DB 00"}},
       ""},
      {"pointer, behind data", {{0x300, "00 02 FE 00"}, {0x1FC, "8C 00 8C 00 DB 00"}}, ""},
      {"table, one behind data",
       {{0x300, "00 01 FE 00 00 02 FE 00 80 01 FE 00"},
        {0x100, "DB 00"},
        {0x180, "DB 00"},
        {0x1FC, "8C 00 8C 00 DB 00"}},
       "100 2 0, 180 2 0, 200 2 0, "},
      {"behind a return within a function", {{0x300, "04 02 FE 00"}, {0x200, "2D 01 DB 00 CC 00 DB 00"}}, ""},
      {"two entries",
       {{0x300, "00 01 FE 00 00 02 FE 00"}, {0x100, "DA FE 02 02 DB 00"}, {0x200, "CC 00 CC 00 DB 00"}},
       "100 6 0, 200 2 0, 202 4 1, "},
      {"code that is shared",
       {{0x300, "00 01 FE 00 00 02 FE 00"}, {0x100, "EA 00 06 02"}, {0x200, "CC 00 DB 00 CC 00 DB 00"}},
       "100 4 0, 200 4 0, "},
  };
  for (const FunctionCase& each : cases) EXPECT_EQ(Listed(each.parts), each.listed) << each.name;
}

TEST(Functions, BeginBehindAnEnd) {
  const struct {
    const char* front;  // up to 0x200
    bool isEnd;
  } cases[] = {{"CC 00 DB 00", true},  {"CC 00 FB 88", true},  {"CC 00 CB 00", true},  {"CC 00 EB F4", true},
               {"FA 00 00 10", true},  {"B7 48 B7 B7", true},  {"FF FF FF FF", true},  {"00 00 00 00", true},
               {"DB 00 FF FF", true},  {"DB 00 00 00", true},  {"CC 00 00 00", false}, {"CC 00 CC 00", false},
               {"CC 00 0D 10", false}, {"EA 00 40 02", false}, {"CC 00 9C 04", false}, {"E6 F4 DB 00", false},
               {"DA 00 DB 00", false}, {"CC 00 DB 01", false}};
  for (const auto& [front, isEnd] : cases)
    EXPECT_EQ(Listed({{0x300, "00 02 FE 00"}, {0x1E0, nops}, {0x1FC, front}, {0x200, "CC 00 DB 00"}}),
              isEnd ? "200 4 0, " : "")
        << front;
}

TEST(Functions, HaveACleanFlow) {
  const FunctionCase cases[] = {
      {"reserved", {{0x200, "8C 00 DB 00"}}, ""},
      {"reserved behind a branch", {{0x200, "2D 01 DB 00 8C 00"}}, ""},
      {"reserved behind an end", {{0x200, "DB 00 8C 00"}}, "200 2 0, "},
      {"a word of FF", {{0x200, "CC 00 FF FF DB 00"}}, "200 6 0, "},
      {"two words of FF", {{0x200, "CC 00 FF FF FF FF DB 00"}}, ""},
      {"two words of 00", {{0x200, "CC 00 00 00 00 00 DB 00"}}, ""},
      {"filling behind a call", {{0x200, "CC 00 DA 00 00 10"}}, "200 6 0, "},
      {"a loop", {{0x200, "CC 00 0D FE"}}, "200 4 0, "},
      {"a loop that begins at its end", {{0x200, "0D 02 CC 00 CC 00 48 41 2D FC DB 00"}}, "200 12 0, "},
      {"into the middle of an instruction", {{0x200, "2D 01 E6 F4 DB 00 DB 00"}}, ""},
      {"over the start of an instruction", {{0x200, "0D 02 CC 00 E6 F4 2D FE DB 00"}}, ""},
      {"to an odd place", {{0x200, "EA 20 09 02 DB 00 FF FF FF DB 00"}}, ""},
      {"JMPA over data", {{0x200, "EA 00 08 02 8C 00 8C 00 DB 00"}}, "200 10 0, "},
      {"conditional JMPA", {{0x200, "EA 20 08 02 DB 00 8C 00 DB 00"}}, "200 10 0, "},
      {"JMPI", {{0x200, "9C 04 8C 00"}}, "200 2 0, "},
      {"conditional JMPI", {{0x200, "9C 24 DB 00"}}, "200 4 0, "},
      {"JNB", {{0x200, "9A 10 01 20 DB 00 DB 00"}}, "200 8 0, "},
      {"in front of the entry", {{0x200, "2D FD DB 00"}}, "200 4 0, "},
  };
  for (const FunctionCase& each : cases) {
    Parts parts = each.parts;
    parts.push_back({0x300, "00 02 FE 00"});
    EXPECT_EQ(Listed(parts), each.listed) << each.name;
  }
}

TEST(Functions, EndWithTheirSegment) {
  const FunctionCase cases[] = {
      {"up to the border", {{0x300, "FC FF FE 00"}, {0xFFFC, "CC 00 DB 00 DB 00"}}, "fffc 4 0, "},
      {"on behind it", {{0x300, "FC FF FE 00"}, {0xFFFC, "CC 00 CC 00 DB 00"}}, ""},
      {"an instruction across it", {{0x300, "FC FF FE 00"}, {0xFFFC, "CC 00 E6 F4 00 00 DB 00"}}, ""},
      {"a jump across it", {{0x300, "FC FF FE 00"}, {0xFFFC, "CC 00 EA 00 FC FF"}}, ""},
      {"behind it", {{0x300, "00 00 FF 00"}, {0xFFFC, "CC 00 CC 00 DB 00"}}, "10000 2 0, "},
      {"up to the image's end", {{0x300, "FC FF FF 00"}, {0x1FFFC, "CC 00 DB 00"}}, "1fffc 4 0, "},
      {"on behind the image", {{0x300, "FC FF FF 00"}, {0x1FFFC, "CC 00 CC 00"}}, ""},
      {"a call across it",
       {{0x300, "F0 FF FE 00"}, {0xFFF0, "BB 17 DB 00"}, {0x20, "DB 00"}},
       "20 2 1, fff0 4 0, "},
  };
  for (const FunctionCase& each : cases) EXPECT_EQ(Listed(each.parts), each.listed) << each.name;
}

// A function with a switch of three cases; the default is in front of it. With its cases it has 30 bytes.
TEST(Functions, HoldTheCasesOfTheirSwitches) {
  const Parts usual{{0x300, "00 02 FE 00"},       {0x200, "0D 01 DB 00"},
                    {0x204, "46 F4 02 00 ED FC"}, {0x20A, "5C 14 06 F4 10 00 A8 44 9C 04"},
                    {0x214, "CC 00 DB 00"},       {0x218, "CC 00 DB 00 DB 00"},
                    {0x4010, "14 02 18 02 1C 02"}};
  const struct {
    const char* name;
    Parts instead;
    bool isFound;
  } cases[] = {{"usual", {}, true},
               {"other order", {{0x4010, "1C 02 18 02 14 02"}}, true},
               {"other registers", {{0x205, "F5"}, {0x20A, "5C 15 06 F5 10 00 A8 75 9C 07"}}, true},
               {"short CMP", {{0x204, "CC 00 48 42"}}, true},
               {"CMP of another register", {{0x205, "F5"}}, false},
               {"ULE", {{0x208, "FD"}}, false},
               {"shift by 2", {{0x20B, "24"}}, false},
               {"SUB", {{0x20C, "26"}}, false},
               {"jump by another register", {{0x211, "54"}}, false},
               {"odd case", {{0x4012, "19"}}, false},
               {"case in front of the function", {{0x4012, "F8 01"}}, false},
               {"no case behind JMPI", {{0x4010, "1C"}}, false}};
  for (const auto& [name, instead, isFound] : cases)
    for (const char* load : {"E6 00 F9 03", "E6 00 FA 03"}) {  // the table's page, or another one
      Parts parts = usual;
      parts.push_back({0x100, load});
      parts.insert(parts.end(), instead.begin(), instead.end());
      EXPECT_EQ(Listed(parts), isFound ? "200 30 0, " : "200 20 0, ") << name << ' ' << load;
    }
  for (const char* read : {"06 F4 10 00 D7 40 F9 03 A8 44", "06 F4 10 40 D7 00 FE 00 A8 44"}) {
    const Parts parts{{0x300, "00 02 FE 00"},
                      {0x200, "0D 01 DB 00 48 41 ED FD 5C 14"},
                      {0x20A, read},
                      {0x214, "9C 04 CC 00 DB 00 DB 00"},
                      {0x4010, "16 02 1A 02"}};
    EXPECT_EQ(Listed(parts), "200 28 0, ") << read;
  }
}

TEST(Functions, OfMadeFirmwareAreFound) {
  int called = 0, named = 0, found = 0, foundByName = 0, listed = 0, right = 0, calls = 0, counted = 0;
  for (std::uint32_t seed = 1; seed <= 3; ++seed) {
    const MadeFirmware made = MakeFirmware(seed);
    const Fullflash image{Bytes(made.bytes)};
    const FunctionList list = GetFunctions(image, noProgress);
    ExpectSound(list, image);
    listed += static_cast<int>(list.All().size());
    for (const MadeFunction& function : made.functions) {
      const Function* const entry = list.Entry(static_cast<Offset>(function.offset));
      called += function.calls > 0;
      named += function.isNamed;
      found += function.calls > 0 && entry;
      foundByName += function.isNamed && entry;
      right += entry != nullptr;
      if (!entry) continue;
      EXPECT_EQ(entry->code.size, static_cast<Offset>(function.size)) << function.offset;
      EXPECT_LE(entry->calls, function.calls) << function.offset;
      calls += function.calls;
      counted += entry->calls;
    }
    for (const MadeReference& reference : made.references) {
      const auto place = static_cast<Offset>(reference.place);
      const bool isKnown = reference.kind == MadeReference::Kind::Call && list.At(place);
      EXPECT_TRUE(!isKnown || list.IsInstruction(place)) << place;
    }
  }
  EXPECT_GE(called, 2000);
  EXPECT_GE(named, 1500);
  EXPECT_GE(found, 0.999 * called);
  EXPECT_GE(foundByName, 0.995 * named);
  EXPECT_GE(right, 0.999 * listed);
  EXPECT_GE(counted, 0.999 * calls);  // a few calls are beside data, in functions that nothing names
}

TEST(Functions, AreNoneOfLargeImages) {
  ImageBuilder image(0x1000010);
  image.Data(0x200, Data{0xDB, 0});
  image.Data(0x300, Data{0x00, 0x02, 0x00, 0x00});
  EXPECT_TRUE(GetFunctions(ImageOf(std::move(image)), noProgress).All().empty());
  for (const std::size_t size : {2u, 3u, 4u, 7u}) {
    const Fullflash small = Erased(size);
    ExpectSound(GetFunctions(small, noProgress), small);
  }
}

// Each takes a moment, however its instructions hang together.
TEST(Functions, OfAnyBytesAreSound) {
  std::mt19937 random(1);
  const auto any = [&] { return static_cast<std::uint32_t>(random()); };
  const auto place = [&] { return any() % 0x100000 & 0xFFFF8; };
  const auto call = [&](std::uint32_t to) { return 0xF0DA + (to >> 16 << 8) + (to << 16); };
  constexpr std::uint8_t usual[] = {0xDB, 0, 0xDA, 0xF0, 0x0D, 0xE6, 0xEA, 0xCC, 0x9C, 2, 4, 0xED};
  const auto byte = [&] { return std::uint32_t{usual[any() % std::size(usual)]}; };
  const std::pair<const char*, std::function<std::uint32_t(std::size_t)>> images[] = {
      {"random", [&](std::size_t) { return any(); }},
      {"returns", [](std::size_t) { return 0x00DB00DBu; }},
      {"calls", [&](std::size_t) { return call(place()); }},
      {"calls and returns", [&](std::size_t p) { return p % 8 == 4 ? 0x00DB00CCu : call(place()); }},
      {"pointers", [&](std::size_t) { return place() + 0xF00000; }},
      {"jumps", [&](std::size_t) { return 0x003D00BBu + (any() & 0xFF00FF00); }},
      {"usual bytes", [&](std::size_t) { return byte() << 24 | byte() << 16 | byte() << 8 | byte(); }}};
  for (const auto& [name, word] : images) {
    SCOPED_TRACE(name);
    ImageBuilder builder(0x100000);
    for (std::size_t p = 0; p < builder.Size(); p += 4) builder.DWord(p, word(p));
    const Fullflash image = ImageOf(std::move(builder));
    ExpectSound(GetFunctions(image, noProgress), image);
  }
}

TEST(Functions, AreListed) {
  const Dump dump{
      ImageOfParts({{0xA0, "DA FF 04 00 DB 00"}, {0x10004, "DB 00"}, {0x300, "A0 00 FE 00"}}), {}, {}};
  const Findings found = functionsExplorer.search(dump, noProgress);
  const Table table = functionsExplorer.rows(dump, found, Messages(), CellRoom::Screen).All();
  EXPECT_EQ(TabSeparated(table, "\n"),
            "N\tOffset\tAddress\tSize\tCalls\tName\n"
            "    0\t0000A0\tFE:00A0\t    6\t   0\t\n"
            "    1\t010004\tFF:0004\t    2\t   1\t\n");
  EXPECT_EQ(functionsExplorer.lines(found, Messages()), "Number of functions: 2\n");
}

}  // namespace
}  // namespace tarvelo
