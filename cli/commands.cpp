#include "cli/commands.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <ostream>

#include "cli/context.h"
#include "cli/progress_bar.h"

namespace tarvelo::cli {
namespace {

// The parser would take a value such as -A0000000 for an option: the value is tied to its name.
std::vector<std::string> TieNegativeBase(std::vector<std::string> arguments) {
  const auto end = std::ranges::find(arguments, "--");
  for (auto at = arguments.begin(); at != end && at + 1 != end; ++at) {
    const std::string& value = *(at + 1);
    if (*at != "--base" || !value.starts_with('-') || value.starts_with("--")) continue;
    *at += "=" + value;
    arguments.erase(at + 1);
    break;
  }
  return arguments;
}

// The parser gives "++" and words in brackets a meaning of its own. Behind a zero byte, which no argument
// has, they stand as they are.
void GuardWords(std::vector<std::string>& arguments) {
  for (std::string& word : arguments)
    if (word == "++" || (word.starts_with('[') && word.ends_with(']'))) word += '\0';
}

void TakeGuardsOff(CLI::App& app) {
  for (CLI::Option* option : app.get_options())
    option->transform([](std::string word) {
      if (word.ends_with('\0')) word.pop_back();
      return word;
    });
  for (CLI::App* command : app.get_subcommands({})) TakeGuardsOff(*command);
}

// The parser's own word for an unknown command is that one is missing.
void CheckCommand(const CLI::App& app, const std::vector<std::string>& arguments) {
  for (auto at = arguments.begin(); at != arguments.end(); ++at) {
    if (*at == "--language" && at + 1 != arguments.end()) {
      ++at;  // its value
      continue;
    }
    if (at->starts_with('-')) continue;
    const auto named = [&](const CLI::App* command) { return command->get_name() == *at; };
    if (app.get_subcommands(named).empty()) throw WrongArguments(*at + ": there is no such command");
    return;
  }
}

void SetLanguage(Context& context, std::string code) {
  std::ranges::transform(code, code.begin(), [](unsigned char c) { return std::toupper(c); });
  const Language* language = FindLanguage(code);
  if (!language) throw CLI::ValidationError("--language", code + " is none of the languages");
  context.messages = Messages(*language);
}

void Parse(std::vector<std::string> arguments, Context& context) {
  CLI::App app("Tarvelo: explorer of fullflash images of Siemens phones", "tarvelo-cli");
  app.allow_windows_style_options(false);
  app.set_version_flag("--version", "Tarvelo v" TARVELO_VERSION);
  app.require_subcommand(1);
  app.fallthrough();
  app.add_option_function<std::string>(
         "--language", [&](const std::string& code) { SetLanguage(context, code); },
         "RU EN PL CH HR ES IT FR DE PT GR CZ")
      ->trigger_on_parse();
  AddInfo(app, context);
  AddList(app, context);
  AddExport(app, context);
  AddFind(app, context);
  AddMap(app, context);
  AddDiff(app, context);
  AddApply(app, context);
  AddDecode(app, context);
  AddEncode(app, context);
  AddAddress(app, context);
  AddDemo(app, context);

  CheckCommand(app, arguments);
  arguments = TieNegativeBase(std::move(arguments));
  GuardWords(arguments);
  TakeGuardsOff(app);
  std::ranges::reverse(arguments);  // the parser takes them from the back
  try {
    app.parse(std::move(arguments));
  } catch (const CLI::Success& success) {  // --help, --version
    app.exit(success, context.out, context.err);
  }
}

int Fail(Context& context, const std::exception& error, ExitStatus status) {
  Diagnose(context, error);
  return status;
}

int Execute(const std::vector<std::string>& arguments, Context& context) try {
  Parse(arguments, context);
  context.out.flush();
  if (!context.out) throw std::runtime_error("the output can't be written");
  return context.status;
} catch (const CLI::ParseError& error) {
  return Fail(context, error, wrongArguments);
} catch (const WrongArguments& error) {
  return Fail(context, error, wrongArguments);
} catch (const ScanFault& error) {
  return Fail(context, error, scanFault);
} catch (const std::bad_alloc&) {
  return Fail(context, std::runtime_error("there is not enough memory"), fileTrouble);
} catch (const std::exception& error) {
  return Fail(context, error, fileTrouble);
}

}  // namespace

int Run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
  const std::unique_ptr<Progress> progress = TerminalProgress();
  Context context{out, err, *progress, Messages(), done};
  return Execute(arguments, context);
}

}  // namespace tarvelo::cli
