#include "patch/document_check.h"

#include <gtest/gtest.h>

#include "images.h"
#include "patch/document_check_text.h"

namespace tarvelo {
namespace {

// The verdicts of a text's lines on an image of 256 bytes that starts with these and ends with zeros: a
// letter each, with the number of the other line if there is one.
std::string Verdicts(const std::string& text, const Data& bytes, std::size_t step) {
  Data values = bytes;
  values.resize(0x100);
  const Fullflash image{Bytes(values)};
  DocumentCheck check(text, Sheet(image.ff()));
  while (check.Step(step)) {
  }
  std::string verdicts;
  for (std::size_t line = 1; line <= 9; ++line) {
    verdicts += ".FAVDCOM"[static_cast<int>(check.At(line))];
    if (const auto other = check.OtherLine(line)) verdicts += std::to_string(*other);
  }
  return verdicts.substr(0, verdicts.find_last_not_of('.') + 1);
}

TEST(DocumentCheck, JudgesEachLine) {
  const std::tuple<const char*, Data, const char*> rows[] = {
      {";c\r\n\r\n0: 01 02 ;fits\r2: 0000 0000\n1: 02 01\n0: 01", {1, 1}, "..FAAM"},
      {"0: 02 03\nFF: 00 01\nFF: 0000 0101\nFFFFFFFF: 00 01", {1}, "DFO2O"},
      {"0: 01 02\n\n0: 01 02", {1}, "F.V1"},              // the same once more
      {"0: 0102 0304\n1: 04 05", {1, 2}, "FV1"},          // further, in sequence
      {"0: 0102 0304\n1: 02 04", {1, 2}, "FV1"},          // a part of it once more
      {"0: 0102 0304\n1: 02 05", {1, 2}, "C2C1"},         // to something else
      {"0: 01 02\n0: 07 03", {1}, "C2C1"},                // from something else
      {"0: 01 02\n0: 02 03\n0: 01 02", {1}, "FC3C2"},     // where the second has been
      {"0: 01 02\n1: 00 01\n0: 0100 0201", {1}, "FFV1"},  // both once more
      {"0: 01 02\n0: 02 03", {3}, "AV1"},                 // the dump has what the whole patch makes
      {"1F: 0000 0102\n20: 00 03", {}, "C2C1"},           // the second byte alone
      {"FF: 0000 0101\nFF: 00 02", {}, "O2C1"},
      {"\xEF\xBB\xBF"
       "0: 01 02\n1: x\n\x1A\x1A",
       {1},
       "FM"},
  };
  for (const auto& [text, bytes, verdicts] : rows)
    for (const std::size_t step : {1u, 2u, 100u}) EXPECT_EQ(Verdicts(text, bytes, step), verdicts) << text;
}

TEST(DocumentCheck, LooksAtTheImageAsItWasOpened) {
  Fullflash image{Bytes(Data(0x100, 0))};
  ImageEdits edits;
  edits.Write(image, 0x3F, Data{7, 7});
  DocumentCheck check("3F: 0000 0101\n40: 07 08\nrubbish\n50: 00 01", OriginalOf(image, edits));
  while (check.Step(10)) {
  }
  EXPECT_EQ(check.Found(2), Data{0});
  EXPECT_EQ(check.Contradictions(), (std::vector<std::size_t>{1, 2}));
  EXPECT_EQ(TotalsText(check, Messages()), "malformed 1    contradicts 2    fits 1");
  EXPECT_EQ(LineText(check, 2, Messages()), "Line: 2    contradicts: 1    Found: 00");
  EXPECT_EQ(LineText(check, 5, Messages()), "Line: 5");
  const std::tuple<std::size_t, std::size_t, std::size_t> steps[] = {
      {0, 1, 3}, {1, 2, 3}, {3, 1, 2}, {4, 1, 3}, {9, 1, 3}};
  for (const auto& [line, next, previous] : steps) {
    EXPECT_EQ(check.NextProblem(line, false), next) << line;
    EXPECT_EQ(check.NextProblem(line, true), previous) << line;
  }
  DocumentCheck single("rubbish\n;", Sheet(image.ff()));
  EXPECT_FALSE(single.Step(9));
  EXPECT_EQ(single.NextProblem(1, false), 1u);
  EXPECT_EQ(check.LineOf(0x40), 2u);
  EXPECT_EQ(check.LineOf(0x3F), 1u);
  EXPECT_FALSE(check.LineOf(0x41) || check.LineOf(-1));
}

}  // namespace
}  // namespace tarvelo
