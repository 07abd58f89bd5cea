// Both firmwares of the demonstration: comparing their code, carrying patches and names.
#include <gtest/gtest.h>

#include "cli/call.h"
#include "core/file.h"
#include "demo_versions.h"
#include "temporary_folder.h"

namespace tarvelo::cli {
namespace {

class Versions : public testing::Test {
 protected:
  Versions()
      : one(PathText(folder.Write("one.bin", PartOfDemo(DemoKind::First)))),
        two(PathText(folder.Write("two.bin", PartOfDemo(DemoKind::Second)))) {}

  TemporaryFolder folder;
  std::string one, two;
};

// The service menu moves by 2400 bytes; melodies and the keypad test are gone, the light can be dimmed.
TEST_F(Versions, DiffListsWhatBecameOfEachFunction) {
  const Result result = Call({"diff", "--code", one, two});
  EXPECT_EQ(result.status, done);
  EXPECT_TRUE(
      result.out.starts_with("State\tOffset\tAddress\tSize\tNew offset\tNew address\tNew size\tEdited\t"
                             "Constants\tName\tNew name\n"));
  for (const char* row : {
           "moved\t314000\tB1:4000\t   14\t316400\tB1:6400\t   14\t   0\t   0\t\t\n",
           "gone\t314038\tB1:4038\t   16\t\t\t\t\t\t\t\n",           // plays melodies
           "moved\t314048\tB1:4048\t    8\t316440\tB1:6440\t    8",  // behind dimming, half as long
           "gone\t314080\tB1:4080\t   20",                           // keypad test
           "moved\t3140BA\tB1:40BA\t   24\t31649E\tB1:649E\t   24\t   0\t   2",    // two displacements
           "changed\t3140D2\tB1:40D2\t   30\t3164B6\tB1:64B6\t   36\t   2\t   2",  // dims at its start
           "new\t\t\t\t316438\tB1:6438\t    8\t\t\t\t\n",                          // dims
       })
    EXPECT_NE(result.out.find("\n" + std::string(row)), std::string::npos) << row;
  const Result json = Call({"diff", "--code", "--json", one, two});
  for (const char* row : {"{\"state\":\"gone\",\"old\":{\"offset\":3227704,\"address\":11616312,\"size\":16,"
                          "\"name\":\"\"},\"new\":null,\"edited\":0,\"constants\":0}\n",
                          "{\"state\":\"new\",\"old\":null,\"new\":{\"offset\":3236920,"})
    EXPECT_NE(json.out.find(row), std::string::npos) << row;
  const Result same = Call({"diff", "--code", one, one});
  EXPECT_EQ(same.status, nothingFound);
  EXPECT_EQ(same.err, one + ": no function differs from those of " + one + "\n");
  EXPECT_EQ(same.out.find("\nmoved"), std::string::npos);
}

TEST_F(Versions, APatchIsCarriedToTheSecondFirmware) {
  const auto patch = folder.Write("own.qpt", std::string(";Light\n314062: 8913 8A13 ; another block\n"
                                                         "3140A9: 41 42\n31408C: E01C E02C\n"
                                                         "314078: DAB11A40 DAB14840\n"));
  const std::string carried = PathText(folder / "carried.qpt");
  const Result result = Call({"port", one, two, PathText(patch), "--output", carried});
  EXPECT_EQ(result.status, nothingFound) << result.err;
  EXPECT_EQ(ReadAll(carried),
            ";Light\r\n31645A: 8913 8A13 ; another block\r\n31648D: 41 42\r\n"
            ";there is no such place in the new dump: 31408C: E01C E02C\r\n"
            "316470: DAB11A64 DAB14064\r\n");  // the call leads to what has moved, too
  EXPECT_EQ(Call({"apply", two, carried, "--check"}).status, done);
}

// The second firmware uses 360000h. Behind it all is erased up to the last 64 KiB, 7F0000h; its middle is
// 5A8080h.
TEST_F(Versions, CodeMovesIntoAnEmptyAreaOnlyIfWanted) {
  std::vector<std::uint8_t> bytes = PartOfDemo(DemoKind::Second);
  std::fill_n(bytes.begin() + 0x360000, 0x100, 0);
  folder.Write("two.bin", bytes);
  const auto patch = PathText(folder.Write(
      "own.qpt", std::string("314078: DAB11A40 DAB60000\n360000: FFFFFFFFFFFFFFFF E00CDAB11A40DB00\n")));
  const std::string where = two + ": in use where " + one + " is empty (360000-360007); ";
  const Result refused = Call({"port", one, two, patch});
  EXPECT_EQ(refused.status, nothingFound);
  EXPECT_EQ(refused.out,
            ";an address in the new bytes could not be carried over: 314078: DAB11A40 DAB60000\r\n"
            ";the new dump is not empty there: 360000: FFFFFFFFFFFFFFFF E00CDAB11A40DB00\r\n");
  EXPECT_TRUE(refused.err.starts_with(where + "--move-areas would carry that to 5B0000-5B0007\n"));
  const Result moved = Call({"port", one, two, patch, "--move-areas"});
  EXPECT_EQ(moved.status, done);
  EXPECT_EQ(moved.out, "316470: DAB11A64 DADB0000\r\n5B0000: FFFFFFFFFFFFFFFF E00CDAB11A64DB00\r\n");
  EXPECT_EQ(moved.err, where + "carried to 5B0000-5B0007\n");
}

// A function, a place in one, a text, a variable in RAM, a register, and a function that is gone.
TEST_F(Versions, NamesAreCarried) {
  folder.Write("one.names.tsv", std::string("B14094\tOnKey\tup, down, choose\r\nB140B0\tChoose\r\n"
                                            "B14038\tPlayMelody\r\nFE10\tCP\r\n8240\tmenuItem\r\n"
                                            "B401B9\t\tBattery test\r\n"));
  const Result result = Call({"names", two, "--from", one});
  EXPECT_EQ(result.status, done);
  EXPECT_EQ(result.out,
            "00FE10\tCP\nB16478\tOnKey\tup, down, choose\nB16494\tChoose\nB425B9\t\tBattery test\n");
  EXPECT_EQ(result.err, one + ": 008240: menuItem: there is no such place in the new dump\n" + one +
                            ": B14038: PlayMelody: there is no such place in the new dump\n");
  EXPECT_TRUE(
      Call({"names", two, "--from", one, "--json"})
          .out.starts_with("{\"name\":\"CP\",\"comment\":\"\",\"old_address\":65040,\"address\":65040,"
                           "\"offset\":null}\n"));
  EXPECT_EQ(Call({"names", one, "--from", two}).status, nothingFound);
}

TEST_F(Versions, TheSecondFirmwareIsWritten) {
  EXPECT_EQ(Call({"demo", two, "--version", "2"}).status, done);
  const std::vector<std::uint8_t> image = DemoImage(DemoKind::Second);
  EXPECT_TRUE(ReadAll(two) == std::string(image.begin(), image.end()));
}

TEST_F(Versions, ContradictingArgumentsAreRefused) {
  for (const char* call :
       {"diff --code --from-start ONE TWO", "diff --code ONE TWO --patch NEW", "demo NEW --version 2 --large",
        "demo NEW --version 3", "names TWO", "names TWO ONE --from ONE"})
    EXPECT_EQ(Call(WordsOf(call, {{"ONE", one}, {"TWO", two}, {"NEW", one + "x"}})).status, wrongArguments)
        << call;
}

}  // namespace
}  // namespace tarvelo::cli
