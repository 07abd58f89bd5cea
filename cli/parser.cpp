#include "cli/parser.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <functional>

#include "cli/subcommands.h"
#include "document/explorers.h"

namespace tarvelo::cli {
namespace {

// --- the commands ---

constexpr const char* jobsHelp = "Dumps at a time (default: the number of processors)";

// A subcommand with options that fill in its arguments. If the command line names it, it becomes the chosen
// one.
template <typename Arguments>
class Subcommand {
 public:
  using Run = void (*)(const Arguments& arguments, Context& context);

  Subcommand(CLI::App& parent, const std::string& name, const std::string& about, Run run, Command& chosen,
             Arguments arguments = {})
      : app_(*parent.add_subcommand(name, about)),
        arguments_(std::make_shared<Arguments>(std::move(arguments))),
        finish_(std::make_shared<std::function<void()>>([] {})) {
    app_.callback([run, &chosen, given = arguments_, finish = finish_] {
      chosen = [run, given, finish](Context& context) {
        (*finish)();
        run(*given, context);
      };
    });
  }

  // An option or a word, optional (Takes) or required (Needs). If `oneOf` is not empty, only its values are
  // allowed.
  template <typename Value>
  Subcommand& Takes(const char* name, Value Arguments::*value, const char* about,
                    const std::vector<std::string>& oneOf = {}) {
    Add(name, value, about, oneOf);
    return *this;
  }
  template <typename Value>
  Subcommand& Needs(const char* name, Value Arguments::*value, const char* about,
                    const std::vector<std::string>& oneOf = {}) {
    Add(name, value, about, oneOf)->required();
    return *this;
  }
  // One or more files, and one word behind them.
  Subcommand& NeedsFilesAnd(std::vector<std::string> Arguments::*files, const char* name,
                            std::string Arguments::*word, const char* about) {
    Add("FILE", files, about, {})->required()->option_text("... " + std::string(name) + " REQUIRED");
    *finish_ = [files, name, word, &given = *arguments_] {
      if ((given.*files).size() < 2) throw WrongArguments(std::string(name) + " is required");
      given.*word = std::move((given.*files).back());
      (given.*files).pop_back();
    };
    return *this;
  }
  Subcommand& Flag(const char* name, bool Arguments::*value, const std::string& about) {
    app_.add_flag(name, (*arguments_).*value, about);
    return *this;
  }

 private:
  template <typename Value>
  CLI::Option* Add(const char* name, Value Arguments::*value, const char* about,
                   const std::vector<std::string>& oneOf) {
    CLI::Option* option = app_.add_option(name, (*arguments_).*value, about);
    if constexpr (std::is_same_v<Value, std::string>) option->capture_default_str();
    return oneOf.empty() ? option : option->check(CLI::IsMember(oneOf));
  }

