#include "code/masked_pattern.h"

#include <gtest/gtest.h>

#include "images.h"
#include "patch/pattern.h"

namespace tarvelo {
namespace {

std::string Masked(const Data& bytes) { return MaskedPattern(bytes, {0, static_cast<Offset>(bytes.size())}); }

TEST(MaskedPattern, MasksWhatALinkerMoves) {
  struct Case {
    Data bytes;
    std::string pattern;
  };
  for (const auto& [bytes, pattern] : std::vector<Case>{
           {{0xDA, 0x80, 0x6A, 0x00}, "DA??????"},
           {{0xFA, 0x80, 0x6A, 0x00}, "FA??????"},
           {{0xCA, 0x20, 0x6A, 0x00}, "CA20????"},
           {{0xEA, 0x20, 0x6A, 0x00}, "EA20????"},
           {{0xE2, 0xF4, 0x6A, 0x00}, "E2F4????"},
           {{0x3D, 0x12}, "3D??"},
           {{0xBB, 0x12}, "BB??"},
           {{0x8A, 0xF4, 0x12, 0x50}, "8AF4??50"},  // a bit of a register
           {{0x8A, 0x34, 0x12, 0x50}, "8A??????"},  // of a variable
           {{0x9A, 0x88, 0x12, 0x50}, "9A88??50"},  // of PSW
           {{0x4A, 0x34, 0x88, 0x12}, "4A??88??"},  // to PSW
           {{0x4A, 0x88, 0x34, 0x12}, "4A88????"},  // from PSW
           {{0x2F, 0x34}, "2F??"},
           {{0x2F, 0x80}, "2F80"},
           {{0x2F, 0x7F}, "2F??"},
           {{0x0A, 0x34, 0x01, 0x02}, "0A??0102"},
           {{0xF2, 0xF4, 0x34, 0x12}, "F2F4????"},
           {{0xF2, 0xF4, 0xFE, 0xFD}, "F2F4????"},
           {{0xF2, 0xF4, 0x00, 0xFE}, "F2F400FE"},
           {{0xF2, 0xF4, 0xFE, 0xEF}, "F2F4????"},
           {{0xF2, 0xF4, 0x00, 0xF0}, "F2F400F0"},
           {{0xF2, 0xF4, 0xFE, 0xF1}, "F2F4FEF1"},
           {{0xF2, 0xF4, 0x00, 0xF2}, "F2F4????"},
           {{0xD7, 0x40, 0x04, 0x02, 0xF2, 0xF4, 0x00, 0xFE}, "D740????F2F4????"},  // no register: a page
           {{0xD1, 0x80, 0xF2, 0xF4, 0x00, 0xFE}, "D180F2F400FE"},
           {{0xD4, 0x45, 0x02, 0x00}, "D445????"},
           {{0xE6, 0xF4, 0x34, 0x12}, "E6F4????"},
           {{0x46, 0xF4, 0x34, 0x12}, "46F4????"},
           {{0x86, 0xF4, 0x34, 0x12}, "86F4????"},
           {{0xE7, 0xF4, 0x34, 0x12}, "E7F43412"},
           {{0xE0, 0x34}, "E034"},
           {{0xDC, 0x45}, "DC45"},
           {{0x8C, 0x34, 0xDB, 0x00}, "8C34DB00"},  // data stays
       })
    EXPECT_EQ(Masked(bytes), pattern);
}

TEST(MaskedPattern, FindsTheInstructionsThatBeginInTheRegion) {
  const Data bytes{0xDB, 0x00, 0xE6, 0xFC, 0x34, 0x12, 0xDB, 0x00};
  EXPECT_EQ(MaskedPattern(bytes, {2, 1}), "E6FC????");
  EXPECT_EQ(MaskedPattern(bytes, {2, 100}), "E6FC????DB00");
  EXPECT_EQ(MaskedPattern(bytes, {-2, 4}), "DB00");
  EXPECT_EQ(MaskedPattern(bytes, {9, 4}), "");
  const Fullflash image{Bytes(bytes)};
  EXPECT_EQ(Pattern(MaskedPattern(bytes, {2, 4})).FindPat(image, 0), 2);
}

}  // namespace
}  // namespace tarvelo
