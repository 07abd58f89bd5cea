#include "cli/commands.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "cli/call.h"
#include "core/file.h"
#include "eeprom/block_store.h"
#include "images.h"
#include "temporary_folder.h"

namespace tarvelo::cli {
namespace {

// A dump of 1 MiB with a header, in a temporary folder.
class CommandLine : public testing::Test {
 protected:
  CommandLine() {
    ImageBuilder builder(0x100000);
    builder.Fill(0, 0x70000, 0);
    PutHeader(builder, "C55");
    builder.Data(0x10, Data{0xD0, 0x90, 0x41, 0x00});
    dump = Dump("dump.bin", std::move(builder));
    missing = PathText(folder / "missing.bin");
    empty = PathText(folder.Write("empty.bin", std::string()));
    book = PathText(folder.Write("book.adr", std::string("\x34\x12\101BC\0DE", 8)));
  }

  [[nodiscard]] std::string Dump(const char* name, ImageBuilder image) const {
    return PathText(folder.Write(name, std::move(image).Take()));
  }

  // Makes the demonstration fullflash.
  std::string Demo() {
    const std::string file = PathText(folder / "demo.bin");
    EXPECT_EQ(Call({"demo", file}).status, done);
    return file;
  }

  TemporaryFolder folder;
  std::string dump, missing, empty, book;
};

auto Lines(const std::string& text) { return std::ranges::count(text, '\n'); }

// Expects a single line that names the file.
void ExpectDiagnosis(const Result& result, int status, const std::string& file) {
  EXPECT_EQ(result.status, status) << result.err;
  EXPECT_EQ(Lines(result.err), 1) << result.err;
  EXPECT_NE(result.err.find(file), std::string::npos) << result.err;
}

void ExpectPrinted(const std::vector<std::string>& arguments, const std::string& part) {
  const std::string out = Call(arguments).out;
  EXPECT_NE(out.find(part), out.npos) << out;
}

TEST_F(CommandLine, InfoPrintsSummariesInOrder) {
  const Result one = Call({"info", dump});
  EXPECT_EQ(one.status, done);
  EXPECT_TRUE(one.out.starts_with("Fullflash: " + dump + "\nSize: 100000 ")) << one.out;
  EXPECT_EQ(Call({"info", dump, dump}).out, one.out + "\n" + one.out);
  EXPECT_NE(Call({"--language", "RU", "info", dump}).out, one.out);
  EXPECT_EQ(Call({"info", dump, "--language", "ru"}).out, Call({"--language", "RU", "info", dump}).out);
}

TEST_F(CommandLine, InfoDescribesTheT9AreaAndKeepsControlCharactersInJsonOnly) {
  ImageBuilder builder(0x100000);
  PutHeader(builder, "C55");
  builder.Text(0x7FF60, "\x1B[31m");
  builder.Fill(0x20000, 0x8000, 0x11);
  builder.DWord(builder.Text(0x20000, "T9") + 1, 0x6000);
  builder.Byte(0x20008, 3);
  const std::string file = Dump("t9.bin", std::move(builder));
  ExpectPrinted({"info", "--json", file}, "\"header_text\":\"\\u001b[31m\"");
  ExpectPrinted({"info", "--json", file},
                "\"t9\":{\"base\":131072,\"size\":24576,\"full\":65536,\"free\":163840,\"empty\":32768,"
                "\"languages\":3}");
  ExpectPrinted({"info", file}, "Firmware 24 .[31m\n");
}

TEST_F(CommandLine, InfoGoesOnAfterAFileThatFails) {
  const Result result = Call({"info", missing, dump, "--json"});
  ExpectDiagnosis(result, fileTrouble, missing);
  EXPECT_TRUE(result.out.starts_with("{\"path\":\"")) << result.out;
  EXPECT_TRUE(result.out.ends_with(
      "dump.bin\",\"size\":1048576,\"load_base\":15728640,\"corr_base\":15728640,\"page_mode\":true,"
      "\"model\":\"C55\",\"family\":7,\"sig_pos\":524032,\"version\":\"24\",\"header_text\":\"FD-02\","
      "\"t9\":null,\"empty_blocks\":\", 08 - 0F\"}\n"))
      << result.out;
}

TEST_F(CommandLine, LargeImagesHoldNoFunctions) {
  const std::string file = PathText(folder / "large.bin");
  EXPECT_EQ(Call({"demo", file, "--large"}).status, done);
  const Result result = Call({"list", "functions", file});
  ExpectDiagnosis(result, nothingFound, file);
  EXPECT_NE(result.err.find("no C166 code"), std::string::npos) << result.err;
  EXPECT_EQ(result.out, "N\tOffset\tAddress\tSize\tCalls\tName\n");
}

TEST_F(CommandLine, FilesThatCannotBeReadEndWithThree) {
  for (const auto& file : {missing, empty, PathText(folder.Path())}) {
    ExpectDiagnosis(Call({"info", file}), fileTrouble, file);
    ExpectDiagnosis(Call({"decode", "GetStr", file, "0"}), fileTrouble, file);
    ExpectDiagnosis(Call({"decode", "WordA", file, "0"}), fileTrouble, file);
  }
  const std::string unwritable = PathText(folder / "no folder" / "demo.bin");
  ExpectDiagnosis(Call({"demo", unwritable}), fileTrouble, unwritable);
}

TEST_F(CommandLine, DecodePrintsUnitsTextAndEnd) {
  const std::pair<std::vector<std::string>, const char*> cases[] = {
      {{"GetSiem", dump, "0x10"}, "{\"units\":[1040,65],\"text\":\"АA\",\"end\":19,\"fault\":false}\n"},
      {{"GetStr", dump, "7ff70"}, "{\"units\":[67,53,53],\"text\":\"C55\",\"end\":524144,\"fault\":false}\n"},
      {{"WordA", book, "0"}, "{\"value\":4660,\"end\":0,\"fault\":false}\n"},
      {{"GetStrA", book, "2"}, "{\"units\":[65,66,67],\"text\":\"ABC\",\"end\":2,\"fault\":false}\n"},
      {{"GetStrA", book, "2", "--width", "1"}, "{\"units\":[65],\"text\":\"A\",\"end\":2,\"fault\":false}\n"},
  };
  for (auto [arguments, out] : cases) {
    arguments.insert(arguments.begin(), "decode");
    EXPECT_EQ(Call(arguments).out, out);
  }
}

TEST_F(CommandLine, DecodePrintsLongTextsAndEscapes) {
  // A pair of surrogates around unit 0x1000, where a piece of the output would end.
  ImageBuilder builder(0x4000);
  std::string units, text;
  for (std::size_t i = 0; i < 0xFFF; ++i) {
    builder.Word(2 * i, 'A');
    units += "65,";
    text += 'A';
  }
  std::size_t at = 2 * 0xFFF;
  for (const std::uint16_t unit : {0xD83D, 0xDE00, 0xD83D, 0x22, 0x5C, 0x0A, 0x01, 0x7F})
    at = builder.Word(at, unit);
  const std::string file = Dump("units.bin", std::move(builder));
  EXPECT_EQ(Call({"decode", "GetUniFF", file, "0"}).out,
            "{\"units\":[" + units + "55357,56832,55357,34,92,10,1,127],\"text\":\"" + text +
                "\U0001F600\uFFFD\\\"\\\\\\n\\u0001\x7F\",\"end\":8206,\"fault\":false}\n");
}

TEST_F(CommandLine, DecodePrintsAFaultAndEndsWithFour) {
  const Result past = Call({"decode", "GetUniFF", dump, "100000"});
  EXPECT_EQ(past.out, "{\"units\":[],\"text\":\"\",\"end\":1048576,\"fault\":true}\n");
  ExpectDiagnosis(past, scanFault, dump);
  const Result word = Call({"decode", "WordA", book, "7"});
  EXPECT_EQ(word.out, "{\"value\":null,\"end\":7,\"fault\":true}\n");
  ExpectDiagnosis(word, scanFault, book);
}

TEST(Encode, PrintsUpperCaseHexadecimal) {
  EXPECT_EQ(Call({"encode", "AА"}).out, "95419B10\n");
  EXPECT_EQ(Call({"encode", ""}).out, "\n");
  EXPECT_EQ(Call({"encode", "[a,b]"}).out, "955B612C625D\n");
  EXPECT_EQ(Call({"encode", "--", "-a"}).out, "952D61\n");
  EXPECT_EQ(Call({"encode", "--", "--json"}).out, "952D2D6A736F6E\n");
  EXPECT_EQ(Call({"encode", "中"}).status, scanFault);
}

TEST(Address, TakesOneOfThreeForms) {
  const std::string middle = "{\"Page\":\"284\",\"Offs\":\"2345\",\"Addr\":\"A12345\",\"AdFF\":\"212345\"}\n";
  const std::string low = "{\"Page\":\"0\",\"Offs\":\"10\",\"Addr\":\"10\",\"AdFF\":\"10\"}\n";
  const std::pair<std::vector<std::string>, std::string> cases[] = {
      {{"--base", "800000", "--page", "284", "--offs", "0x2345"}, middle},
      {{"--base", "800000", "--page", "283", "--offs", "6345"}, middle},  // the offset carries into the page
      {{"--base", "0x800000", "--addr", "a12345"}, middle},
      {{"--base", "800000", "--addr", "1A12345"}, middle},  // only the low 24 bits count
      {{"--adff", "212345", "--base", "800000"}, middle},
      {{"--offs", "10"}, low},
      {{"--adff", "10", "--base", "A0000000"}, low},
      {{"--base", "", "--adff", "10"}, low},
      {{"--adff", "700010", "--base", "-700000"},
       "{\"Page\":\"0\",\"Offs\":\"10\",\"Addr\":\"10\",\"AdFF\":\"700010\"}\n"},
      {{"--base", "800000", "--addr", "1000"},  // below the base
       "{\"Page\":\"0\",\"Offs\":\"1000\",\"Addr\":\"1000\",\"AdFF\":\"801000\"}\n"},
  };
  for (auto [arguments, out] : cases) {
    arguments.insert(arguments.begin(), "address");
    EXPECT_EQ(Call(arguments).out, out) << testing::PrintToString(arguments);
  }
}

TEST_F(CommandLine, ListsPrintTheirCaptionsWithoutARow) {
  const Result pictures = Call({"list", "pictures", dump});
  EXPECT_EQ(pictures.status, nothingFound);
  EXPECT_EQ(pictures.out, "P\tN/P\tN\tX\tY\tB\tOffset\tSize\tUncomp\tPIT\n");
  EXPECT_EQ(Call({"list", "eeprom", dump}).out, "Block\tDescription\tEIT\tV\tOffset\tSize\ti\t-\n");
  EXPECT_EQ(Call({"list", "pictures", "--json", dump}).out, "");
  EXPECT_EQ(Call({"export", "pictures", dump}).status, nothingFound);
  ExpectDiagnosis(Call({"list", "eeprom", missing}), fileTrouble, missing);
}

TEST_F(CommandLine, ListsAndExportsTheDemonstrationsPicturesAndRingtones) {
  const std::string demo = Demo();
  const Result list = Call({"list", "pictures", "--json", demo});
  EXPECT_EQ(list.out.substr(0, list.out.find('\n')),
            "{\"P\":\"1\",\"N/P\":\"000\",\"N\":\"   0\",\"X\":\"  4\",\"Y\":\"  4\",\"B\":\" 1\","
            "\"Offset\":\"280000\",\"Size\":\"    4\",\"Uncomp\":\"\",\"PIT\":\"200000\"}");
  EXPECT_GT(Lines(list.out), 200);
  const auto to = folder / "out" / "of";
  const auto one =
      Call({"export", "pictures", demo, "--number", "0", "--to", PathText(to), "--format", "png"});
  EXPECT_EQ(one.out, PathText(to / "demo_0000.png") + "\n");
  EXPECT_EQ(ReadAll(to / "demo_0000.png").substr(0, 4), "\x89PNG");
  EXPECT_EQ(Lines(Call({"export", "pictures", demo}).out), Lines(list.out));
  EXPECT_TRUE(FileExist(folder / "BMP" / "demo_0000.bmp"));
  EXPECT_EQ(Call({"export", "pictures", demo, "--number", "9999"}).status, nothingFound);

  EXPECT_EQ(Lines(Call({"list", "ringtones", demo}).out), 1 + 16);
  const Result raw = Call({"export", "ringtones", demo, "--number", "0x2"});
  EXPECT_EQ(raw.out, PathText(folder / "MIDI" / "demo_0002.bin") + "\n");
  EXPECT_EQ(Lines(Call({"export", "ringtones", demo, "--format", "midi"}).out), 15);  // all but the WAVE file
  const Result wave = Call({"export", "ringtones", demo, "--number", "7", "--format", "midi"});
  EXPECT_EQ(wave.status, nothingFound);
  EXPECT_EQ(wave.out, "");
}

TEST_F(CommandLine, MapsDumps) {
  const Result text = Call({"map", dump});
  EXPECT_EQ(text.status, done);
  EXPECT_EQ(text.out,
            "Offset\tAddress\tSize\tWhat\tSure\n"
            "000000\tF00000\t  458752\tunknown\t\n"
            "070000\tF70000\t   65280\terased\tlikely\n"
            "07FF00\tF7FF00\t     256\tfirmware header\tcertain\n"
            "080000\tF80000\t  524288\tempty blocks\tcertain\n");
  const Result json = Call({"map", "--json", dump});
  EXPECT_EQ(json.out.substr(0, json.out.find('\n')),
            "{\"offset\":0,\"address\":15728640,\"size\":458752,\"kind\":\"unknown\",\"number\":null,"
            "\"source\":null,\"sure\":\"\"}");
  ExpectDiagnosis(Call({"map", missing}), fileTrouble, missing);
}

TEST_F(CommandLine, ListsAndExportsTheDemonstrationsBlocks) {
  const std::string demo = Demo();
  EXPECT_EQ(Lines(Call({"list", "eeprom", demo}).out), 1 + 241);
  EXPECT_EQ(Lines(Call({"list", "eeprom", "--deleted", demo}).out), 1 + 367);
  const Result one = Call({"export", "eeprom", demo, "--number", "5076"});
  EXPECT_EQ(one.out, PathText(folder / "EEPROM" / "demo_5076.bin") + "\n");
  EXPECT_EQ(ReadAll(folder / "EEPROM" / "demo_5076.bin").size(), 66u);
  const std::string to = PathText(folder / "out");
  const Result all = Call({"export", "eeprom", demo, "--deleted", "--number", "5076", "--to", to, "--json"});
  EXPECT_EQ(Lines(all.out), 3);
  EXPECT_TRUE(all.out.starts_with("{\"number\":5076,\"deleted\":true,\"header\":7914204,")) << all.out;
  EXPECT_GT(Lines(Call({"export", "eeprom", demo, "--to", to}).out), 200);
  EXPECT_EQ(Call({"export", "eeprom", demo, "--number", "5999"}).status, nothingFound);
}

TEST_F(CommandLine, FindsPatterns) {
  EXPECT_EQ(Call({"find", dump, "5349??4D,45 4e"}).out, "  1. 07FF80: 5349454D454E\n");
  // Two bytes are a dump; a hit at its very beginning counts as none.
  EXPECT_EQ(Call({"find", PathText(folder.Write("two.bin", std::string("\x12\x34"))), "1234"}).status,
            nothingFound);
  EXPECT_EQ(Call({"find", dump, "--json", "43 35 35"}).out, "{\"offset\":524144,\"bytes\":\"433535\"}\n");
  for (const char* pattern : {"e6,g1", "123456", " "}) {
    const Result result = Call({"find", dump, pattern});
    EXPECT_EQ(result.status, nothingFound);
    EXPECT_EQ(result.out, "");
  }
  EXPECT_EQ(Call({"find", dump, "e6,g1"}).err, "String \"E6,G1\" wasn't found\n");
}

TEST_F(CommandLine, TooManyBlocksAreAFault) {
  ImageBuilder builder(0x10000);
  for (std::size_t i = 0; i < 2001; ++i) PutBlock(builder, i * 12, liveBlockState, 1, 0, 4);
  const std::string full = Dump("full.bin", std::move(builder));
  EXPECT_EQ(Call({"list", "eeprom", full}).out, "");
  ExpectDiagnosis(Call({"list", "eeprom", full}), scanFault, full);
  ExpectDiagnosis(Call({"map", full}), scanFault, full);
  ExpectDiagnosis(Call({"export", "eeprom", full}), scanFault, full);
}

// The argument parser gives these a meaning of its own.
TEST_F(CommandLine, WordsStandAsTheyAre) {
  for (const std::string name : {"[a]", "[a,b]", "[]", "{}", "%%", "++"})
    ExpectDiagnosis(Call({"info", name}), fileTrouble, ": " + name + ":");
  ExpectDiagnosis(Call({"info", "--json", dump, "++"}), fileTrouble, "++");
  EXPECT_EQ(Call({"encode", "++"}).out, "952B2B\n");
  EXPECT_EQ(Call({"export", "pictures", Demo(), "--number", "99999999999"}).status, nothingFound);
}

TEST_F(CommandLine, WrongArgumentsEndWithTwoAndOneLine) {
  std::vector<std::vector<std::string>> calls{{"no\nsense"},
                                              {"find", dump, ""},
                                              {"info", "--jobs", "", dump},
                                              {"export", "ringtones", dump, "--number", ""}};
  const std::pair<const char*, std::vector<const char*>> wrong[] = {
      {"", {"", "nonsense"}},
      {"info",
       {"", "-", "DUMP -", "--frobnicate DUMP", "DUMP --language XX", "--jobs 0 DUMP", "--jobs -1 DUMP"}},
      {"decode", {"GetFoo DUMP 0", "GetStr DUMP", "GetStr DUMP xyz"}},
      {"decode GetStrA BOOK 0", {"--width -1", "--width 0x10"}},
      {"encode", {"", "a b"}},
      {"address", {"--base 10", "--addr 1 --adff 1", "--page G", "--addr"}},
      {"address", {"--base -80000001 --addr 1", "--base --addr 1"}},
      {"demo", {"", "-"}},
      {"export eeprom DUMP", {"--number 0x10", "--format bmp"}},
  };
  for (const auto& [command, rests] : wrong)
    for (const std::string rest : rests)
      calls.push_back(WordsOf(command + (" " + rest), {{"DUMP", dump}, {"BOOK", book}}));
  for (const auto& call : calls) {
    SCOPED_TRACE(testing::PrintToString(call));
    const Result result = Call(call);
    EXPECT_EQ(result.status, wrongArguments);
    EXPECT_EQ(Lines(result.err), 1) << result.err;
    EXPECT_EQ(result.out, "");
  }
}

TEST(Version, IsPrinted) { EXPECT_TRUE(Call({"--version"}).out.starts_with("Tarvelo v")); }

}  // namespace
}  // namespace tarvelo::cli
