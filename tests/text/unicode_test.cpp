#include "text/unicode.h"

#include <gtest/gtest.h>

namespace tarvelo {
namespace {

TEST(Windows1251, IsCyrillicInItsUpperHalf) {
  constexpr std::u16string_view upperHalf =
      u"ЂЃ‚ѓ„…†‡€‰Љ‹ЊЌЋЏ"
      u"ђ‘’“”•–—\u0098™љ›њќћџ"
      u"\u00A0ЎўЈ¤Ґ¦§Ё©Є«¬\u00AD®Ї"
      u"°±Ііґµ¶·ё№є»јЅѕї"
      u"АБВГДЕЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯ"
      u"абвгдежзийклмнопрстуфхцчшщъыьэюя";
  ASSERT_EQ(upperHalf.size(), 128u);
  for (std::size_t byte = 0; byte < 0x100; ++byte)
    EXPECT_EQ(FromWindows1251(static_cast<std::uint8_t>(byte)), byte < 0x80 ? byte : upperHalf[byte - 0x80])
        << byte;
}

TEST(ToUpper, KnowsTheInterfacesScripts) {
  EXPECT_EQ(ToUpper("c:\\дамп ё-1 ĥžýęłß.bin ÷ Straße Ελληνικά ώς"),
            "C:\\ДАМП Ё-1 ĤŽÝĘŁß.BIN ÷ STRAßE ΕΛΛΗΝΙΚΆ ΏΣ");
  EXPECT_EQ(ToUpper("全字库 ĲŸ έίΰ"), "全字库 ĲŸ ΈΊΰ");
}

TEST(Utf8, HasOneToFourBytes) {
  constexpr std::u16string_view text = u"\u007F\u0080\u07FF\u0800\uD7FF\uE000\uFFFF\U00010000\U0010FFFF";
  constexpr std::string_view bytes =
      "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF";
  EXPECT_EQ(ToUtf8(text), bytes);
  EXPECT_EQ(ToUtf16(bytes), text);
}

TEST(Utf8, ReplacesUnpairedSurrogates) {
  EXPECT_EQ(ToUtf8(u"A\u00FF\u0410\u4E00\U0001F4DE"), "A\u00FF\u0410\u4E00\U0001F4DE");
  EXPECT_EQ(ToUtf8(std::u16string{u'\xD800', u'A'}), "\uFFFDA");
  EXPECT_EQ(ToUtf8(std::u16string{u'\xDC00', u'\xD800'}), "\uFFFD\uFFFD");
}

TEST(ControlCharacters, AreReplaced) {
  const std::string text = "a\n\x1B\x7F\u0080\u009Fb\u00A0\u044F\xFF";
  EXPECT_EQ(InOneLine(text), "a     b\u00A0\u044F\xFF");
  EXPECT_EQ(WithDots(text), "a.....b\u00A0\u044F\xFF");
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
