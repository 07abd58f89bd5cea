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
// With more bytes in front, its addresses stay the same.
Fullflash ImageOfParts(const Parts& parts, std::size_t more = 0) {
  ImageBuilder image(0x20000 + more);
  for (const auto& [at, digits] : parts) image.Data(at + more, *ReadHex(digits));
  return ImageOf(std::move(image));
}

void ExpectSound(const FunctionList& list, const Fullflash& image) { ASSERT_EQ(FaultOf(list, image), ""); }

// "offset size calls, " of each function; the offset in hexadecimal, from the first of the parts' on.
std::string Listed(const Parts& parts, int more = 0) {
  const Fullflash image = ImageOfParts(parts, static_cast<std::size_t>(more));
  const FunctionList list = GetFunctions(image, noProgress);
  ExpectSound(list, image);
  std::ostringstream text;
  for (const Function& function : list.All())
    text << std::hex << function.code.offset - more << std::dec << ' ' << function.code.size << ' '
         << function.calls << ", ";
  return text.str();
}

struct FunctionCase {
  const char* name;
  Parts parts;
  const char* listed;
};

// 28 bytes.
const char* const nops = "CC00 CC00 CC00 CC00 CC00 CC00 CC00 CC00 CC00 CC00 CC00 CC00 CC00 CC00";

TEST(Functions, AreNamedByCallsAndTables) {
  const FunctionCase cases[] = {
      {"CALLS", {{0x100, "DAFE0002 DB00"}, {0x200, "CC00 DB00"}}, "200 4 1, "},
      {"CALLS to an odd place", {{0x100, "DAFE0102 DB00"}, {0x200, "CC00 DB00"}}, ""},
      {"CALLS out of the image", {{0x100, "DA000002 DB00"}, {0x200, "CC00 DB00"}}, ""},
      {"JMPS", {{0x100, "FAFE0002"}, {0x200, "DB00"}}, "200 2 0, "},
      {"pointer", {{0x300, "0002 FE00"}, {0x200, "CC00 DB00"}}, "200 4 0, "},
      {"pointer to an odd place", {{0x300, "0102 FE00"}, {0x200, "CC00 DB00"}}, ""},
      {"page pointer", {{0x300, "0002 F803"}, {0x200, "CC00 DB00"}}, ""},
      {"pointer inside code",
       {{0x300, "0001 FE00"}, {0x100, "E6F5FE00 DB00"}, {0xF5E6, "DB00"}},
       "100 6 0, "},
      {"two MOVs",
       {{0x300, "0001 FE00"}, {0x100, "E6FC0002 E6FDFE00 DB00"}, {0x200, "DB00"}},
       "100 10 0, 200 2 0, "},
      {"MOVs of other registers",
       {{0x300, "0001 FE00"}, {0x100, "E6FC0002 E6FEFE00 DB00"}, {0x200, "DB00"}},
       "100 10 0, "},
      {"CALLR", {{0x300, "0001 FE00"}, {0x100, "BB7F DB00"}, {0x200, "DB00"}}, "100 4 0, 200 2 1, "},
      {"CALLA", {{0x300, "0001 FE00"}, {0x100, "CA200002 DB00"}, {0x200, "DB00"}}, "100 6 0, 200 2 1, "},
      {"PCALL", {{0x300, "0001 FE00"}, {0x100, "E2F40002 DB00"}, {0x200, "EBF4"}}, "100 6 0, 200 2 1, "},
      {"itself", {{0x100, "DAFE0001 DB00"}}, "100 6 1, "},
      {"one call into code", {{0x100, "DAFE0002 DB00"}, {0x1E4, nops}, {0x200, "DB00"}}, ""},
      {"two calls into code",
       {{0x100, "DAFE0002 DB00"}, {0x140, "DAFE0002 DB00"}, {0x1E4, nops}, {0x200, "DB00"}},
       "200 2 2, "},
      {"one call, behind data", {{0x100, "DAFE0002 DB00"}, {0x1FC, "8C00 8C00 DB00"}}, "200 2 1, "},
      {"one call in data, behind data", {{0xFC, "8C00 8C00 DAFE0002 8C00"}, {0x1FC, "8C00 8C00 DB00"}}, ""},
      {"pointer, behind data", {{0x300, "0002 FE00"}, {0x1FC, "8C00 8C00 DB00"}}, ""},
      {"table, one behind data",
       {{0x300, "0001 FE00 0002 FE00 8001 FE00"},
        {0x100, "DB00"},
        {0x180, "DB00"},
        {0x1FC, "8C00 8C00 DB00"}},
       "100 2 0, 180 2 0, 200 2 0, "},
      {"behind a return within a function", {{0x300, "0402FE00"}, {0x200, "2D01 DB00 CC00 DB00"}}, ""},
      {"two entries",
       {{0x300, "0001 FE00 0002 FE00"}, {0x100, "DAFE0202 DB00"}, {0x200, "CC00 CC00 DB00"}},
       "100 6 0, 200 2 0, 202 4 1, "},
      {"code that is shared",
       {{0x300, "0001 FE00 0002 FE00"}, {0x100, "EA000602"}, {0x200, "CC00 DB00 CC00 DB00"}},
       "100 4 0, 200 4 0, "},
  };
  for (const FunctionCase& each : cases)
    for (const int more : {0, 1}) EXPECT_EQ(Listed(each.parts, more), each.listed) << each.name << more;
}

