#include <gtest/gtest.h>

#include <algorithm>

#include "cli/call.h"
#include "core/file.h"
#include "images.h"
#include "temporary_folder.h"

namespace tarvelo::cli {
namespace {

// A dump of 8 MiB, which begins at 80:0000, with two functions: at 6A one that the other calls.
class CodeCommands : public testing::Test {
 protected:
  CodeCommands() {
    ImageBuilder builder(0x800000);
    builder.Data(0x6A, Data{0xA8, 0x45, 0xDB, 0x00});
    builder.Data(0x7C, Data{0xDA, 0x80, 0x6A, 0x00, 0xD7, 0x40, 0x00, 0x02, 0xF2, 0xF4, 0x6A, 0x40, 0xF2,
                            0xF4, 0x6A, 0x00, 0xDB, 0x00});
    dump = PathText(folder.Write("dump.bin", std::move(builder).Take()));
  }

  TemporaryFolder folder;
  std::string dump;
};

TEST_F(CodeCommands, DisasmPrintsInstructions) {
  EXPECT_EQ(Call({"disasm", dump, "7C", "--count", "3"}).out,
            "00007C\t80:007C\tDA806A00\tCALLS 80h, 6Ah\n"
            "000080\t80:0080\tD7400002\tEXTP #200h, #1\n"
            "000084\t80:0084\tF2F46A40\tMOV R4, 406Ah\n");
  EXPECT_EQ(Call({"disasm", dump, "0x7c", "--json", "--count", "5"}).out,
            R"({"offset":124,"address":8388732,"bytes":"DA806A00","mnemonic":"CALLS",)"
            R"("operands":["80h","6Ah"],"target":8388714})"
            "\n"
            R"({"offset":128,"address":8388736,"bytes":"D7400002","mnemonic":"EXTP",)"
            R"("operands":["#200h","#1"],"target":null})"
            "\n"
            R"({"offset":132,"address":8388740,"bytes":"F2F46A40","mnemonic":"MOV",)"
            R"("operands":["R4","406Ah"],"target":8388714})"
            "\n"
            R"({"offset":136,"address":8388744,"bytes":"F2F46A00","mnemonic":"MOV",)"
            R"("operands":["R4","6Ah"],"target":null})"
            "\n"
            R"({"offset":140,"address":8388748,"bytes":"DB00","mnemonic":"RETS","operands":[],"target":null})"
            "\n");
  // In front of OFFSET nothing counts: the EXTP at 80 is not printed, so its range does not begin.
  EXPECT_NE(Call({"disasm", dump, "84", "--json", "--count", "1"}).out.find("\"target\":null"),
            std::string::npos);
  const std::string all = Call({"disasm", dump}).out;
  EXPECT_EQ(std::ranges::count(all, '\n'), 32);
  EXPECT_TRUE(all.starts_with("000000\t80:0000\tFFFF\tBSET R15.15\n")) << all;
  EXPECT_EQ(Call({"disasm", dump, "7FFFFF"}).out, "7FFFFF\tFF:FFFF\tFF\tDB 0FFh\n");
}

TEST_F(CodeCommands, RefsPrintsPlaces) {
  const std::string sure =
      "00007C\t80:007C\tcall\tcertain\tCALLS 80h, 6Ah\n"
      "000084\t80:0084\taccess\tcertain\tMOV R4, 406Ah\n";
  const std::string fourth = "000088\t80:0088\tdata\t";
  EXPECT_EQ(Call({"refs", dump, "6A"}).out, sure);
  EXPECT_EQ(Call({"refs", dump, "6A", "--all"}).out, sure + fourth + "possible\tMOV R4, 6Ah (DPP0)\n");
  EXPECT_EQ(Call({"refs", dump, "6A", "--dpp0", "200"}).out, sure + fourth + "likely\tMOV R4, 6Ah\n");
  EXPECT_EQ(Call({"refs", dump, "6A", "--all", "--dpp0", "201"}).out, sure);
  EXPECT_EQ(Call({"refs", dump, "6A", "--json"}).out,
            R"({"offset":124,"kind":"call","sure":"certain","text":"CALLS 80h, 6Ah"})"
            "\n"
            R"({"offset":132,"kind":"access","sure":"certain","text":"MOV R4, 406Ah"})"
            "\n");
  const Result none = Call({"refs", dump, "1234"});
  EXPECT_EQ(none.status, nothingFound);
  EXPECT_EQ(none.out, "");
}

TEST_F(CodeCommands, RefuseWhatTheyCannotDo) {
  for (const char* wrong :
       {"disasm DUMP xyz", "disasm DUMP NONE", "disasm DUMP 0 --count 0", "disasm DUMP 0 --count -1",
        "refs DUMP", "refs DUMP NONE", "refs DUMP 0 --dpp1 NONE", "refs DUMP 0 --dpp3 400", "disasm - 0"})
    EXPECT_EQ(Call(WordsOf(wrong, {{"DUMP", dump}, {"NONE", ""}})).status, wrongArguments) << wrong;
  for (const std::string command : {"disasm", "refs"}) {
    const Result outside = Call({command, dump, "800000"});
    EXPECT_EQ(outside.status, scanFault);
    EXPECT_TRUE(outside.err.starts_with("tarvelo-cli: " + dump + ": ")) << outside.err;
    EXPECT_EQ(outside.out, "");
    EXPECT_EQ(Call({command, PathText(folder / "missing.bin"), "0"}).status, fileTrouble);
  }
}

TEST_F(CodeCommands, FindNoCodeInLargeImages) {
  const std::string large = PathText(folder.Write("large.bin", ImageBuilder(0x1000002).Take()));
  for (const std::string command : {"disasm", "refs"}) {
    const Result result = Call({command, large, "0"});
    EXPECT_EQ(result.status, nothingFound);
    EXPECT_EQ(result.out, "");
    EXPECT_NE(result.err.find("C166 code"), std::string::npos) << result.err;
  }
}

}  // namespace
}  // namespace tarvelo::cli
