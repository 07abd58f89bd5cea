#include "text/langpack.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace tarvelo {
namespace {

using Data = std::vector<std::uint8_t>;

TEST(EncodeLangpack, WritesAPageByteWhereThePageChanges) {
  EXPECT_EQ(EncodeLangpack(u"AB"), (Data{0x95, 0x41, 0x42}));
  EXPECT_EQ(EncodeLangpack(u"A\u0410"), (Data{0x95, 0x41, 0x9B, 0x10}));
  EXPECT_EQ(EncodeLangpack(u"\u0080\u017F\u0180"), (Data{0x96, 0x00, 0x97, 0x7F, 0x98, 0x00}));
  EXPECT_EQ(EncodeLangpack(u"\u0300\u0680"), (Data{0x99, 0x00, 0xA0, 0x00}));
  EXPECT_EQ(EncodeLangpack(u""), Data{});
}

TEST(EncodeLangpack, HasNoPlaceForSomeCharacters) {
  EXPECT_EQ(EncodeLangpack(u"\u0200\u027F"), (Data{0x98, 0x80, 0xFF}));
  EXPECT_EQ(EncodeLangpack(u"\u077F"), (Data{0xA0, 0xFF}));
  for (const char16_t u : {u'\u0280', u'\u02FF', u'\u0780', u'\u4E00', u'\uFFFF'})
    EXPECT_THROW((void)EncodeLangpack(std::u16string(1, u)), std::overflow_error) << std::hex << +u;
}

TEST(EncodeLangpack, HoldsThreeHundredBytes) {
  EXPECT_EQ(EncodeLangpack(std::u16string(299, u'A')).size(), 300u);
  EXPECT_THROW((void)EncodeLangpack(std::u16string(300, u'A')), std::overflow_error);
}

}  // namespace
}  // namespace tarvelo
