#include "code/code_rows.h"

#include <gtest/gtest.h>

#include <string>

#include "image_builder.h"

namespace tarvelo {
namespace {

// One row as "code 4 at 10".
std::string Say(const CodeRow& row) {
  const char* const kinds[] = {"heading", "code", "data"};
  return std::string(kinds[static_cast<int>(row.kind)]) + " " + std::to_string(row.size) + " at " +
         std::to_string(row.offset);
}

std::string All(const CodeRows& rows) {
  std::string all;
  for (Offset i = 0; i < rows.Count(); ++i) all += (i == 0 ? "" : ", ") + Say(rows.At(i));
  return all;
}

// A function list with these instructions.
FunctionList Functions(const std::vector<Region>& code, const std::vector<Offset>& instructions) {
  std::vector<Function> functions;
  for (const Region& region : code) functions.push_back({region, 1});
  std::vector<std::uint64_t> starts(4);
  for (const Offset at : instructions)
    starts[static_cast<std::size_t>(at) / 128] |= std::uint64_t{1} << at / 2 % 64;
  return {functions, starts};
}

// DA is CALLS with 4 bytes, 08 ADD with 2, DB 00 RETS, 8C reserved.
const std::vector<std::uint8_t> sweptBytes = {0x08, 0x01, 0xDA, 0x80, 0x08, 0x01, 0x8C, 0x00,
                                              0xDA, 0x80, 0x00, 0x00, 0xDB, 0x00, 0xDA, 0x80};

TEST(CodeRows, SweepInstructionsAndCutWhatReachesIntoFunctions) {
  EXPECT_EQ(All(CodeRows(sweptBytes, FunctionList(), {}, {})),
            "code 2 at 0, code 4 at 2, code 2 at 6, code 4 at 8, code 2 at 12, code 2 at 14");
  // The function begins at 4, in the middle of what a sweep takes for CALLS.
  const CodeRows rows(sweptBytes, Functions({{4, 4}}, {4}), {}, {});
  EXPECT_EQ(All(rows),
            "code 2 at 0, code 2 at 2, heading 0 at 4, code 2 at 4, code 2 at 6, code 4 at 8, code 2 at 12, "
            "code 2 at 14");
  EXPECT_EQ(rows.RowOf(4), 3);
  EXPECT_EQ(rows.RowOf(5), 3);
  EXPECT_EQ(rows.RowOf(11), 5);
}

TEST(CodeRows, LabelsCutGuessesButNoFunctions) {
  const Offset labels[] = {4, 5, 10, 100};
  EXPECT_EQ(
      All(CodeRows(sweptBytes, Functions({{8, 6}}, {8, 12}), {}, labels)),
      "code 2 at 0, code 2 at 2, heading 0 at 4, code 2 at 4, code 2 at 6, heading 0 at 8, code 4 at 8, "
      "code 2 at 12, code 2 at 14");
}

TEST(CodeRows, DataStandsInRowsOfEight) {
  std::vector<std::uint8_t> bytes(35, 0);
  const Offset labels[] = {20};
  EXPECT_EQ(All(CodeRows(bytes, FunctionList(), {{5, 22}}, labels)),
            "code 2 at 0, code 2 at 2, code 2 at 4, data 2 at 6, data 8 at 8, data 4 at 16, heading 0 at 20, "
            "data 4 at 20, data 4 at 24, code 2 at 28, code 2 at 30, code 2 at 32, code 1 at 34");
  EXPECT_EQ(All(CodeRows(bytes, FunctionList(), {{-10, 1000}}, {})),
            "data 8 at 0, data 8 at 8, data 8 at 16, data 8 at 24, data 3 at 32");
}

// In an image of odd size, the even phone addresses are the odd offsets.
TEST(CodeRows, BeginAtEvenAddresses) {
  std::vector<std::uint8_t> bytes = sweptBytes;
  bytes.insert(bytes.begin(), 0xDA);  // an odd byte is no instruction
  std::vector<std::uint64_t> starts = {1 << 2};
  const FunctionList functions({{{5, 4}, 1}}, starts, 1);
  const Offset labels[] = {0, 12, 15};
  const CodeRows rows(bytes, functions, {{8, 4}}, labels, 1);
  EXPECT_EQ(All(rows),
            "code 1 at 0, code 2 at 1, code 2 at 3, heading 0 at 5, code 2 at 5, code 2 at 7, data 4 at 9, "
            "code 2 at 13, heading 0 at 15, code 2 at 15");
  EXPECT_EQ(rows.RowOf(0), 0);
  EXPECT_EQ(rows.RowOf(2), 1);
  EXPECT_EQ(rows.RowOf(5), 4);
  EXPECT_EQ(rows.RowOf(16), 9);
}

TEST(CodeRows, EveryByteHasItsRowInAnyImage) {
  std::vector<std::uint8_t> bytes(3001);
  std::uint32_t state = 1;
  for (std::uint8_t& byte : bytes)
    byte = static_cast<std::uint8_t>((state = state * 1664525 + 1013904223) >> 24);
  const Offset labels[] = {0, 128, 130, 2999, 3000};
  for (const Offset firstWord : {0, 1}) {
    const CodeRows rows(bytes, FunctionList(), {{400, 300}, {700, 1}, {2000, 128}}, labels, firstWord);
    Offset next = 0;
    for (Offset i = 0; i < rows.Count(); ++i) {
      const CodeRow row = rows.At(i);
      ASSERT_EQ(row.offset, next);
      for (Offset at = row.offset; at < row.offset + row.size; ++at) EXPECT_EQ(rows.RowOf(at), i);
      next += row.size;
    }
    EXPECT_EQ(next, 3001);
  }
  EXPECT_EQ(CodeRows(Bytes(), FunctionList(), {}, {}).Count(), 0);
}

}  // namespace
}  // namespace tarvelo
