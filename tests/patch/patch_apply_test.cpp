#include "patch/patch_apply.h"

#include <gtest/gtest.h>

#include "images.h"
#include "patch/patch_lines.h"

namespace tarvelo {
namespace {

TEST(ReadPatchText, NumbersLinesWithAnyLineBreaks) {
  const ReadPatch patch = ReadPatchText(
      "\xEF\xBB\xBF;comment\r\n\r\n10: 00 01\n20: 00 02 ;\xD1\x82\rrubbish\n\r\n 30: 00 01\n40: 0000 "
      "0A0B\x1A");
  std::string read;
  for (const auto& [line, change] : patch.changes)
    read += std::to_string(line) + " - " + PatchLines(std::span(&change, 1)) + "\n";
  for (const auto& [line, text] : patch.invalid) read += std::to_string(line) + " invalid " + text + "\n";
  EXPECT_EQ(read,
            "3 - 000010: 00 01\n4 - 000020: 00 02\n7 - 000030: 00 01\n8 - 000040: 0000 0A0B\n"
            "5 invalid rubbish\n");
}

TEST(ReadPatchText, SurvivesTextsThatAreNotPatches) {
  for (const char* text : {"", "\xEF\xBB\xBF", "\r\r\n\n", "\x1A", "\n\x1A\x1A"})
    EXPECT_TRUE(ReadPatchText(text).invalid.empty()) << text;
  const ReadPatch zeros = ReadPatchText(std::string(100000, '\0'));
  ASSERT_EQ(zeros.invalid.size(), 1u);
  EXPECT_EQ(zeros.invalid[0].text.size(), 100u);
  const std::string utf16("\xFF\xFE:\0\n\0", 6);
  EXPECT_EQ(ReadPatchText(utf16).invalid.size(), 2u);
}

// How a patch fits, a letter for each change, on an image of these bytes followed by zeros. `written` gets
// the bytes after writing the changes that fit.
std::string FitsOf(const std::string& text, const Data& bytes, Data* written = nullptr) {
  Data values = bytes;
  values.resize(0x3000);
  Fullflash image{Bytes(values)};
  const ReadPatch patch = ReadPatchText(text);
  const PatchCheck check = CheckPatch(patch.changes, image);
  std::string fits;
  for (const CheckedChange& each : check.changes) fits += "FAMO"[static_cast<int>(each.fit)];
  ImageEdits().Write(image, check.ToWrite(patch.changes));
  if (written) written->assign(image.ff().begin(), image.ff().begin() + std::ssize(bytes));
  return fits;
}

TEST(CheckPatch, TellsHowEachChangeFits) {
  const std::tuple<const char*, Data, const char*, Data> cases[] = {
      {"0: 0102 0304\n2: 05 06", {1, 2, 6, 7}, "FA", {3, 4, 6, 7}},
      {"0: 0102 0304", {1, 3}, "M", {1, 3}},
      {"0: 01 01", {1}, "A", {1}},  // nothing to do
      {"2FFF: 00 01\n2FFF: 0000 0101\n3000: 00 01\nFFFFFFFF: 00 01", {0}, "FOOO", {0}},
      // Two changes of the same bytes in sequence: not applied, half applied, applied.
      {"0: 01 02\n0: 02 03", {1}, "FF", {3}},
      {"0: 01 02\n0: 02 03", {2}, "AF", {3}},
      {"0: 01 02\n0: 02 03", {3}, "AA", {3}},
      {"0: 01 02\n0: 02 03", {4}, "MM", {4}},
      {"0: 01 02\n0: 01 03", {1}, "FM", {2}},  // they contradict each other
      {"0: 01 02\n0: 01 02", {1}, "FA", {2}},  // the same twice
      {"0: 01 02\n0: 02 01", {1}, "AA", {1}},  // there and back
      {"0: 0101 0202\n1: 0203 0404", {1, 1, 3}, "FF", {2, 4, 4}},
      {"0: 0101 0202\n1: 0203 0404", {2, 4, 4}, "AA", {2, 4, 4}},
      // The old bytes of the second change are there only until the first is made.
      {"0: 0000 0101\n0: 01 00", {0, 0}, "FF", {0, 1}},
      // A later change brings back what an earlier one overwrites: not applied, taken out again, applied.
      {"0: 02 00\n0: 0002 0201", {2, 2}, "FF", {2, 1}},
      {"0: 00 02\n0: 0202 0001", {0, 2}, "FF", {0, 1}},
      {"0: 02 00\n0: 0002 0201", {2, 1}, "AA", {2, 1}},
      {"0: 01 02\n0: 02 01\n1: 00 03", {1, 0}, "FFF", {1, 3}},
  };
  for (const auto& [text, bytes, fits, after] : cases) {
    Data written;
    EXPECT_EQ(FitsOf(text, bytes, &written), fits) << text;
    EXPECT_EQ(written, after) << text;
  }
}

TEST(CheckPatch, ReportsTheBytesFound) {
  Data values(0x3000);
  values[0xFFF] = 7;
  values[0x1000] = 8;
  const Fullflash image{Bytes(values)};
  const PatchCheck check = CheckPatch(ReadPatchText("1000: 08 09\nFFF: 0101 0202").changes, image);
  EXPECT_EQ(check.changes[1].found, (Data{7, 9}));  // after the first change
  EXPECT_FALSE(check.Fits());
  EXPECT_FALSE(check.CarriesAll());
  EXPECT_FALSE(CheckPatch({}, image).CarriesAll());
}

}  // namespace
}  // namespace tarvelo
