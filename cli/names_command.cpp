#include <ostream>

#include "cli/code_files.h"
#include "cli/commands.h"
#include "cli/files.h"
#include "cli/output.h"
#include "cli/subcommands.h"
#include "core/notation.h"
#include "core/places.h"
#include "patch/name_pattern.h"
#include "port/carry_names.h"
#include "port/port.h"

namespace tarvelo::cli {
namespace {

void PrintName(const std::string& name, std::uint32_t address, const Fullflash& image, bool json,
               std::ostream& out) {
  if (!json) {
    out << WholeHex(address) << '\t' << PrintableLine(name) << '\n';
    return;
  }
  Json object{{"name", Printable(name)}, {"address", address}, {"offset", nullptr}};
  if (const auto offset = OffsetOf(image, address)) object["offset"] = *offset;
  out << JsonLine(object);
}

// As in a names file: address, name and comment.
void PrintCarried(const CarriedName& carried, const Fullflash& image, bool json, std::ostream& out) {
  if (!json) {
    out << WholeHex(carried.address) << '\t' << PrintableLine(carried.name);
    if (!carried.comment.empty()) out << '\t' << PrintableLine(carried.comment);
    out << '\n';
    return;
  }
  Json object{{"name", Printable(carried.name)},
              {"comment", Printable(carried.comment)},
              {"old_address", carried.oldAddress},
              {"address", carried.address},
              {"offset", nullptr}};
  if (const auto offset = OffsetOf(image, carried.address)) object["offset"] = *offset;
  out << JsonLine(object);
}

void CarryFrom(const NamesArguments& arguments, const Dump& now, Context& context) {
  const std::optional<Dump> old = OpenCode(*arguments.from, context);
  if (!old) return;
  const CodeVersions versions(old->image, now.image, context.progress);
  std::size_t printed = 0;
  for (const CarriedName& carried : CarryNames(old->names, versions, context.progress)) {
    if (carried.refusal) {
      const std::string& text = carried.name.empty() ? carried.comment : carried.name;
      context.err << PrintableLine(*arguments.from) << ": " << WholeHex(carried.oldAddress) << ": "
                  << PrintableLine(text) << ": " << ReasonOf(*carried.refusal) << '\n';
    } else {
      PrintCarried(carried, now.image, arguments.json, context.out);
      ++printed;
    }
  }
  if (old->names.Count() == 0)
    context.err << PrintableLine(*arguments.from) << ": there are no names for it\n";
  if (printed == 0) context.status = nothingFound;
}

}  // namespace

void Names(const NamesArguments& arguments, Context& context) {
  if (arguments.patterns.has_value() == arguments.from.has_value())
    throw WrongArguments("either PATTERNS or --from is required");
  RefuseStandardInput(arguments.patterns ? *arguments.patterns : *arguments.from);
  const std::optional<Dump> dump = OpenCode(arguments.file, context);
  if (!dump) return;
  if (arguments.from) return CarryFrom(arguments, *dump, context);
  const Fullflash& image = dump->image;
  const std::string text = ReadText(*arguments.patterns, context.progress);
  std::size_t printed = 0;
  for (const NamedPattern& named : ReadNamedPatterns(text)) {
    const auto report = [&](const std::string& problem) {
      context.err << PrintableLine(*arguments.patterns) << ": line " << named.line << ": "
                  << PrintableLine(named.name) << ": " << PrintableLine(problem) << '\n';
    };
    if (!named.pattern) {
      report(named.problem);
      continue;
    }
    const std::vector<std::uint32_t> found = named.pattern->Find(image, 2);
    if (found.size() == 1) {
      PrintName(named.name, found[0], image, arguments.json, context.out);
      ++printed;
    } else {
      report(found.empty() ? "found nowhere" : "found more than once");
    }
  }
  if (printed == 0) context.status = nothingFound;
}

}  // namespace tarvelo::cli
