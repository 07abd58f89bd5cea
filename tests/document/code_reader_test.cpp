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
  std::string Read(const std::vector<std::uint8_t>& code, const DppPages& dpps = {}) {
    builder.Data(0x100, code);
    dump.image = ImageOf(ImageBuilder(builder));
    const CodeRows rows(dump.image.ff(), functions, {}, {});
    const CodeReader reader({&dump, &rows, &functions, nullptr, dpps}, texts);
    std::string text;
    const Offset end = 0x100 + std::ssize(code);
    for (Offset row = rows.RowOf(0x100); rows.At(row).offset < end; ++row) {
      const CodeLine line = reader.Read(row);
      text += line.Text() + (line.meaning.empty() ? "" : " ; " + line.meaning) + "\n";
    }
    return text;
  }

  ImageBuilder builder{0x10000};
  Dump dump;
  FunctionList functions;
  Messages texts;
};

TEST_F(CodeReaderTest, JoinsTheHalvesOfAddresses) {
  // Page 3FC is at FF0000.
  EXPECT_EQ(Read({0xE6, 0xFC, 0x00, 0x12, 0xE6, 0xFD, 0xFC, 0x03}),
            "MOV R12, #1200h ; FF:1200  \"Hello\"\nMOV R13, #3FCh\n");
  // By segment, the high half first, and another instruction between them.
  EXPECT_EQ(Read({0xE6, 0xFD, 0xFF, 0x00, 0xF0, 0x12, 0xE6, 0xFC, 0x00, 0x12}),
            "MOV R13, #0FFh\nMOV R1, R2\nMOV R12, #1200h ; FF:1200  \"Hello\"\n");
  // Not over a call, not with the wrong register.
  EXPECT_EQ(Read({0xE6, 0xFC, 0x00, 0x12, 0xDB, 0x00, 0xE6, 0xFD, 0xFC, 0x03}),
            "MOV R12, #1200h\nRETS\nMOV R13, #3FCh\n");
  EXPECT_EQ(Read({0xE6, 0xFC, 0x00, 0x12, 0xE6, 0xFE, 0xFC, 0x03}), "MOV R12, #1200h\nMOV R14, #3FCh\n");
}

TEST_F(CodeReaderTest, DataAddressesGoThroughRangesOrKnownDpps) {
  const std::vector<std::uint8_t> load = {0xF2, 0xF4, 0x00, 0x12};  // MOV R4, 1200h
  EXPECT_EQ(Read(load), "MOV R4, 1200h\n");
  EXPECT_EQ(Read(load, {0x3FC, {}, {}, {}}), "MOV R4, 1200h ; FF:1200  \"Hello\"\n");
  EXPECT_EQ(Read({0xD7, 0x40, 0xFC, 0x03, 0xF2, 0xF4, 0x00, 0x12, 0xF2, 0xF4, 0x00, 0x12}),
            "EXTP #3FCh, #1\nMOV R4, 1200h ; FF:1200  \"Hello\"\nMOV R4, 1200h\n");
  DppPages pages;
  EXPECT_EQ(PageOf(pages, 1), std::nullopt);
  EXPECT_EQ(PageOf(pages, 3), 3);
  pages[3] = 0x204;
  EXPECT_EQ(PageOf(pages, 3), 0x204);
}

TEST_F(CodeReaderTest, NamesGoWithTargetsAndCommentsWithRows) {
  dump.names = Names("FF1300\tGreet\tsays hello\nFF0100\t\tthe call\nC123\tRam");
  EXPECT_EQ(Read({0xDA, 0xFF, 0x00, 0x13}), "CALLS 0FFh, 1300h ; Greet  ; the call\n");
  // The name of a place outside the image, through DPP3.
  EXPECT_EQ(Read({0xF2, 0xF4, 0x23, 0xC1}), "MOV R4, 0C123h ; Ram  ; the call\n");
  EXPECT_EQ(Read({0x8C, 0x00, 0xDA}).substr(0, 9), "DW 8Ch ; ");
}

}  // namespace
}  // namespace tarvelo
