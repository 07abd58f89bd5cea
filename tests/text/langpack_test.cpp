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

// Byte 0x41 of each page, from tag 80 on. Tags without a page of their own choose page 0.
constexpr char16_t byPage[] =
    u"AAAAAAAAAAAAAAAAAAAAA"                                                     // 80 .. 94
    u"\u0041\u00C1\u0141\u01C1"                                                  // 95 .. 98
    u"\u0341\u03C1\u0441\u04C1\u0541\u05C1\u0641\u06C1"                          // 99 .. A0
    u"AAAAAAAAA"                                                                 // A1 .. A9
    u"\u4E41\u4EC1\u4F41\u4FC1\u5041\u50C1\u5141\u51C1\u5241\u52C1\u5341\u53C1"  // AA .. B5
    u"\u5441\u54C1\u5541\u55C1\u5641\u56C1\u5741\u57C1\u5841\u58C1\u5941\u59C1"  // B6 .. C1
    u"\u5A41\u5AC1\u5B41\u5BC1\u5C41\u5CC1\u5D41\u5DC1\u5E41\u5EC1\u5F41\u5FC1"  // C2 .. CD
    u"\u6041\u60C1\u6141\u61C1\u6241\u62C1\u6341\u63C1\u6441\u64C1\u6541\u65C1"  // CE .. D9
    u"\u6641\u66C1\u6741\u67C1\u6841\u68C1\u6941\u69C1\u6A41\u6AC1\u6B41\u6BC1"  // DA .. E5
    u"\u6C41\u6CC1\u6D41\u6DC1\u6E41\u6EC1\u6F41\u6FC1\u7041\u70C1"              // E6 .. EF
    u"AAAAAAAAAAAAAAAA";                                                         // F0 .. FF

TEST(Langpack, KnowsEveryPage) {
  for (unsigned tag = 0x80; tag <= 0xFF; ++tag) {
    const char16_t unit = byPage[tag - 0x80];
    const Data bytes{static_cast<std::uint8_t>(tag), 0x41};
    EXPECT_EQ(DecodeLangpack(bytes).substr(4), std::u16string(1, unit)) << std::hex << tag;
    const bool isEncoded = tag >= 0x95 && tag <= 0xA0;
    EXPECT_TRUE(!isEncoded || EncodeLangpack(std::u16string(1, unit)) == bytes) << std::hex << tag;
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
