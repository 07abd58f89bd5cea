#include <ostream>

#include "cli/code_files.h"
#include "cli/commands.h"
#include "cli/files.h"
#include "cli/output.h"
#include "cli/subcommands.h"
#include "core/notation.h"
#include "patch/name_pattern.h"

namespace tarvelo::cli {
namespace {

void PrintName(const std::string& name, std::uint32_t address, const Fullflash& image, bool json,
               std::ostream& out) {
  if (!json) {
    out << WholeHex(address) << '\t' << PrintableLine(name) << '\n';
    return;
  }
  const Offset offset = Offset{address} - image.CorrBase();
  Json object{{"name", Printable(name)}, {"address", address}, {"offset", nullptr}};
  if (offset >= 0 && offset <= image.ffEnd()) object["offset"] = offset;
  out << JsonLine(object);
}

}  // namespace

void Names(const NamesArguments& arguments, Context& context) {
  RefuseStandardInput(arguments.patterns);
  const std::optional<Dump> dump = OpenCode(arguments.file, context);
  if (!dump) return;
  const Fullflash& image = dump->image;
  const std::string text = ReadText(arguments.patterns, context.progress);
  std::size_t printed = 0;
  for (const NamedPattern& named : ReadNamedPatterns(text)) {
    const auto report = [&](const std::string& problem) {
      context.err << PrintableLine(arguments.patterns) << ": line " << named.line << ": "
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
