#include <gtest/gtest.h>

#include "cli/call.h"
#include "core/file.h"
#include "images.h"
#include "temporary_folder.h"

namespace tarvelo::cli {
namespace {

// Two different dumps of 1 MiB, in a temporary folder.
class PatchCommands : public testing::Test {
 protected:
  PatchCommands() {
    std::string bytes(0x100000, '\0');
    one = PathText(folder.Write("one.bin", bytes));
    bytes.replace(0x10, 2, "\x01\x02");
    bytes.replace(0xFFFF0, 16, "0123456789ABCDEF");
    other = PathText(folder.Write("other.bin", bytes));
    longer = PathText(folder.Write("longer.bin", bytes + "xyz"));
    patch = PathText(folder / "a.qpt");
    made = PathText(folder / "made.bin");
  }

  int Call(const std::vector<std::string>& arguments) {
    const Result result = cli::Call(arguments);
    out = result.out;
    err = result.err;
    return result.status;
  }
  int Apply(const std::string& file, std::vector<std::string> more = {}) {
    std::vector<std::string> arguments{"apply", file, patch, "--output", made};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return Call(arguments);
  }

  TemporaryFolder folder;
  std::string one, other, longer, patch, made;
  std::string out, err;
};

TEST_F(PatchCommands, DiffPrintsRanges) {
  EXPECT_EQ(Call({"diff", one, other}), done);
  EXPECT_EQ(out,
            "000010\tF00010\t2\t0000\t0102\n"
            "0FFFF0\tFFFFF0\t16\t0000000000000000...\t3031323334353637...\n");
  EXPECT_EQ(Call({"diff", "--json", "--from-start", longer, one}), done);
  EXPECT_EQ(out,
            "{\"offset\":16,\"address\":15728653,\"length\":2,\"old\":\"0102\",\"new\":\"0000\"}\n"
            "{\"offset\":1048560,\"address\":16777197,\"length\":16,\"old\":\"3031323334353637\","
            "\"new\":\"0000000000000000\"}\n"
            "{\"offset\":1048576,\"address\":16777213,\"length\":3,\"only\":\"FILE\"}\n");
  EXPECT_EQ(Call({"diff", other, longer, "--from-start", "--patch", patch}), done);
  EXPECT_EQ(out, "100000\t1000000\t3\tonly in OTHER\n");
  EXPECT_NE(err.find(patch), std::string::npos);
  EXPECT_EQ(Call({"diff", one, one, "--patch", patch}), nothingFound);
  EXPECT_EQ(out, "");
  EXPECT_NE(err.find(one), std::string::npos);
  EXPECT_EQ(Apply(one), nothingFound);  // its patch contains no change
}

// All dumps of up to 16 MiB end at phone address FFFFFF.
TEST_F(PatchCommands, DiffComparesByPhoneAddress) {
  std::string end(0x80000, '\0');
  end[0x10] = 1;
  const std::string half = PathText(folder.Write("half.bin", end));
  EXPECT_EQ(Call({"diff", one, half, "--patch", patch}), done);
  EXPECT_EQ(out, "000000\tF00000\t524288\tonly in FILE\n080010\tF80010\t1\t00\t01\n");
  EXPECT_NE(ReadAll(patch).find("\r\n080010: 00 01\r\n"), std::string::npos);
  EXPECT_EQ(Call({"diff", half, one}), done);
  EXPECT_EQ(out, "-080000\tF00000\t524288\tonly in OTHER\n000010\tF80010\t1\t01\t00\n");
  EXPECT_EQ(Call({"diff", half, one, "--json"}), done);
  EXPECT_EQ(out,
            "{\"offset\":-524288,\"address\":15728640,\"length\":524288,\"only\":\"OTHER\"}\n"
            "{\"offset\":16,\"address\":16252944,\"length\":1,\"old\":\"01\",\"new\":\"00\"}\n");
  EXPECT_EQ(Call({"diff", half, one, "--from-start"}), done);
  EXPECT_EQ(out, "000010\tF80010\t1\t01\t00\n080000\t1000000\t524288\tonly in OTHER\n");
}

// The phone address of a difference counts from the corrected base: 800000 for this model.
TEST_F(PatchCommands, DiffPrintsCorrectedAddresses) {
  ImageBuilder s45(0x600000);
  PutHeader(s45, "S45");
  const auto before = PathText(folder.Write("s45.bin", ImageBuilder(s45).Take()));
  s45.Byte(0x10, 0);
  EXPECT_EQ(Call({"diff", before, PathText(folder.Write("changed.bin", std::move(s45).Take()))}), done);
  EXPECT_EQ(out, "000010\t800010\t1\tFF\t00\n");
}

TEST_F(PatchCommands, ThePatchOfADiffMakesTheOtherDump) {
  ASSERT_EQ(Call({"diff", one, other, "--patch", patch}), done);
  EXPECT_NE(ReadAll(patch).find("\r\n;other.bin\r\n\r\n000010: 0000 0102\r\n0FFFF0: "), std::string::npos);
  EXPECT_EQ(Apply(one), done);
  EXPECT_EQ(out, "fine 2, applied already 0, mismatch 0, outside 0, invalid 0\n");
  EXPECT_EQ(err, "");
  EXPECT_EQ(ReadAll(made), ReadAll(other));
  RemoveFile(made);
  EXPECT_EQ(Apply(other), nothingFound);
  EXPECT_EQ(err, other + ": it carries " + patch + " already\n");
  EXPECT_FALSE(FileExist(made));
}

TEST_F(PatchCommands, NothingIsWrittenIfALineDoesNotFit) {
  folder.Write("a.qpt", std::string("10: 0102 0304\nr\x1Bubbish\n20: 01 02\n100000: 00 01\n30: 01 00\n"));
  EXPECT_EQ(Apply(other), scanFault);
  const std::string report =
      "2\tinvalid\tr ubbish\n3\tmismatch\t000020\t01\t00\n4\toutside\t100000\t00\n"
      "fine 1, applied already 1, mismatch 1, outside 1, invalid 1\n";
  EXPECT_EQ(out, report);
  EXPECT_NE(err.find(patch + ": 3 of its lines don't fit " + other), std::string::npos) << err;
  EXPECT_FALSE(FileExist(made));

  EXPECT_EQ(Apply(other, {"--force"}), done);
  EXPECT_EQ(out, report);
  EXPECT_EQ(err, patch + ": 3 of its lines don't fit " + other + ", the others were applied\n");
  EXPECT_EQ(ReadAll(made), ReadAll(other).replace(0x10, 2, "\x03\x04"));

  RemoveFile(made);
  for (const char* unfit : {"rubbish\n", "20: 01 02\n", "100000: 00 01\n"}) {  // one line alone
    folder.Write("a.qpt", "10: 0102 0304\n" + std::string(unfit));
    EXPECT_EQ(Apply(other), scanFault) << unfit;
    EXPECT_FALSE(FileExist(made)) << unfit;
  }
  folder.Write("a.qpt", std::string("10: 0A0B 0304\n"));
  EXPECT_EQ(Apply(other, {"--force"}), nothingFound);
  EXPECT_FALSE(FileExist(made));
}

TEST_F(PatchCommands, InputFilesAreNotOverwritten) {
  ASSERT_EQ(Call({"diff", one, other, "--patch", patch}), done);
  const std::map<std::string, std::string> files{
      {"ONE", one}, {"OTHER", other}, {"PATCH", patch},
      {"NONE", ""}, {"MADE", made},   {"SAME", PathText(folder / "." / "a.qpt")}};
  for (const char* call :
       {"apply ONE PATCH --output ONE", "apply ONE PATCH --output SAME", "apply ONE PATCH --output -",
        "apply ONE PATCH", "apply ONE - --output MADE", "diff ONE OTHER --patch OTHER",
        "diff ONE OTHER --patch NONE", "diff ONE", "diff ONE -"})
    EXPECT_EQ(Call(WordsOf(call, files)), wrongArguments) << call;
  EXPECT_EQ(Call({"apply", one, made, "--output", made}), fileTrouble);
  EXPECT_EQ(Call({"diff", one, made}), fileTrouble);
  EXPECT_EQ(Call({"diff", one, other, "--patch", PathText(folder / "no" / "a")}), fileTrouble);
  EXPECT_EQ(Call({"apply", one, patch, "--output", PathText(folder.Path())}), fileTrouble);
}

}  // namespace
}  // namespace tarvelo::cli
