#include "resources/messages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "resources/texts.h"

namespace tarvelo {
namespace {

// The texts 1 .. 187 are fixed; some of them are unused.
constexpr int lastFixed = 187;
constexpr int firstOwn = 200;

int Count(std::string_view text, std::string_view part) {
  int count = 0;
  for (auto at = text.find(part); at != text.npos; at = text.find(part, at + part.size())) ++count;
  return count;
}

struct Message {
  std::string name;  // in the English table
  std::string text;
};

// Parses a line of a table without the program's own reader: number, name (in the English table), text.
void ReadLine(const std::string& line, bool isNamed, std::map<int, Message>& table) {
  std::istringstream cells(line);
  std::string number, name, text, more;
  EXPECT_TRUE(std::getline(cells, number, '\t')) << line;
  EXPECT_TRUE(!isNamed || std::getline(cells, name, '\t')) << line;
  EXPECT_TRUE(std::getline(cells, text, '\t')) << line;
  EXPECT_FALSE(std::getline(cells, more)) << line;
  EXPECT_TRUE(table.emplace(std::stoi(number), Message{name, text}).second) << line;
}

std::map<int, Message> ReadTable(const std::string& file) {
  std::map<int, Message> table;
  std::ifstream stream(std::filesystem::path(TARVELO_SOURCES) / "resources" / "messages" / file);
  EXPECT_TRUE(stream) << file;
  for (std::string line; std::getline(stream, line);)
    if (!line.starts_with('#')) ReadLine(line, file == "en.tsv", table);
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
    for (const auto& [number, message] : english) {
      const auto found = table.find(number);
      ASSERT_NE(found, table.end()) << file << ' ' << number;
      const std::string& own = found->second.text;
      EXPECT_EQ(Count(own, "%s"), Count(message.text, "%s")) << file << ' ' << number;
      EXPECT_EQ(own.ends_with("\\s"), message.text.ends_with("\\s")) << file << ' ' << number;
      EXPECT_FALSE(own.empty() || own.ends_with(' ')) << file << ' ' << number;
      EXPECT_EQ(Count(own, "&"), 0) << file << ' ' << number;
      EXPECT_TRUE(number <= lastFixed || number >= firstOwn) << number;
    }
  }
}

TEST(Messages, HaveNamesOfTheirOwn) {
  std::set<std::string> names;
  for (const auto& [number, message] : ReadTable("en.tsv")) {
    EXPECT_TRUE(names.insert(message.name).second) << number << ' ' << message.name;
    const auto isLetterOrDigit = [](unsigned char c) { return std::isalnum(c) != 0; };
    EXPECT_TRUE(std::ranges::all_of(message.name, isLetterOrDigit)) << number << ' ' << message.name;
  }
}

// The names after "Text::" in a source file.
void AddUsed(const std::filesystem::path& source, std::set<std::string>& used) {
  constexpr std::string_view mark = "Text::";
  std::ifstream stream(source, std::ios::binary);
  const std::string code{std::istreambuf_iterator<char>(stream), {}};
  for (auto at = code.find(mark); at != code.npos; at = code.find(mark, at)) {
    const auto begin = code.begin() + static_cast<std::ptrdiff_t>(at += mark.size());
    used.emplace(begin, std::find_if_not(begin, code.end(), [](unsigned char c) { return std::isalnum(c); }));
  }
}

TEST(Messages, OfOurOwnAreUsed) {
  std::set<std::string> used;
  for (const auto& folder : std::filesystem::directory_iterator(TARVELO_SOURCES)) {
    if (!std::filesystem::exists(folder.path() / "CMakeLists.txt") || folder.path().filename() == "tests")
      continue;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path()))
      if (const auto ending = entry.path().extension(); ending == ".cpp" || ending == ".h")
        AddUsed(entry.path(), used);
  }
  EXPECT_GT(used.size(), 100u);
  for (const auto& [number, message] : ReadTable("en.tsv"))
    EXPECT_TRUE(number < firstOwn || used.contains(message.name)) << number << ' ' << message.name;
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
  EXPECT_EQ(FindLanguage(""), nullptr);
  EXPECT_EQ(FindSystemLanguage("el_GR.UTF-8")->code, "GR");
  EXPECT_EQ(FindSystemLanguage("pt-BR")->code, "PT");
  EXPECT_EQ(FindSystemLanguage("zh_CN")->charset, 0);
  EXPECT_EQ(FindSystemLanguage("cs")->charset, 238);
  EXPECT_EQ(FindSystemLanguage("ja_JP"), nullptr);
}

}  // namespace
}  // namespace tarvelo