TEST(Functions, BeginBehindAnEnd) {
  const struct {
    const char* front;  // up to 0x200
    bool isEnd;
  } cases[] = {{"CC00 DB00", true},  {"CC00 FB88", true}, {"CC00 CB00", true},  {"CC00 EBF4", true},
               {"FA000010", true},   {"B748B7B7", true},  {"FFFF FFFF", true},  {"0000 0000", true},
               {"DB00 FFFF", true},  {"DB00 0000", true}, {"CC00 0000", false}, {"CC00 CC00", false},
               {"CC00 0D10", false}, {"EA004002", false}, {"CC00 9C04", false}, {"E6F4DB00", false},
               {"DA00DB00", false},  {"CC00 DB01", false}};
  for (const auto& [front, isEnd] : cases)
    EXPECT_EQ(Listed({{0x300, "0002 FE00"}, {0x1E0, nops}, {0x1FC, front}, {0x200, "CC00 DB00"}}),
              isEnd ? "200 4 0, " : "")
        << front;
}

TEST(Functions, HaveACleanFlow) {
  const FunctionCase cases[] = {
      {"reserved", {{0x200, "8C00 DB00"}}, ""},
      {"reserved behind a branch", {{0x200, "2D01 DB00 8C00"}}, ""},
      {"reserved behind an end", {{0x200, "DB00 8C00"}}, "200 2 0, "},
      {"a word of FF", {{0x200, "CC00 FFFF DB00"}}, "200 6 0, "},
      {"two words of FF", {{0x200, "CC00 FFFF FFFF DB00"}}, ""},
      {"two words of 00", {{0x200, "CC00 0000 0000 DB00"}}, ""},
      {"filling behind a call", {{0x200, "CC00 DA000010"}}, "200 6 0, "},
      {"a loop", {{0x200, "CC00 0DFE"}}, "200 4 0, "},
      {"a loop that begins at its end", {{0x200, "0D02 CC00 CC00 4841 2DFC DB00"}}, "200 12 0, "},
      {"into the middle of an instruction", {{0x200, "2D01 E6F4DB00 DB00"}}, ""},
      {"over the start of an instruction", {{0x200, "0D02 CC00 E6F42DFE DB00"}}, ""},
      {"to an odd place", {{0x200, "EA200902 DB00 FFFF FFDB 00"}}, ""},
      {"far to an odd place", {{0x200, "FAFE0902 00FF FFDB 00DB 00"}}, "200 4 0, "},
      {"JMPA over data", {{0x200, "EA000802 8C00 8C00 DB00"}}, "200 10 0, "},
      {"conditional JMPA", {{0x200, "EA200802 DB00 8C00 DB00"}}, "200 10 0, "},
      {"JMPI", {{0x200, "9C04 8C00"}}, "200 2 0, "},
      {"conditional JMPI", {{0x200, "9C24 DB00"}}, "200 4 0, "},
      {"JNB", {{0x200, "9A100120 DB00 DB00"}}, "200 8 0, "},
      {"in front of the entry", {{0x200, "2DFD DB00"}}, "200 4 0, "},
  };
  for (const FunctionCase& each : cases) {
    Parts parts = each.parts;
    parts.push_back({0x300, "0002 FE00"});
    EXPECT_EQ(Listed(parts), each.listed) << each.name;
  }
}

