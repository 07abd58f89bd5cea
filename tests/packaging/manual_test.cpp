// The manual page of the command line must name every command with all of its options.
#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <set>

#include "cli/call.h"
#include "temporary_folder.h"

namespace tarvelo {
namespace {

using Words = std::vector<std::string>;

std::string Help(Words command) {
  command.emplace_back("--help");
  const cli::Result result = cli::Call(command);
  EXPECT_EQ(result.status, 0) << result.err;
  return result.out;
}

// Every text that the expression's parentheses match.
std::set<std::string> Matches(const std::string& text, const char* expression) {
  const std::regex pattern(expression);
  std::set<std::string> found;
  for (std::sregex_iterator at(text.begin(), text.end(), pattern), end; at != end; ++at)
    found.insert((*at)[1]);
  return found;
}

// The commands in a help text: indented, after its title.
std::set<std::string> CommandsOf(const std::string& help) {
  const auto title = help.find("Subcommands:");
  return title == help.npos ? std::set<std::string>() : Matches(help.substr(title), "\n  ([a-z]+) ");
}

// The page's source without changes of typeface, in small parts: the line of a command with its text.
std::string Page() {
  const std::filesystem::path sources(TARVELO_SOURCES);
  const std::string text = ReadAll(sources / "packaging" / "man" / "tarvelo-cli.1.in");
  return std::regex_replace(std::regex_replace(text, std::regex(R"(\\f[BIR])"), ""), std::regex(R"(\\-)"),
                            "-");
}

void ExpectDescribed(const std::string& page, const Words& command) {
  const std::string help = Help(command);
  const std::set<std::string> commands = CommandsOf(help);
  for (const std::string& next : commands) {
    Words longer = command;
    longer.push_back(next);
    ExpectDescribed(page, longer);
  }
  if (!commands.empty()) return;
  std::string name = command[0];
  for (std::size_t i = 1; i < command.size(); ++i) name += " " + command[i];
  const auto begin = page.find(".TP\n" + name + " ");
  ASSERT_NE(begin, page.npos) << name;
  const std::string entry = page.substr(begin, page.find('\n', begin + 4) - begin);
  for (const std::string& option : Matches(help, "(--[a-z]+)"))
    EXPECT_TRUE(option == "--help" || entry.find(option) != entry.npos) << name << ' ' << option;
}

TEST(Manual, NamesEveryCommandAndOption) {
  ASSERT_GE(CommandsOf(Help({})).size(), 11u);
  ExpectDescribed(Page(), {});
}

}  // namespace
}  // namespace tarvelo
