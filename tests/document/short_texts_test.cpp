#include "document/short_texts.h"

#include <gtest/gtest.h>

#include <string>

namespace tarvelo {
namespace {

TEST(ShortTexts, AreRunsOfTenWithTheirZero) {
  using namespace std::string_literals;
  const std::pair<std::string, std::vector<Region>> rows[] = {
      {"\1Display te\0\0"s, {{1, 11}}},
      {"\1Display t\0"s, {}},
      {"Display test\1Keypad: 2 of 3\xFF", {{0, 12}, {13, 14}}},
      {"12345abcde", {{0, 10}}},
      {"123456abcd", {}},  // mostly digits
      {"\1\2Display~test, again", {{10, 11}}},
      {"", {}},
  };
  for (const auto& [text, found] : rows) {
    const Bytes bytes(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
    EXPECT_EQ(ShortTexts(bytes, {0, std::ssize(bytes)}), found) << text;
  }
  const std::string text = "Display test";
  const Bytes bytes(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
  EXPECT_EQ(ShortTexts(bytes, {1, 10}), (std::vector<Region>{{1, 10}}));
}

}  // namespace
}  // namespace tarvelo