TEST(Functions, EndWithTheirSegment) {
  const FunctionCase cases[] = {
      {"up to the border", {{0x300, "FCFF FE00"}, {0xFFFC, "CC00 DB00 DB00"}}, "fffc 4 0, "},
      {"on behind it", {{0x300, "FCFF FE00"}, {0xFFFC, "CC00 CC00 DB00"}}, ""},
      {"an instruction across it", {{0x300, "FCFF FE00"}, {0xFFFC, "CC00 E6F40000 DB00"}}, ""},
      {"a jump across it", {{0x300, "FCFF FE00"}, {0xFFFC, "CC00 EA00FCFF"}}, ""},
      {"behind it", {{0x300, "0000 FF00"}, {0xFFFC, "CC00 CC00 DB00"}}, "10000 2 0, "},
      {"up to the image's end", {{0x300, "FCFF FF00"}, {0x1FFFC, "CC00 DB00"}}, "1fffc 4 0, "},
      {"on behind the image", {{0x300, "FCFF FF00"}, {0x1FFFC, "CC00 CC00"}}, ""},
      {"a call across it",
       {{0x300, "F0FF FE00"}, {0xFFF0, "BB17 DB00"}, {0x20, "DB00"}},
       "20 2 1, fff0 4 0, "},
  };
  for (const FunctionCase& each : cases) EXPECT_EQ(Listed(each.parts), each.listed) << each.name;
}

// A function with a switch of three cases; the default is in front of it. With its cases it has 30 bytes.
TEST(Functions, HoldTheCasesOfTheirSwitches) {
  const Parts usual{{0x300, "0002 FE00"},     {0x200, "0D01 DB00"},
                    {0x204, "46F40200 EDFC"}, {0x20A, "5C14 06F41000 A844 9C04"},
                    {0x214, "CC00 DB00"},     {0x218, "CC00 DB00 DB00"},
                    {0x4010, "14021802 1C02"}};
  const struct {
    const char* name;
    Parts instead;
    bool isFound;
  } cases[] = {{"usual", {}, true},
               {"other order", {{0x4010, "1C02 1802 1402"}}, true},
               {"other registers", {{0x205, "F5"}, {0x20A, "5C15 06F51000 A875 9C07"}}, true},
               {"short CMP", {{0x204, "CC00 4842"}}, true},
               {"CMP of another register", {{0x205, "F5"}}, false},
               {"ULE", {{0x208, "FD"}}, false},
               {"shift by 2", {{0x20B, "24"}}, false},
               {"SUB", {{0x20C, "26"}}, false},
               {"jump by another register", {{0x211, "54"}}, false},
               {"odd case", {{0x4012, "19"}}, false},
               {"case in front of the function", {{0x4012, "F801"}}, false},
               {"no case behind JMPI", {{0x4010, "1C"}}, false}};
  for (const auto& [name, instead, isFound] : cases)
    for (const char* load : {"E600F903", "E600FA03"}) {  // the table's page, or another one
      Parts parts = usual;
      parts.push_back({0x100, load});
      parts.insert(parts.end(), instead.begin(), instead.end());
      EXPECT_EQ(Listed(parts), isFound ? "200 30 0, " : "200 20 0, ") << name << ' ' << load;
    }
  for (const char* read : {"06F41000 D740F903 A844", "06F41040 D700FE00 A844"}) {
    const Parts parts{{0x300, "0002 FE00"},
                      {0x200, "0D01 DB00 4841 EDFD 5C14"},
                      {0x20A, read},
                      {0x214, "9C04 CC00 DB00 DB00"},
                      {0x4010, "16021A02"}};
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
