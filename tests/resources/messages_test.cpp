#include "resources/messages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <sstream>

#include "resources/texts.h"
#include "temporary_folder.h"

namespace tarvelo {
namespace {

// The texts 1 .. 187 are fixed; some of them are unused.
constexpr int lastFixed = 187;
constexpr int firstOwn = 200;

const std::filesystem::path sources(TARVELO_SOURCES);

int Count(std::string_view text, std::string_view part) {
  int count = 0;
  for (auto at = text.find(part); at != text.npos; at = text.find(part, at + part.size())) ++count;
  return count;
}

// The lines of a language's table, without comments.
std::vector<std::string> LinesOf(std::string code) {
  for (char& c : code) c = static_cast<char>(std::tolower(c));
  std::istringstream table(ReadAll(sources / "resources" / "messages" / (code + ".tsv")));
  std::vector<std::string> lines;
  for (std::string line; std::getline(table, line);)
    if (!line.starts_with('#')) lines.push_back(line);
  return lines;
}

TEST(Messages, EveryLanguageHasEveryTextOfTheEnglishTable) {
  EXPECT_EQ(Languages().size(), 12u);
  for (const Language& language : Languages()) {
    std::size_t texts = 0;
    for (int number = 0; number < 1000; ++number) {
      SCOPED_TRACE(std::string(language.code) + ' ' + std::to_string(number));
      const std::string_view english = Messages().Msg(Text{number}),
                             own = Messages(language).Msg(Text{number});
      ASSERT_EQ(own.empty(), english.empty());
      EXPECT_EQ(Count(own, "%s"), Count(english, "%s"));
      EXPECT_EQ(own.ends_with(' '), english.ends_with(' '));
      EXPECT_EQ(Count(own, "&"), 0);
      EXPECT_TRUE(own.empty() || number <= lastFixed || number >= firstOwn);
      texts += !own.empty();
    }
    const std::vector<std::string> lines = LinesOf(std::string(language.code));
    EXPECT_EQ(lines.size(), texts) << language.code;  // no number twice
    for (const std::string& line : lines) {
      EXPECT_EQ(Count(line, "\t"), language.code == "EN" ? 2 : 1) << line;
      EXPECT_FALSE(line.ends_with(' ')) << line;  // written as \\s
    }
  }
}

// The names after "Text::" in a source file.
void AddUsed(const std::string& code, std::set<std::string>& used) {
  constexpr std::string_view mark = "Text::";
  for (auto at = code.find(mark); at != code.npos; at = code.find(mark, at)) {
    const auto begin = code.begin() + static_cast<std::ptrdiff_t>(at += mark.size());
    used.emplace(begin, std::find_if_not(begin, code.end(), [](unsigned char c) { return std::isalnum(c); }));
  }
}

TEST(Messages, OfOurOwnAreUsed) {
  std::set<std::string> used;
  for (const auto& folder : std::filesystem::directory_iterator(sources)) {
    if (!std::filesystem::exists(folder.path() / "CMakeLists.txt") || folder.path().filename() == "tests")
      continue;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path()))
      if (const auto ending = entry.path().extension(); ending == ".cpp" || ending == ".h")
        AddUsed(ReadAll(entry.path()), used);
  }
  EXPECT_GT(used.size(), 100u);
  for (const std::string& line : LinesOf("en")) {
    std::istringstream words(line);
    int number = 0;
    std::string name;
    EXPECT_TRUE(words >> number >> name) << line;
    EXPECT_TRUE(number < firstOwn || used.contains(name)) << line;
  }
}

TEST(Messages, LooksUpByNumberAndLanguage) {
  EXPECT_EQ(Messages().Msg(Text::FullflashLabel), "Fullflash: ");
  EXPECT_EQ(Messages().Msg(Text{56}), "");
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
  EXPECT_EQ(FindSystemLanguage("el_GR.UTF-8")->code, "GR");
  EXPECT_EQ(FindSystemLanguage("pt-BR")->code, "PT");
  EXPECT_EQ(FindSystemLanguage("zh_CN")->charset, 0);
  EXPECT_EQ(FindSystemLanguage("cs")->charset, 238);
  EXPECT_EQ(FindSystemLanguage("ja_JP"), nullptr);
}

}  // namespace
}  // namespace tarvelo
