// The help pages: every language has them, their links lead somewhere, and the captions in them (<b>...</b>)
// are those of the program.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>

#include "resources/messages.h"
#include "resources/texts.h"
#include "temporary_folder.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

using Pages = std::map<std::string, std::string>;  // texts by file name

const std::filesystem::path folder = std::filesystem::path(TARVELO_SOURCES) / "help";

// The pages of all languages.
Pages AllPages() {
  Pages pages;
  for (const Language& language : Languages()) {
    const std::string name(Messages(language).Msg(Text::ManualFile));
    pages.emplace(name, ReadAll(folder / name));
  }
  return pages;
}

// The texts between each `begin` and the next `end`, in order.
std::vector<std::string> Between(const std::string& text, std::string_view begin, std::string_view end) {
  std::vector<std::string> parts;
  for (auto at = text.find(begin); at != text.npos; at = text.find(begin, at)) {
    at += begin.size();
    const auto stop = text.find(end, at);
    EXPECT_NE(stop, text.npos) << begin;
    parts.push_back(text.substr(at, stop - at));
  }
  return parts;
}

// A caption as a page writes it: without a label's ending.
std::string Caption(std::string_view message) {
  std::string text(message);
  while (text.ends_with(' ') || text.ends_with(':')) text.pop_back();
  return text;
}

TEST(HelpPages, ExistForEveryLanguageAndStandAlone) {
  const Pages pages = AllPages();
  EXPECT_EQ(pages.size(), 2u);
  for (const auto& [name, text] : pages) {
    SCOPED_TRACE(name);
    EXPECT_TRUE(text.starts_with("<!DOCTYPE html>") && text.ends_with("</html>\n"));
    EXPECT_EQ(ToUtf8(ToUtf16(text)), text) << "not UTF-8";
    for (const char* outside : {"<script", "http:", "https:", "url("})
      EXPECT_EQ(text.find(outside), text.npos) << outside;

    const std::vector<std::string> ids = Between(text, " id=\"", "\"");
    const std::set<std::string> places(ids.begin(), ids.end());
    EXPECT_EQ(places.size(), ids.size()) << "two places of one name";
    const std::vector<std::string> links = Between(text, " href=\"", "\"");
    EXPECT_GT(links.size(), 16u);
    for (const std::string& link : links)
      EXPECT_TRUE(link.starts_with('#') ? places.contains(link.substr(1)) : pages.contains(link)) << link;

    const std::vector<std::string> pictures = Between(text, " src=\"", "\"");
    EXPECT_GT(pictures.size(), 10u);
    for (const std::string& picture : pictures) {
      EXPECT_TRUE(picture.starts_with("Tarvelo_images/" + name.substr(name.find('_') + 1, 2) + "_"))
          << picture;
      EXPECT_TRUE(std::filesystem::is_regular_file(folder / picture)) << picture;
    }
  }
}

TEST(HelpPages, SayTheSameInBothLanguages) {
  const std::string english = ReadAll(folder / "Tarvelo_en.htm");
  const std::string russian = ReadAll(folder / "Tarvelo_ru.htm");
  EXPECT_EQ(Between(english, " id=\"", "\""), Between(russian, " id=\"", "\""));
  EXPECT_EQ(Between(english, "<kbd>", "</kbd>"), Between(russian, "<kbd>", "</kbd>"));
  for (const char* part : {"<tr>", "<td>", "<li>", "<h3", "<pre>"})
    EXPECT_EQ(Between(english, part, ">").size(), Between(russian, part, ">").size()) << part;
}

TEST(HelpPages, NameCaptionsAsTheProgramHasThem) {
  for (const char* code : {"EN", "RU"}) {
    const Messages messages(*FindLanguage(code));
    std::set<std::string> captions;
    for (int n = 0; n < 1000; ++n) captions.insert(Caption(messages.Msg(Text{n})));
    const std::vector<std::string> named =
        Between(ReadAll(folder / messages.Msg(Text::ManualFile)), "<b>", "</b>");
    EXPECT_GT(named.size(), 100u) << code;
    for (std::string caption : named) {
      std::ranges::replace(caption, '\n', ' ');
      EXPECT_TRUE(captions.contains(caption)) << code << ' ' << caption;
    }
  }
}

}  // namespace
}  // namespace tarvelo