  CLI::App& app_;
  std::shared_ptr<Arguments> arguments_;
  std::shared_ptr<std::function<void()>> finish_;  // runs after the command line was read
};

// A command with subcommands.
CLI::App& AddGroup(CLI::App& app, const char* name, const char* about) {
  CLI::App* group = app.add_subcommand(name, about);
  group->require_subcommand(1);
  group->fallthrough();
  return *group;
}

// Turns "EEPROM blocks" into "Deleted blocks".
std::string DeletedOnes(const Explorer& kind) {
  return "Deleted " + std::string(kind.about.substr(kind.about.rfind(' ') + 1));
}

void AddLists(CLI::App& app, Command& chosen) {
  CLI::App& group = AddGroup(app, "list", "Print a list of what a dump holds");
  for (const Explorer* kind : Explorers()) {
    const std::string about = "The " + std::string(kind->about);
    Subcommand list(group, std::string(kind->key), about, List, chosen, {.kind = kind});
    list.Needs("FILE", &ListArguments::files, "Dumps")
        .Flag("--json", &ListArguments::json, "One JSON object a row and line")
        .Takes("--jobs", &ListArguments::jobs, jobsHelp);
    if (kind->hasDeleted) list.Flag("--deleted", &ListArguments::deleted, DeletedOnes(*kind) + " too");
  }
}

void AddExports(CLI::App& app, Command& chosen) {
  CLI::App& group = AddGroup(app, "export", "Write what a dump holds to files");
  for (const Explorer* kind : Explorers()) {
    if (!kind->files) continue;
    const auto& formats = kind->files->formats;
    const std::string_view held = kind->files->about.empty() ? kind->about : kind->files->about;
    const std::string about = "The " + std::string(held) + ", into " + std::string(kind->files->folder);
    Subcommand files(group, std::string(kind->key), about, Export, chosen, {.kind = kind});
    files.Needs("FILE", &ExportArguments::file, "Dump")
        .Takes("--to", &ExportArguments::folder, "Folder, by default one beside the dump")
        .Takes("--number", &ExportArguments::number, "Only the one of this number");
    if (!formats.empty())
      files.Takes("--format", &ExportArguments::format, "Format", {formats.begin(), formats.end()});
    if (kind->hasDeleted)
      files.Flag("--deleted", &ExportArguments::deleted, DeletedOnes(*kind) + " and older generations too")
          .Flag("--json", &ExportArguments::json, "One JSON object a file and line");
  }
}

void AddDumpCommands(CLI::App& app, Command& chosen) {
  Subcommand(app, "info", "Print what each dump is", Info, chosen)
      .Needs("FILE", &InfoArguments::files, "Dumps")
      .Flag("--json", &InfoArguments::json, "One JSON object a file and line")
      .Takes("--jobs", &InfoArguments::jobs, jobsHelp);
  AddLists(app, chosen);
  AddExports(app, chosen);
  Subcommand(app, "find", "Print where a byte pattern occurs", Find, chosen)
      .NeedsFilesAnd(&FindArguments::files, "PATTERN", &FindArguments::pattern,
                     "Dumps, then hexadecimal bytes, ?? for any: E6??4100E6")
      .Flag("--json", &FindArguments::json, "One JSON object a hit and line")
      .Takes("--jobs", &FindArguments::jobs, jobsHelp);
  Subcommand(app, "map", "Print what each byte of a dump is", Map, chosen)
      .Needs("FILE", &MapArguments::files, "Dumps")
      .Flag("--json", &MapArguments::json, "One JSON object a region and line")
      .Takes("--jobs", &MapArguments::jobs, jobsHelp);
}

void AddCodeCommands(CLI::App& app, Command& chosen) {
  Subcommand(app, "disasm", "Print C166 instructions", Disasm, chosen)
      .Needs("FILE", &DisasmArguments::file, "Dump")
      .Takes("OFFSET", &DisasmArguments::offset, "Where the first one begins (hexadecimal)")
      .Takes("--count", &DisasmArguments::count, "How many to print")
      .Flag("--json", &DisasmArguments::json, "One JSON object an instruction and line");
  Subcommand(app, "refs", "Print the places that refer to a byte", Refs, chosen)
      .Needs("FILE", &RefsArguments::file, "Dump")
      .Needs("OFFSET", &RefsArguments::offset, "Where the byte is (hexadecimal)")
      .Flag("--all", &RefsArguments::all, "The merely possible ones too")
      .Flag("--json", &RefsArguments::json, "One JSON object a place and line")
      .Takes("--dpp0", &RefsArguments::dpp0, "The page in DPP0, hexadecimal")
      .Takes("--dpp1", &RefsArguments::dpp1, "The page in DPP1")
      .Takes("--dpp2", &RefsArguments::dpp2, "The page in DPP2")
      .Takes("--dpp3", &RefsArguments::dpp3, "The page in DPP3, by default 3");
}

void AddPatchCommands(CLI::App& app, Command& chosen) {
  Subcommand(app, "diff", "Print where two dumps differ", Diff, chosen)
      .Needs("FILE", &DiffArguments::file, "Dump")
      .Needs("OTHER", &DiffArguments::other, "Dump to compare it with")
      .Flag("--json", &DiffArguments::json, "One JSON object a difference and line")
      .Flag("--from-start", &DiffArguments::fromStart,
            "Compare from the first byte of each on, not by phone address")
      .Flag("--code", &DiffArguments::code, "Compare the functions of two firmware versions instead")
      .Takes("--patch", &DiffArguments::patch, "Write the patch that makes OTHER of FILE");
  Subcommand(app, "apply", "Apply a patch file to a copy of a dump", Apply, chosen)
      .NeedsFilesAnd(&ApplyArguments::files, "PATCH", &ApplyArguments::patch,
                     "Dump (several with --check), then the patch file")
      .Takes("--output", &ApplyArguments::output, "The dump to write")
      .Flag("--check", &ApplyArguments::check, "Say whether the patch fits, write nothing")
      .Flag("--reverse", &ApplyArguments::reverse, "Take the patch out of a dump that has it")
      .Takes("--jobs", &ApplyArguments::jobs, jobsHelp)
      .Flag("--force", &ApplyArguments::force, "Apply the changes that fit, even where others don't");
  Subcommand(app, "port", "Carry a patch over to another firmware version", Port, chosen)
      .Needs("OLD", &PortArguments::old, "The dump that the patch is for")
      .Needs("NEW", &PortArguments::now, "Dump of another version")
      .Needs("PATCH", &PortArguments::patch, "Patch file")
      .Takes("--output", &PortArguments::output, "The patch file to write (default: standard output)")
      .Flag("--json", &PortArguments::json, "One JSON object a change and line")
      .Flag("--move-areas", &PortArguments::moveAreas,
            "Carry what the patch brings into an area that is not empty in NEW into an empty one");
  Subcommand(app, "names", "Print names for the places of a dump", Names, chosen)
      .Needs("FILE", &NamesArguments::file, "Dump")
      .Takes("PATTERNS", &NamesArguments::patterns,
             "Names what the patterns of a text file find, a line a name: name = pattern")
      .Takes("--from", &NamesArguments::from, "Carries over the names of this dump of another version")
      .Flag("--json", &NamesArguments::json, "One JSON object a name and line");
}

void AddOtherCommands(CLI::App& app, Command& chosen) {
  Subcommand(app, "decode", "Decode the text at an offset", Decode, chosen)
      .Needs("CODEC", &DecodeArguments::codec, "Decoder", Codecs())
      .Needs("FILE", &DecodeArguments::file, "Dump, or address book for WordA and GetStrA")
      .Needs("OFFSET", &DecodeArguments::offset, "Where the text begins (hexadecimal)")
      .Takes("--width", &DecodeArguments::width, "Width of the field, for GetStrA");
  Subcommand(app, "encode", "Print the language pack's encoding of a text", Encode, chosen)
      .Needs("TEXT", &EncodeArguments::text, "Text");
  Subcommand(app, "address", "Convert between page and offset, address, and offset", Address, chosen)
      .Takes("--base", &AddressArguments::base, "Corrected base, 0 by default")
      .Takes("--page", &AddressArguments::page, "Page of 16 KiB")
      .Takes("--offs", &AddressArguments::offs, "Offset within the page")
      .Takes("--addr", &AddressArguments::addr, "Phone address")
      .Takes("--adff", &AddressArguments::adff, "Offset in the fullflash");
  Subcommand(app, "demo", "Write the demonstration fullflash", Demo, chosen)
      .Needs("FILE", &DemoArguments::file, "The file to write")
      .Flag("--large", &DemoArguments::large, "A large image of 32 MiB instead of one of 8")
      .Takes("--version", &DemoArguments::version,
             "2: the later firmware of the phone, to compare with the first", {"1", "2"});
}

// --- arguments that the parser would misread ---

// The parser would take a value such as -A0000000 for an option, so the value is joined to its option by "=".
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

// The parser treats "++" and words in brackets specially, unless a zero byte follows them. No argument
// contains one.
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

// For an unknown command the parser would only report that a command is missing.
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

}  // namespace

Command Parse(std::vector<std::string> arguments, Context& context) {
  CLI::App app("Tarvelo: explorer of fullflash images of Siemens phones", "tarvelo-cli");
  app.allow_windows_style_options(false);
  app.set_version_flag("--version", "Tarvelo v" TARVELO_VERSION);
  app.require_subcommand(1);
  app.fallthrough();
  app.add_option_function<std::string>(
         "--language", [&](const std::string& code) { SetLanguage(context, code); },
         "RU EN PL CH HR ES IT FR DE PT GR CZ")
      ->trigger_on_parse();
  Command chosen;
  AddDumpCommands(app, chosen);
  AddCodeCommands(app, chosen);
  AddPatchCommands(app, chosen);
  AddOtherCommands(app, chosen);

  CheckCommand(app, arguments);
  arguments = TieNegativeBase(std::move(arguments));
  GuardWords(arguments);
  TakeGuardsOff(app);
  std::ranges::reverse(arguments);  // the parser takes them from the back
  try {
    app.parse(std::move(arguments));
  } catch (const CLI::Success& success) {  // --help, --version
    app.exit(success, context.out, context.err);
    return {};
  } catch (const CLI::ParseError& error) {
    throw WrongArguments(error.what());
  }
  return chosen;
}

}  // namespace tarvelo::cli
