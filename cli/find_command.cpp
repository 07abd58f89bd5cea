#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>
#include <ostream>

#include "cli/commands.h"
#include "cli/context.h"
#include "patch/pattern.h"

namespace tarvelo::cli {
namespace {

struct FindArguments {
  std::string file;
  std::string pattern;
  bool json = false;
};

void PrintHits(const FindArguments& arguments, Context& context) {
  if (arguments.pattern.empty()) throw WrongArguments("PATTERN: it is empty");
  const Fullflash image = OpenDump(arguments.file, context);
  const Pattern pattern(arguments.pattern);
  const std::vector<Offset> hits = FindAll(image, pattern, context.progress);
  for (std::size_t i = 0; i < hits.size(); ++i) {
    if (!arguments.json) {
      context.out << LineOfHit(image, pattern, i + 1, hits[i]) << '\n';
      continue;
    }
    const nlohmann::ordered_json hit{{"offset", hits[i]}, {"bytes", BytesOfHit(image, pattern, hits[i])}};
    context.out << hit.dump() << '\n';
  }
  if (!hits.empty()) return;
  context.err << NotFound(Printable(arguments.pattern), context.messages) << '\n';
  context.status = nothingFound;
}

}  // namespace

void AddFind(CLI::App& app, Context& context) {
  auto arguments = std::make_shared<FindArguments>();
  CLI::App* command = app.add_subcommand("find", "Print where a byte pattern occurs");
  command->add_option("FILE", arguments->file, "Dump")->required();
  command->add_option("PATTERN", arguments->pattern, "Hexadecimal bytes, ?? for any: E6??4100E6")->required();
  command->add_flag("--json", arguments->json, "One JSON object a hit and line");
  command->callback([arguments, &context] { PrintHits(*arguments, context); });
}

}  // namespace tarvelo::cli
