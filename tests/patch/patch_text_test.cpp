#include "patch/patch_text.h"

#include <gtest/gtest.h>

#include "patch/patch_file_text.h"

namespace tarvelo {
namespace {

const std::string separator = ";" + std::string(80, '*') + "\r\n";

TEST(ReversedText, SwapsBytesAndKeepsAllElse) {
  const std::pair<const char*, const char*> rows[] = {
      {";a: 00 01\n 1A :\t00ff  12Ab;00 01\nrub: bish",
       ";a: 00 01\r\n 1A :\t12Ab  00ff;00 01\r\nrub: bish\r\n"},
      // Lines 1 and 3 share bytes; 2 and 4 each share some with 5.
      {"10: 00 01 ;a\n20: 0000 0102 ;b\n10: 01 03 ;c\n22: 0000 0304\n21: 0203 0505 ;d",
       "10: 03 01 ;c\r\n21: 0505 0203 ;d\r\n10: 01 00 ;a\r\n22: 0304 0000\r\n20: 0102 0000 ;b\r\n"},
      {"10: 0000 0101\n12: 00 01", "10: 0101 0000\r\n12: 01 00\r\n"},  // neighbours
      {"\xEF\xBB\xBF\xEF\xBB\xBF 1: 00 01", "\xEF\xBB\xBF 1: 01 00\r\n"},
  };
  for (const auto& [text, reversed] : rows) EXPECT_EQ(ReversedText(text), reversed);
}

TEST(MergePatchTexts, AddsWhatTheDocumentLacks) {
  const char* const own = ";own\n10: 00 0a ;first\n20: 00 02";
  const MergedText merged = MergePatchTexts(
      own, "other", ";c\n0010 : 00 0A\t;second\n20: 00 03 ;x\n0020: 00 02 ;y\nrubbish\n10: 00 0A ;first");
  EXPECT_EQ(merged.text,
            ";own\r\n10: 00 0a ;first ;second\r\n20: 00 02 ;y\r\n\r\n;other\r\n\r\n;c\r\n"
            "20: 00 03 ;x\r\nrubbish\r\n\r\n\r\n" +
                separator);
  EXPECT_EQ(merged.added, 2u);
  EXPECT_EQ(merged.same, 3u);
  EXPECT_EQ(MergePatchTexts(own, "other", ";c\n20: 00 02").text, ";own\r\n10: 00 0a ;first\r\n20: 00 02\r\n");
}

TEST(SplitPatchText, CutsAtSeparators) {
  const std::string text = ";C55\r\n" + separator + "\r\n;; one \r\n\r\n10: 00 01 ;x\r\n;two\r\n" +
                           separator + "20: 00 01\r\n " + separator + ";end\r\n;***\r\n";
  const std::vector<PatchPart> parts = SplitPatchText(text);
  ASSERT_EQ(parts.size(), 2u);
  EXPECT_EQ(parts[0].name, "one");
  EXPECT_EQ(parts[0].text, ";C55\r\n\r\n;; one \r\n\r\n10: 00 01 ;x\r\n;two\r\n");
  EXPECT_EQ(parts[1].name, "");
  EXPECT_EQ(parts[1].text, "20: 00 01\r\n;end\r\n;***\r\n");
}

TEST(PatchFileText, ComesBackAsItWas) {
  using namespace std::string_view_literals;
  const std::string own =
      ";C55 24 - Patch made by \"Tarvelo\", explorer of fullflash images\r\n"
      ";Lines: address in the fullflash, old bytes, new bytes\r\n\r\n" +
      separator;
  const std::tuple<std::string, std::string, bool> rows[] = {
      {"10: 00 01 ;\xD1\x82\r\n", "10: 00 01 ;\xD1\x82\r\n", false},  // UTF-8
      {"10: 00 01 ;\xF2\x98\xC0\r\n",
       "10: 00 01 ;т\xC2\x98"
       "А\r\n",
       false},  // Windows-1251
      {own + ";a\r\n\r\n", ";a\r\n", true},
      {";S55 91" + own.substr(7), ";S55 91" + own.substr(7), false},  // for another phone
      {"", "", false},
  };
  for (const auto& [bytes, document, hadHeader] : rows) {
    const PatchFileText read = ReadPatchFileText(bytes, "C55 24");
    EXPECT_EQ(read.document, document);
    EXPECT_EQ(read.hadHeader, hadHeader);
    EXPECT_EQ(PatchFileBytes(read, "C55 24"), bytes);
  }
  // What a document has no place for: the byte order mark, the end mark, other line ends.
  std::string little, big;
  for (const char16_t c : u"\uFEFF;т\n10: 00 01"sv) {
    const char low = static_cast<char>(c), high = static_cast<char>(c >> 8);
    little.append({low, high});
    big.append({high, low});
  }
  for (const std::string& bytes : {std::string("\xEF\xBB\xBF;т\r10: 00 01\x1A\x1A"), little, big})
    EXPECT_EQ(ReadPatchFileText(bytes, "C55 24").document, ";т\r\n10: 00 01");
  EXPECT_EQ(PatchFileBytes({"1: 0 ;\xE2\x82\xAC \xE4\xB8\xAD", PatchEncoding::Windows1251, false}, ""),
            "1: 0 ;\xE2\x82\xAC \xE4\xB8\xAD");  // no such character there
  EXPECT_EQ(LongestLine("ab\r\nabcd\nabc"), 4u);
}

}  // namespace
}  // namespace tarvelo
