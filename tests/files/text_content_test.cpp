#include "files/text_content.h"

#include <gtest/gtest.h>

#include "files/volume_builder.h"

namespace tarvelo {
namespace {

TEST(TextContent, IsToldFromOtherFiles) {
  using namespace std::string_literals;
  const struct {
    std::string bytes;
    std::string encoding, text;  // no encoding: no text
    bool isCut = false;
  } cases[] = {
      {"", "", ""},
      {"Milk\r\n\x1A", "ASCII", "Milk\r\n\x1A"},
      {"a\0b"s, "", ""},
      {"Gr\xC3\xBC\xC3\x9F", "UTF-8", "Gr\u00FC\u00DF"},
      {"\xEF\xBB\xBFGr\xC3\xBC", "UTF-8", "Gr\u00FC"},
      {"Gr\xC3\xBC\xE2\x82", "UTF-8", "Gr\u00FC", true},
      {"a\xE2\x82\xAC", "UTF-8", "a\u20AC", true},
      {"Hi \xCF\xF0", "Windows-1251", "Hi \u041F\u0440"},
      {"Hi \xCF", "Windows-1251", "Hi \u041F"},
      {"Hi \x98", "", ""},
      {"\x1F\x04@\x04!\0"s, "UTF-16LE", "\u041F\u0440!"},
      {"\x04\x1F\x04@\0!"s, "UTF-16BE", "\u041F\u0440!"},
      {"\xFF\xFE\x2D\x4E"s, "UTF-16LE", "\u4E2D"},
      {"\xFE\xFF\x4E\x2D"s, "UTF-16BE", "\u4E2D"},
      {"\x2D\x01\x00\x99"s, "", ""},
  };
  for (const auto& [bytes, encoding, text, isCut] : cases) {
    const TextContent read = ReadText(AsBytes(bytes), isCut).value_or(TextContent{});
    EXPECT_EQ(read.encoding, encoding) << text;
    EXPECT_EQ(read.text, text);
  }
}

}  // namespace
}  // namespace tarvelo
