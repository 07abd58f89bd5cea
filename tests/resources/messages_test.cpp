#include "resources/messages.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <set>

namespace tarvelo {
namespace {

int Count(std::string_view text, std::string_view part) {
  int count = 0;
  for (auto at = text.find(part); at != text.npos; at = text.find(part, at + part.size())) ++count;
  return count;
}

// The table files, read without the program's own reader.
std::map<int, std::string> ReadTable(const std::string& file) {
  std::map<int, std::string> table;
  std::ifstream stream(std::filesystem::path(TARVELO_MESSAGES) / file);
  EXPECT_TRUE(stream) << file;
  for (std::string line; std::getline(stream, line);) {
    if (line.starts_with('#')) continue;
    const auto tab = line.find('\t');
    EXPECT_NE(tab, line.npos) << file << ": " << line;
    if (tab == line.npos) continue;
    const bool isNew = table.emplace(std::stoi(line), line.substr(tab + 1)).second;
    EXPECT_TRUE(isNew) << file << ": " << line;
  }
  return table;
}

TEST(Messages, EveryLanguageHasEveryTextOfTheEnglishTable) {
  const auto english = ReadTable("en.tsv");
  EXPECT_EQ(Languages().size(), 12u);
  for (const Language& language : Languages()) {
    std::string file(language.code);
    for (char& c : file) c = static_cast<char>(std::tolower(c));
    const auto table = ReadTable(file + ".tsv");
    EXPECT_EQ(table.size(), english.size()) << file;
    for (const auto& [number, text] : english) {
      const auto own = table.find(number);
      ASSERT_NE(own, table.end()) << file << ' ' << number;
      EXPECT_EQ(Count(own->second, "%s"), Count(text, "%s")) << file << ' ' << number;
      EXPECT_EQ(own->second.ends_with("\\s"), text.ends_with("\\s")) << file << ' ' << number;
      EXPECT_FALSE(own->second.empty() || own->second.ends_with(' ')) << file << ' ' << number;
      EXPECT_EQ(Count(own->second, "&"), 0) << file << ' ' << number;
      EXPECT_TRUE(number <= 187 || number >= 200) << number;
    }
  }
}

TEST(Messages, LooksUpByNumberAndLanguage) {
  EXPECT_EQ(Messages().Msg(Text::FullflashLabel), "Fullflash: ");
  EXPECT_EQ(Messages().Msg(56), "");
  EXPECT_EQ(Messages().LangBase(), 2000);
  EXPECT_EQ(Messages(*FindLanguage("RU")).Msg(Text::LanguageName), "Русский");
  EXPECT_EQ(Messages(*FindLanguage("CZ")).LangBase(), 13000);
}

TEST(Messages, PutsTheArgumentInDoubleQuotes) {
  EXPECT_EQ(Messages().MsgS(Text::StringNotFound, "%s"), "String \"%s\" wasn't found");
  EXPECT_EQ(Messages().MsgS(Text::NoDataToSave, "abc"), "No data for saving !");
}

TEST(Language, IsFoundByCodeAndBySystemName) {
  std::set<int> numbers;
  for (const Language& language : Languages()) {
    numbers.insert(language.number);
    EXPECT_EQ(FindLanguage(language.code), &language);
  }
  EXPECT_EQ(numbers, (std::set{1, 2, 3, 4, 6, 7, 8, 9, 10, 11, 12, 13}));
  EXPECT_EQ(FindLanguage("en"), nullptr);
  EXPECT_EQ(FindLanguage(""), nullptr);
  EXPECT_EQ(FindSystemLanguage("el_GR.UTF-8")->code, "GR");
  EXPECT_EQ(FindSystemLanguage("pt-BR")->code, "PT");
  EXPECT_EQ(FindSystemLanguage("zh_CN")->charset, 0);
  EXPECT_EQ(FindSystemLanguage("cs")->charset, 238);
  EXPECT_EQ(FindSystemLanguage("ja_JP"), nullptr);
}

}  // namespace
}  // namespace tarvelo
