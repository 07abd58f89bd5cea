#include "document/code_reader.h"

#include <gtest/gtest.h>

#include "images.h"

namespace tarvelo {
namespace {

// 64 KiB at FF0000, read without functions and map.
class CodeReaderTest : public testing::Test {
 protected:
  CodeReaderTest() {
    builder.Fill(0, 0x8000, 0xCC);
    builder.Text(0x1200, "Hello");
  }

  // Writes code at 100 and reads its rows: "instruction ; meaning", a line each.
  std::string Read(const Data& code, const DppPages& dpps = {}) {
    builder.Data(0x100, code);
    dump.image = ImageOf(ImageBuilder(builder));
    const CodeRows rows(dump.image.ff(), functions, data, labels);
    const CodeReader reader({&dump, &rows, &functions, nullptr, dpps}, texts);
    std::string text;
    const Offset end = 0x100 + std::ssize(code);
    for (Offset row = rows.RowOf(0x100) - std::ssize(labels); rows.At(row).offset < end; ++row) {
      const CodeLine line = reader.Read(row);
      text += line.Text() + (line.meaning.empty() ? "" : " ; " + line.meaning) + "\n";
    }
    return text;
  }

  ImageBuilder builder{0x10000};
  Dump dump;
  FunctionList functions;
  std::vector<Region> data;
  std::vector<Offset> labels;
  Messages texts;
};

TEST_F(CodeReaderTest, JoinsTheHalvesOfAddresses) {
  // Page 3FC is at FF0000.
  EXPECT_EQ(Read("E6FC0012 E6FDFC03"_hex), "MOV R12, #1200h ; FF:1200  \"Hello\"\nMOV R13, #3FCh\n");
  // By segment, the high half first, and another instruction between them.
  EXPECT_EQ(Read("E6FDFF00 F012 E6FC0012"_hex),
            "MOV R13, #0FFh\nMOV R1, R2\nMOV R12, #1200h ; FF:1200  \"Hello\"\n");
  // Not over a call, not with the wrong register.
  EXPECT_EQ(Read("E6FC0012 DB00 E6FDFC03"_hex), "MOV R12, #1200h\nRETS\nMOV R13, #3FCh\n");
  EXPECT_EQ(Read("E6FC0012 E6FEFC03"_hex), "MOV R12, #1200h\nMOV R14, #3FCh\n");
  // Not with a register that no longer holds the offset.
  EXPECT_EQ(Read("E6FC0012 F0C2 E6FDFC03"_hex), "MOV R12, #1200h\nMOV R12, R2\nMOV R13, #3FCh\n");
  // Lines are joined; what has other control characters is no text.
  builder.Text(0x1210, "Two\nlines");
  builder.Text(0x1220, "Two\x2lines");
  EXPECT_EQ(Read("E6FC1012 E6FDFC03"_hex), "MOV R12, #1210h ; FF:1210  \"Two lines\"\nMOV R13, #3FCh\n");
  EXPECT_EQ(Read("E6FC2012 E6FDFC03"_hex), "MOV R12, #1220h ; FF:1220\nMOV R13, #3FCh\n");
}

TEST_F(CodeReaderTest, PointersInDataNameTheirTargets) {
  dump.names = Names("FF1300\tGreet\nFF0100\tTable\tof two");
  data = {{0x100, 8}};
  labels = {0x100};
  EXPECT_EQ(Read("0013FF00 0013FC03"_hex),  // by segment and by page
            "Table: ; ; of two\nDW 1300h, 0FFh, 1300h, 3FCh ; ..я...ь.  Greet  Greet\n");
}

TEST_F(CodeReaderTest, DataAddressesGoThroughRangesOrKnownDpps) {
  const Data load = "F2F40012"_hex;  // MOV R4, 1200h
  EXPECT_EQ(Read(load), "MOV R4, 1200h\n");
  EXPECT_EQ(Read(load, {0x3FC, {}, {}, {}}), "MOV R4, 1200h ; FF:1200  \"Hello\"\n");
  EXPECT_EQ(Read("D740FC03 F2F40012 F2F40012"_hex),
            "EXTP #3FCh, #1\nMOV R4, 1200h ; FF:1200  \"Hello\"\nMOV R4, 1200h\n");
  DppPages pages;
  EXPECT_EQ(PageOf(pages, 1), std::nullopt);
  EXPECT_EQ(PageOf(pages, 3), 3);
  pages[3] = 0x204;
  EXPECT_EQ(PageOf(pages, 3), 0x204);
}

TEST_F(CodeReaderTest, NamesGoWithTargetsAndCommentsWithRows) {
  dump.names = Names("FF1300\tGreet\tsays hello\nFF0100\t\tthe call\nC123\tRam");
  EXPECT_EQ(Read("DAFF0013"_hex), "CALLS 0FFh, 1300h ; Greet  ; the call\n");
  // The name of a place outside the image, through DPP3.
  EXPECT_EQ(Read("F2F423C1"_hex), "MOV R4, 0C123h ; Ram  ; the call\n");
  EXPECT_EQ(Read("8C00 DA"_hex).substr(0, 9), "DW 8Ch ; ");
}

}  // namespace
}  // namespace tarvelo
