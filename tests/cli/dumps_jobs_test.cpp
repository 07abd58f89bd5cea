#include <gtest/gtest.h>

#include "cli/call.h"
#include "cli/output.h"
#include "core/file.h"
#include "images.h"
#include "temporary_folder.h"

namespace tarvelo::cli {
namespace {

// Two dumps: the first has an EEPROM block, the bytes 12 34 at 100 and a header, the second has none of it.
class SeveralDumps : public testing::Test {
 protected:
  SeveralDumps() {
    ImageBuilder image(0x100000);
    PutHeader(image, "C55");
    PutBlock(image, 0xF8000, 0xFC, 76, 0xF9000, 0x10);
    image.Data(0x100, Data{0x12, 0x34});
    one = PathText(folder.Write("one.bin", std::move(image).Take()));
    two = PathText(folder.Write("two.bin", std::string(0x100000, '\0')));
    missing = PathText(folder / "missing.bin");
  }

  TemporaryFolder folder;
  std::string one, two, missing;
};

TEST_F(SeveralDumps, EachLineNamesItsFile) {
  const Result found = Call({"find", one, two, one, "1234", "--jobs", "3"});
  EXPECT_EQ(found.status, done);
  EXPECT_EQ(found.out, one + "\t  1. 000100: 1234\n" + one + "\t  1. 000100: 1234\n");
  EXPECT_EQ(Call({"find", two, one, "1234", "--json"}).out,
            "{\"path\":" + Json(one).dump() + ",\"offset\":256,\"bytes\":\"1234\"}\n");
  EXPECT_EQ(Call({"find", two, two, "1234"}).status, nothingFound);
  EXPECT_EQ(Call({"find", one, "1234", "--jobs", "0"}).status, wrongArguments);
}

TEST_F(SeveralDumps, CaptionsArePrintedOnce) {
  const std::string single = Call({"list", "eeprom", one}).out;
  const std::size_t header = single.find('\n') + 1;
  const Result both = Call({"list", "eeprom", two, one});
  EXPECT_EQ(both.status, done);
  EXPECT_EQ(both.out, "File\t" + single.substr(0, header) + one + "\t" + single.substr(header));
  const std::string map = Call({"map", one, two}).out;
  EXPECT_TRUE(map.starts_with("File\t")) << map;
  EXPECT_NE(map.find("\n" + two + "\t000000"), std::string::npos) << map;
}

TEST_F(SeveralDumps, OneThatCannotBeReadDoesNotStopTheOthers) {
  const Result result = Call({"list", "eeprom", missing, one});
  EXPECT_EQ(result.status, fileTrouble);
  EXPECT_NE(result.out.find(one + "\t"), std::string::npos);
  EXPECT_NE(result.err.find(missing), std::string::npos);
}

TEST_F(SeveralDumps, APatchIsCheckedAgainstEach) {
  const std::string patch = PathText(folder.Write("a.qpt", std::string(";x\n100: 1234 5678\n")));
  const Result check = Call({"apply", one, two, patch, "--check"});
  EXPECT_EQ(check.status, done);
  EXPECT_NE(check.out.find(one + "\tfits\tC55 v24 FD-02"), std::string::npos) << check.out;
  EXPECT_NE(check.out.find(two + "\tdoes not fit\t"), std::string::npos) << check.out;
  EXPECT_NE(check.out.find(two + "\t2\tmismatch\t000100\t1234\t0000\n"), std::string::npos) << check.out;
  EXPECT_EQ(Call({"apply", two, patch, "--check"}).status, nothingFound);

  const std::string made = PathText(folder / "made.bin");
  EXPECT_EQ(Call({"apply", one, patch, "--output", made}).status, done);
  EXPECT_TRUE(Call({"apply", made, patch, "--check"}).out.starts_with("applied already\tC55"));
  const std::string back = PathText(folder / "back.bin");
  EXPECT_EQ(Call({"apply", "--reverse", made, patch, "--output", back}).status, done);
  EXPECT_TRUE(ReadAll(back) == ReadAll(one));
  EXPECT_EQ(Call({"apply", "--reverse", one, patch, "--output", back}).status, nothingFound);

  EXPECT_EQ(Call({"apply", one, two, patch, "--output", made}).status, wrongArguments);
  EXPECT_EQ(Call({"apply", one, patch}).status, wrongArguments);
  EXPECT_EQ(Call({"apply", one, patch, "--check", "--output", made}).status, wrongArguments);
}

// Overlapping changes are taken out in the reverse order.
TEST_F(SeveralDumps, AReversedPatchBeginsWithItsLastChange) {
  const std::string patch = PathText(folder.Write("a.qpt", std::string("100: 1234 5678\n101: 78FF 9ABC\n")));
  const std::string made = PathText(folder / "made.bin");
  const std::string back = PathText(folder / "back.bin");
  EXPECT_EQ(Call({"apply", one, patch, "--output", made}).status, done);
  EXPECT_EQ(Call({"apply", "--reverse", made, patch, "--output", back}).status, done);
  EXPECT_TRUE(ReadAll(back) == ReadAll(one));
}

}  // namespace
}  // namespace tarvelo::cli
