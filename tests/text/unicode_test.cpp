#include "text/unicode.h"

#include <gtest/gtest.h>

namespace tarvelo {
namespace {

TEST(Windows1251, IsCyrillicInItsUpperHalf) {
  EXPECT_EQ(FromWindows1251(0x00), u'\0');
  EXPECT_EQ(FromWindows1251(0x7F), u'\x7F');
  EXPECT_EQ(FromWindows1251(0x80), u'\u0402');
  EXPECT_EQ(FromWindows1251(0x98), u'\u0098');
  EXPECT_EQ(FromWindows1251(0xA8), u'\u0401');
  EXPECT_EQ(FromWindows1251(0xB9), u'\u2116');
  EXPECT_EQ(FromWindows1251(0xFF), u'\u044F');
}

TEST(ToUpper, KnowsTheInterfacesScripts) {
  EXPECT_EQ(ToUpper("c:\\дамп ё-1 ĥžýęłß.bin ÷ Straße Ελληνικά ώς"),
            "C:\\ДАМП Ё-1 ĤŽÝĘŁß.BIN ÷ STRAßE ΕΛΛΗΝΙΚΆ ΏΣ");
  EXPECT_EQ(ToUpper("全字库 ĲŸ"), "全字库 ĲŸ");
}

TEST(Utf8, ReplacesUnpairedSurrogates) {
  EXPECT_EQ(ToUtf8(u"A\u00FF\u0410\u4E00\U0001F4DE"), "A\u00FF\u0410\u4E00\U0001F4DE");
  EXPECT_EQ(ToUtf8(std::u16string{u'\xD800', u'A'}), "\uFFFDA");
  EXPECT_EQ(ToUtf8(std::u16string{u'\xDC00', u'\xD800'}), "\uFFFD\uFFFD");
}

TEST(Utf16, ReplacesWhatIsNotWellFormed) {
  EXPECT_EQ(ToUtf16("A\u0410\u4E00\U0001F4DE"), u"A\u0410\u4E00\U0001F4DE");
  EXPECT_EQ(ToUtf16("\x80"), u"\uFFFD");
  EXPECT_EQ(ToUtf16("\xC1\x81"), u"\uFFFD\uFFFD");            // overlong encoding
  EXPECT_EQ(ToUtf16("\xE2\x82"), u"\uFFFD\uFFFD");            // cut off
  EXPECT_EQ(ToUtf16("\xED\xA0\x80"), u"\uFFFD\uFFFD\uFFFD");  // a surrogate
  EXPECT_EQ(ToUtf16("\xF5\x80\x80\x80"
                    "A"),
            u"\uFFFD\uFFFD\uFFFD\uFFFDA");
}

}  // namespace
}  // namespace tarvelo
