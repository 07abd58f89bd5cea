#include "code/masked_pattern.h"

#include <gtest/gtest.h>

#include "images.h"
#include "patch/pattern.h"

namespace tarvelo {
namespace {

std::string Masked(const Data& bytes) { return MaskedPattern(bytes, {0, static_cast<Offset>(bytes.size())}); }

TEST(MaskedPattern, MasksWhatALinkerMoves) {
  constexpr std::pair<const char*, const char*> cases[] = {
      // targets
      {"DA806A00 FA806A00 CA206A00 EA206A00 E2F46A00", "DA?????? FA?????? CA20???? EA20???? E2F4????"},
      {"3D12 BB12", "3D?? BB??"},
      // bits: of a register, of a variable, of PSW; to PSW, and from it
      {"8AF41250 8A341250 9A881250", "8AF4??50 8A?????? 9A88??50"},
      {"4A348812 4A883412", "4A??88?? 4A88????"},
      {"2F34 2F80 2F7F 0A340102", "2F?? 2F80 2F?? 0A??0102"},
      // variables, and registers of either half; behind EXTP it is no register
      {"F2F43412 F2F4FEFD F2F400FE F2F4FEEF", "F2F4???? F2F4???? F2F400FE F2F4????"},
      {"F2F400F0 F2F4FEF1 F2F400F2", "F2F400F0 F2F4FEF1 F2F4????"},
      {"D7400402 F2F400FE D180 F2F400FE", "D740???? F2F4???? D180 F2F400FE"},
      // displacements and constants; data stays
      {"D4450200 E6F43412 46F43412 86F43412", "D445???? E6F4???? 46F4???? 86F4????"},
      {"E7F43412 E034 DC45 8C34 DB00", "E7F43412 E034 DC45 8C34 DB00"},
  };
  for (auto [bytes, pattern] : cases) {
    std::string expected = pattern;
    std::erase(expected, ' ');
    EXPECT_EQ(Masked(*ReadHex(bytes)), expected);
  }
}

TEST(MaskedPattern, FindsTheInstructionsThatBeginInTheRegion) {
  const Data bytes = "DB00 E6FC3412 DB00"_hex;
  EXPECT_EQ(MaskedPattern(bytes, {2, 1}), "E6FC????");
  EXPECT_EQ(MaskedPattern(bytes, {2, 100}), "E6FC????DB00");
  EXPECT_EQ(MaskedPattern(bytes, {-2, 4}), "DB00");
  EXPECT_EQ(MaskedPattern(bytes, {9, 4}), "");
  const Fullflash image{Bytes(bytes)};
  EXPECT_EQ(Pattern(MaskedPattern(bytes, {2, 4})).FindPat(image, 0), 2);
}

}  // namespace
}  // namespace tarvelo
