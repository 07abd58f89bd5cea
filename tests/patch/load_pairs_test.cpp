#include "patch/load_pairs.h"

#include <gtest/gtest.h>

#include "images.h"

namespace tarvelo {
namespace {

// Two-byte instructions that do nothing.
std::string Nops(int count) {
  std::string text;
  while (count-- > 0) text += "CC00";
  return text;
}

TEST(PartnerOf, IsTheNearestLoadOfTheNextRegister) {
  const std::string r4 = "E6F43412", r5 = "E6F5C103", shortR4 = "E014";
  const struct {
    std::string code;
    std::size_t load;
    std::optional<std::size_t> partner;
  } cases[] = {
      {r4 + r5, 0, 1},
      {r5 + r4, 1, 0},
      {r4 + "E6F6C103", 0, {}},              // the register behind the next
      {r4 + Nops(7) + r5 + r5, 0, 8},        // the nearest
      {r4 + Nops(8) + r5, 0, {}},            // too far
      {r5 + Nops(7) + r4, 8, 0},             // before it
      {r5 + Nops(8) + r4, 9, {}},            // too far
      {r4 + "0D00" + r5, 0, {}},             // a jump between
      {r5 + "0D00" + r4, 2, {}},             //
      {r4 + shortR4 + r5, 0, {}},            // another constant between
      {r4 + "E015" + r5, 0, 2},              // in another register
      {r4 + Nops(1) + r5 + r4, 0, {}},       // another load is nearer to it
      {r4 + Nops(1) + r5 + shortR4, 0, {}},  //
      {r4 + Nops(1) + r5 + Nops(1) + r4, 0, 2},
  };
  for (const auto& [text, load, partner] : cases) {
    const Data bytes = ReadHex(text).value();
    std::vector<DecodedCode> code;
    for (Offset at = 0; at < std::ssize(bytes); at += code.back().instruction.Size())
      code.push_back({at, Instruction::Decode(bytes, at), {}});
    EXPECT_EQ(PartnerOf(code, load), partner) << text << ", " << load;
  }
}

}  // namespace
}  // namespace tarvelo
