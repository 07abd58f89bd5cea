#include <CLI/CLI.hpp>
#include <algorithm>
#include <nlohmann/json.hpp>
#include <optional>
#include <ostream>

#include "cli/commands.h"
#include "cli/context.h"
#include "core/identification.h"
#include "patch/image_compare.h"
#include "patch/patch_document.h"
#include "patch/patch_lines.h"
#include "patch/pattern.h"

namespace tarvelo::cli {
namespace {

using Json = nlohmann::ordered_json;

struct DiffArguments {
  std::string file;
  std::string other;
  bool json = false;
  std::optional<std::string> patch;
};

// Two dumps and where they differ.
struct Pair {
  Fullflash one;
  Fullflash other;
  Comparison comparison;

  [[nodiscard]] const char* Longer() const { return comparison.restOfOld > 0 ? "FILE" : "OTHER"; }
  [[nodiscard]] Offset Rest() const { return comparison.restOfOld + comparison.restOfNew; }
};

std::string Place(const Pair& pair, Offset offset, Offset size) {
  return PatchAddress(offset) + "\t" + PatchAddress(pair.one.PhoneAddress(offset)) + "\t" +
         std::to_string(size);
}

Json PlaceJson(const Pair& pair, Offset offset, Offset size) {
  return {{"offset", offset}, {"address", pair.one.PhoneAddress(offset)}, {"length", size}};
}

void PrintDifferences(const Pair& pair, bool json, std::ostream& out) {
  constexpr std::size_t most = 8;
  for (const auto& [offset, size] : pair.comparison.differences) {
    const Bytes from = pair.one.Region(offset, size);
    const Bytes to = pair.other.Region(offset, size);
    if (json) {
      Json object = PlaceJson(pair, offset, size);
      object["old"] = HexOfBytes(from.first(std::min(most, from.size())));
      object["new"] = HexOfBytes(to.first(std::min(most, to.size())));
      out << object.dump() << '\n';
    } else {
      out << Place(pair, offset, size) << '\t' << FirstBytes(from, most) << '\t' << FirstBytes(to, most)
          << '\n';
    }
  }
}

void PrintRest(const Pair& pair, bool json, std::ostream& out) {
  if (pair.comparison.SameLength()) return;
  const Offset end = pair.comparison.common;
  if (json) {
    Json object = PlaceJson(pair, end, pair.Rest());
    object["only"] = pair.Longer();
    out << object.dump() << '\n';
  } else {
    out << Place(pair, end, pair.Rest()) << "\tonly in " << pair.Longer() << '\n';
  }
}

// The patch that makes the second dump of the first one.
void WritePatch(const DiffArguments& arguments, const Pair& pair, const Identification& info,
                Context& context) {
  const std::vector<Difference>& differences = pair.comparison.differences;
  const std::string name = PathText(PathOf(arguments.other).filename());
  const std::string document =
      differences.empty()
          ? std::string()
          : PatchBlock(Printable(name), PatchLines(pair.one.ff(), pair.other.ff(), differences));
  ReplaceFile(PathOf(*arguments.patch), PatchFile(info.StatusText(), document));
  if (!pair.comparison.SameLength())
    context.err << InOneLine(*arguments.patch) << ": the bytes that are only in " << pair.Longer()
                << " are not in this patch\n";
}

void Diff(const DiffArguments& arguments, Context& context) {
  if (arguments.patch) CheckOutput("--patch", *arguments.patch, {arguments.file, arguments.other});
  RefuseStandardInput(arguments.other);
  Pair pair{OpenDump(arguments.file, context), OpenDump(arguments.other, context), {}};
  const Identification info = Identify(pair.one);
  pair.comparison = Compare(pair.one.ff(), pair.other.ff());
  if (arguments.patch) WritePatch(arguments, pair, info, context);
  PrintDifferences(pair, arguments.json, context.out);
  PrintRest(pair, arguments.json, context.out);
  if (!pair.comparison.Same()) return;
  context.err << InOneLine(arguments.other) << ": it is the same as " << InOneLine(arguments.file) << '\n';
  context.status = nothingFound;
}

}  // namespace

void AddDiff(CLI::App& app, Context& context) {
  auto arguments = std::make_shared<DiffArguments>();
  CLI::App* command = app.add_subcommand("diff", "Print where two dumps differ");
  command->add_option("FILE", arguments->file, "Dump")->required();
  command->add_option("OTHER", arguments->other, "Dump to compare it with")->required();
  command->add_flag("--json", arguments->json, "One JSON object a difference and line");
  command->add_option("--patch", arguments->patch, "Write the patch that makes OTHER of FILE");
  command->callback([arguments, &context] { Diff(*arguments, context); });
}

}  // namespace tarvelo::cli
