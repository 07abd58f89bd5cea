#include "text/langpack.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "images.h"

namespace tarvelo {
namespace {

TEST(EncodeLangpack, WritesAPageByteWhereThePageChanges) {
  EXPECT_EQ(EncodeLangpack(u"AB"), (Data{0x95, 0x41, 0x42}));
  EXPECT_EQ(EncodeLangpack(u"A\u0410"), (Data{0x95, 0x41, 0x9B, 0x10}));
  EXPECT_EQ(EncodeLangpack(u"\u0080\u017F\u0180"), (Data{0x96, 0x00, 0x97, 0x7F, 0x98, 0x00}));
  EXPECT_EQ(EncodeLangpack(u"\u0300\u0680"), (Data{0x99, 0x00, 0xA0, 0x00}));
  EXPECT_EQ(EncodeLangpack(u""), Data{});
}

// Byte 0x41 of each page. Tags without a page of their own choose page 0.
TEST(Langpack, KnowsEveryPage) {
  constexpr char16_t letters[] = u"\u0041\u00C1\u0141\u01C1\u0341\u03C1\u0441\u04C1\u0541\u05C1\u0641\u06C1";
  for (unsigned tag = 0x80; tag <= 0xFF; ++tag) {
    const bool isEncoded = tag >= 0x95 && tag <= 0xA0, isIdeograph = tag >= 0xAA && tag <= 0xEF;
    const unsigned unit = isEncoded ? letters[tag - 0x95] : isIdeograph ? 0x4E41 + (tag - 0xAA) * 0x80 : u'A';
    const std::u16string text(1, static_cast<char16_t>(unit));
    const Data bytes{static_cast<std::uint8_t>(tag), 0x41};
    EXPECT_EQ(DecodeLangpack(bytes).substr(4), text) << std::hex << tag;
    EXPECT_TRUE(!isEncoded || EncodeLangpack(text) == bytes) << std::hex << tag;
  }
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
