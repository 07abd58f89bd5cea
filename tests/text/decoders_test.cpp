#include "text/decoders.h"

#include <gtest/gtest.h>

#include <vector>

namespace tarvelo {
namespace {

using Data = std::vector<std::uint8_t>;

// The text that a decoder returned, and where it left the offset. A fault that it passed on is the text
// "fault".
struct Outcome {
  std::u16string text;
  Offset end;
  bool operator==(const Outcome&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Outcome& outcome) {
  for (const char16_t unit : outcome.text) out << std::hex << static_cast<int>(unit) << ' ';
  return out << "end " << std::dec << outcome.end;
}

template <typename Decoder>
Outcome Decode(Decoder decoder, const Data& data, Offset offset = 0) {
  try {
    std::u16string text = decoder(Bytes(data), offset);
    return {std::move(text), offset};
  } catch (const std::out_of_range&) {
    return {u"fault", offset};
  }
}

TEST(GetStr, StopsAtZeroOneAndFF) {
  EXPECT_EQ(GetStr(Data{0x41, 0x42, 0x01, 0x43}, 0), u"AB");
  EXPECT_EQ(GetStr(Data{0x41, 0xFF}, 0), u"A");
  EXPECT_EQ(GetStr(Data{0x02, 0xFE, 0x98, 0x00}, 0), u"\u0002\u044E\u0098");
  EXPECT_EQ(GetStr(Data{0x00, 0x41, 0x00}, 1), u"A");
}

TEST(GetStr, IsEmptyIfItRunsPastTheEnd) {
  EXPECT_EQ(GetStr(Data{0x41, 0x42}, 0), u"");
  EXPECT_EQ(GetStr(Data{0x41, 0x00}, -1), u"");
}

TEST(GetStrN, TakesItsLengthInBytesAsTheyAre) {
  EXPECT_EQ(Decode(GetStrN, {3, 0x41, 0x00, 0xC0}), (Outcome{std::u16string(u"A\0\u0410", 3), 0}));
  EXPECT_EQ(Decode(GetStrN, {0xFF}), (Outcome{u"", 0}));
  EXPECT_EQ(Decode(GetStrN, {3, 0x41, 0x42}), (Outcome{u"fault", 0}));
  EXPECT_EQ(Decode(GetStrN, {1}, 1), (Outcome{u"fault", 1}));
}

TEST(GetSiem, ShiftsTheByteBehindAPrefix) {
  EXPECT_EQ(Decode(GetSiem, {0xD0, 0x90, 0xD0, 0xBF, 0x41, 0x00}), (Outcome{u"\u0410\u043FA", 5}));
  EXPECT_EQ(Decode(GetSiem, {0xD1, 0x80, 0xFF}), (Outcome{u"\u0421\u0402", 2}));
  EXPECT_EQ(Decode(GetSiem, {0xD0, 0x00}), (Outcome{u"", 1}));                    // prefix before the stop
  EXPECT_EQ(Decode(GetSiem, {0xD0, 0xD0, 0x90, 0x00}), (Outcome{u"\u0410", 3}));  // counts as one
  EXPECT_EQ(Decode(GetSiem, {0xD0, 0xCF, 0x00}), (Outcome{u"\u044F", 2}));        // FF as a character
}

TEST(GetSiem, IsEmptyOnAFaultButKeepsTheOffset) {
  EXPECT_EQ(Decode(GetSiem, {0x41, 0xD0, 0xD5, 0x00}), (Outcome{u"", 2}));
  EXPECT_EQ(Decode(GetSiem, {0x41, 0x42}), (Outcome{u"", 2}));
}

TEST(GetUni, ReadsLittleEndianUnitsBehindASkippedByte) {
  EXPECT_EQ(Decode(GetUni, {2, 0x77, 0x10, 0x04, 0x41, 0x00}), (Outcome{u"\u0410A", 4}));
  EXPECT_EQ(Decode(GetUni, {0xFF}), (Outcome{u"", 0}));
  EXPECT_EQ(Decode(GetUni, {2, 0, 0x41, 0x00, 0x42}), (Outcome{u"fault", 4}));
}

TEST(GetUni2, RoundsOddCountsToEven) {
  const auto with = [](std::uint8_t count) {
    return Decode(GetUni2, {count, 0x04, 0x10, 0x00, 0x42, 0x00, 0x43, 0x00, 0x44});
  };
  EXPECT_EQ(with(0), (Outcome{u"", -1}));
  EXPECT_EQ(with(1), (Outcome{u"", -1}));
  EXPECT_EQ(with(2), (Outcome{u"\u0410", 1}));
  EXPECT_EQ(with(3), (Outcome{u"\u0410B", 3}));
  EXPECT_EQ(with(5), (Outcome{u"\u0410B", 3}));
  EXPECT_EQ(with(7), (Outcome{u"\u0410BCD", 7}));
}

TEST(GetUni2, ReturnsWhatStandsBeforeAFault) {
  EXPECT_EQ(Decode(GetUni2, {4, 0x00, 0x41, 0x80, 0x00}), (Outcome{u"A", 3}));
  EXPECT_EQ(Decode(GetUni2, {4, 0x7F, 0xFF, 0x00}), (Outcome{u"\u7FFF", 3}));
  EXPECT_EQ(Decode(GetUni2, {4}, 7), (Outcome{u"", 7}));
}

TEST(GetPDU, UnpacksSevenBits) {
  // "hellohello", as packed in short messages.
  const Data hello{10, 0xE8, 0x32, 0x9B, 0xFD, 0x46, 0x97, 0xD9, 0xEC, 0x37};
  EXPECT_EQ(Decode(GetPDU, hello), (Outcome{u"hellohello", 9}));
  // For a multiple of eight it reads one byte after the text and stays there.
  Data eight = hello;
  eight[0] = 8;
  EXPECT_EQ(Decode(GetPDU, eight), (Outcome{u"hellohel", 8}));
  eight.resize(8);  // only the seven packed bytes
  EXPECT_EQ(Decode(GetPDU, eight), (Outcome{u"fault", 8}));
  EXPECT_EQ(Decode(GetPDU, {1, 0x80}), (Outcome{std::u16string(1, u'\0'), 1}));
}

TEST(GetUniFF, StopsAtAnyHighByteFF) {
  EXPECT_EQ(Decode(GetUniFF, {0x41, 0x00, 0x41, 0xFF}), (Outcome{u"A", 2}));
  EXPECT_EQ(Decode(GetUniFF, {0xFF, 0xFE, 0xFF, 0xFF}), (Outcome{u"\xFEFF", 2}));
  EXPECT_EQ(Decode(GetUniFF, {0x41, 0x00, 0x42}), (Outcome{u"fault", 2}));
}

TEST(MessageHard, DecodesPagesAndKeepsTags) {
  EXPECT_EQ(Decode(MessageHard, {0x9B, 0x10, 0x41, 0x00}), (Outcome{u"<9B>\u0410\u0441", 3}));
  EXPECT_EQ(Decode(MessageHard, {0x41, 0x0A, 0x41, 0x00}), (Outcome{u"A<0A>A", 3}));
  EXPECT_EQ(Decode(MessageHard, {0x9B, 0x10, 0x85, 0x10, 0x00}), (Outcome{u"<9B>\u0410<85><10>", 4}));
  EXPECT_EQ(Decode(MessageHard, {0xAA, 0x00}), (Outcome{u"<AA>", 1}));  // zero ends every text
  EXPECT_EQ(Decode(MessageHard, {0xAA, 0x01, 0xEF, 0x7F, 0xF0, 0x7F, 0x00}),
            (Outcome{u"<AA>\u4E01<EF>\u70FF<F0>\u007F", 6}));
  EXPECT_EQ(Decode(MessageHard, {0x95, 0x41}), (Outcome{u"fault", 2}));
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
