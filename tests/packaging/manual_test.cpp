// The manual page of the command line must name every command with all of its options.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <sstream>

#include "cli/commands.h"

namespace tarvelo {
namespace {

using Words = std::vector<std::string>;

std::string Help(Words command) {
  command.emplace_back("--help");
  std::ostringstream out, err;
  EXPECT_EQ(cli::Run(command, out, err), 0) << err.str();
  return out.str();
}

// Every text that the expression's parentheses match.
std::set<std::string> All(const std::string& text, const char* expression) {
  const std::regex pattern(expression);
  std::set<std::string> found;
  for (std::sregex_iterator at(text.begin(), text.end(), pattern), end; at != end; ++at)
    found.insert((*at)[1]);
  return found;
}

// The commands in a help text: indented, after its title.
std::set<std::string> CommandsOf(const std::string& help) {
  const auto title = help.find("Subcommands:");
  return title == help.npos ? std::set<std::string>() : All(help.substr(title), "\n  ([a-z]+) ");
}

// The page's source without changes of typeface, in small parts: the line of a command with its text.
std::string Page() {
  std::ifstream stream(std::filesystem::path(TARVELO_SOURCES) / "packaging" / "man" / "tarvelo-cli.1.in",
                       std::ios::binary);
  EXPECT_TRUE(stream);
  std::string text{std::istreambuf_iterator<char>(stream), {}};
  text = std::regex_replace(text, std::regex(R"(\\f[BIR])"), "");
  return std::regex_replace(text, std::regex(R"(\\-)"), "-");
}

void ExpectDescribed(const std::string& page, const Words& command) {
  std::string name;
  for (const std::string& word : command) name += (name.empty() ? "" : " ") + word;
  const std::string help = Help(command);
  if (const auto commands = CommandsOf(help); !commands.empty()) {
    for (const std::string& next : commands) {
      Words longer = command;
      longer.push_back(next);
      ExpectDescribed(page, longer);
    }
    return;
  }
  const auto begin = page.find(".TP\n" + name + " ");
  ASSERT_NE(begin, page.npos) << name;
  const std::string entry = page.substr(begin, page.find('\n', begin + 4) - begin);
  for (const std::string& option : All(help, "(--[a-z]+)"))
    EXPECT_TRUE(option == "--help" || entry.find(option) != entry.npos) << name << ' ' << option;
}

TEST(Manual, NamesEveryCommandAndOption) {
  ASSERT_GE(CommandsOf(Help({})).size(), 11u);
  ExpectDescribed(Page(), {});
}

}  // namespace
}  // namespace tarvelo
