#include "text/decoders.h"

#include <gtest/gtest.h>

#include "images.h"

namespace tarvelo {
namespace {

struct DecoderCase {
  Data data;
  std::u16string text;  // "fault" if the decoder passes a fault on
  Offset end;           // where the decoder leaves the offset
};

template <typename Decoder>
void Expect(Decoder decoder, const std::vector<DecoderCase>& cases, Offset start = 0) {
  for (const auto& [data, text, end] : cases) {
    Offset at = start;
    std::u16string decoded;
    try {
      decoded = decoder(Bytes(data), at);
    } catch (const std::out_of_range&) {
      decoded = u"fault";
    }
    EXPECT_EQ(decoded, text) << testing::PrintToString(data);
    EXPECT_EQ(at, end) << testing::PrintToString(data);
  }
}

TEST(GetStr, StopsAtZeroOneAndFF) {
  EXPECT_EQ(GetStr(Data{0x41, 0x42, 0x01, 0x43}, 0), u"AB");
  EXPECT_EQ(GetStr(Data{0x41, 0xFF}, 0), u"A");
  EXPECT_EQ(GetStr(Data{0x02, 0xFE, 0x98, 0x00}, 0), u"\u0002\u044E\u0098");
  EXPECT_EQ(GetStr(Data{0x00, 0x41, 0x00}, 1), u"A");
  EXPECT_EQ(GetStr(Data{0x41, 0x42}, 0), u"");  // runs past the end
  EXPECT_EQ(GetStr(Data{0x41, 0x00}, -1), u"");
}

TEST(GetStrN, TakesItsLengthInBytesAsTheyAre) {
  Expect(GetStrN,
         {{{3, 0x41, 0x00, 0xC0}, {u"A\0\u0410", 3}, 0}, {{0xFF}, u"", 0}, {{3, 0x41}, u"fault", 0}});
  Expect(GetStrN, {{{1}, u"fault", 1}}, 1);
}

TEST(GetSiem, ShiftsTheByteBehindAPrefix) {
  Expect(GetSiem, {{{0xD0, 0x90, 0xD0, 0xBF, 0x41, 0x00}, u"\u0410\u043FA", 5},
                   {{0xD1, 0x80, 0xFF}, u"\u0421\u0402", 2},
                   {{0xD0, 0x00}, u"", 1},                    // a prefix before the stop
                   {{0xD0, 0xD0, 0x90, 0x00}, u"\u0410", 3},  // counts as one
                   {{0xD0, 0xCF, 0x00}, u"\u044F", 2},        // FF as a character
                   {{0x41, 0xD0, 0xD5, 0x00}, u"", 2},        // faults
                   {{0x41, 0x42}, u"", 2}});
}

TEST(GetUni, ReadsLittleEndianUnitsBehindASkippedByte) {
  Expect(GetUni, {{{2, 0x77, 0x10, 0x04, 0x41, 0x00}, u"\u0410A", 4},
                  {{0xFF}, u"", 0},
                  {{2, 0, 0x41, 0x00, 0x42}, u"fault", 4}});
}

TEST(GetUni2, RoundsOddCountsToEvenAndReturnsWhatStandsBeforeAFault) {
  Expect(GetUni2, {{{0, 0x04, 0x10}, u"", -1},
                   {{1, 0x04, 0x10}, u"", -1},
                   {{2, 0x04, 0x10, 0x00, 0x42}, u"\u0410", 1},
                   {{3, 0x04, 0x10, 0x00, 0x42}, u"\u0410B", 3},
                   {{5, 0x04, 0x10, 0x00, 0x42, 0x00, 0x43}, u"\u0410B", 3},
                   {{4, 0x00, 0x41, 0x80, 0x00}, u"A", 3},
                   {{4, 0x7F, 0xFF, 0x00}, u"\u7FFF", 3}});
  Expect(GetUni2, {{{4}, u"", 7}}, 7);
}

TEST(GetPDU, UnpacksSevenBits) {
  // "hellohello", as packed in short messages. For a multiple of eight it reads one byte after the text.
  Expect(GetPDU, {{{10, 0xE8, 0x32, 0x9B, 0xFD, 0x46, 0x97, 0xD9, 0xEC, 0x37}, u"hellohello", 9},
                  {{8, 0xE8, 0x32, 0x9B, 0xFD, 0x46, 0x97, 0xD9, 0xEC}, u"hellohel", 8},
                  {{8, 0xE8, 0x32, 0x9B, 0xFD, 0x46, 0x97, 0xD9}, u"fault", 8},
                  {{1, 0x80}, std::u16string(1, u'\0'), 1}});
}

TEST(GetUniFF, StopsAtAnyHighByteFF) {
  Expect(GetUniFF, {{{0x41, 0x00, 0x41, 0xFF}, u"A", 2},
                    {{0xFF, 0xFE, 0xFF, 0xFF}, u"\xFEFF", 2},
                    {{0x41, 0x00, 0x42}, u"fault", 2}});
}

TEST(MessageHard, DecodesPagesAndKeepsTags) {
  Expect(MessageHard, {{{0x9B, 0x10, 0x41, 0x00}, u"<9B>\u0410\u0441", 3},
                       {{0x41, 0x0A, 0x41, 0x00}, u"A<0A>A", 3},
                       {{0x9B, 0x10, 0x85, 0x10, 0x00}, u"<9B>\u0410<85><10>", 4},
                       {{0xAA, 0x00}, u"<AA>", 1},  // zero ends every text
                       {{0xAA, 0x01, 0xEF, 0x7F, 0xF0, 0x7F, 0x00}, u"<AA>\u4E01<EF>\u70FF<F0>\u007F", 6},
                       {{0x95, 0x41}, u"fault", 2}});
}

TEST(AddressBook, ReadsNumbersAndFields) {
  const Data book{0x41, 0x42, 0x43, 0x00, 0x44, 0x45};
  EXPECT_EQ(GetStrA(book, 0, 10), u"ABC");
  EXPECT_EQ(GetStrA(book, 0, 2), u"AB");
  EXPECT_EQ(GetStrA(book, 4, 2), u"DE");
  EXPECT_THROW((void)GetStrA(book, 4, 3), std::out_of_range);
  EXPECT_EQ(WordA(book, 4), 0x4544);
  EXPECT_THROW((void)WordA(book, 5), std::out_of_range);
}

}  // namespace
}  // namespace tarvelo
