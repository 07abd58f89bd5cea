#include <ostream>

#include "cli/commands.h"
#include "cli/files.h"
#include "cli/numbers.h"
#include "cli/output.h"
#include "cli/subcommands.h"

namespace tarvelo::cli {
namespace {

// The number of the records to export, if one is given.
std::optional<std::uint32_t> NumberOf(const ExportArguments& arguments) {
  const auto& number = arguments.number;
  if (!number) return {};
  if (number->empty()) throw WrongArguments("--number: a number is needed");
  if (arguments.kind->files->isNumberHex) return ParseHex("--number", *number);
  return static_cast<std::uint32_t>(ParseDecimal("--number", *number));
}

// Files go to the given folder, or else to one beside the dump. Their names begin with the dump's name.
ExportTarget TargetOf(const ExportArguments& arguments) {
  const std::filesystem::path dump = PathOf(arguments.file);
  const bool isNamed = !arguments.folder.empty();
  return {.folder = isNamed ? PathOf(arguments.folder) : dump.parent_path() / arguments.kind->files->folder,
          .stem = PathText(dump.stem()),
          .format = arguments.format};
}

std::string JsonOf(const Item& item, const std::string& path) {
  return JsonLine({{"number", item.number},
                   {"deleted", item.isDeleted},
                   {"header", item.entry.offset},
                   {"offset", item.data.offset},
                   {"size", item.data.size},
                   {"path", path}});
}

void Report(const Item& item, const Exported& exported, bool asJson, Context& context) {
  if (!exported.file) {
    if (!exported.why.empty()) context.err << exported.why << '\n';
    return;
  }
  const std::string path = Printable(PathText(*exported.file));
  context.out << (asJson ? JsonOf(item, path) : path + '\n');
  context.status = done;
}

}  // namespace

void Export(const ExportArguments& arguments, Context& context) {
  const Explorer& kind = *arguments.kind;
  const std::optional<std::uint32_t> number = NumberOf(arguments);
  const Dump dump = OpenDump(arguments.file, context.progress);
  const Findings found = Search(kind, dump, arguments.file, context.progress);
  const ExportItem write = kind.files->write(dump, found, TargetOf(arguments));
  context.status = nothingFound;
  for (std::size_t record = 0; record < kind.count(found); ++record) {
    const Item item = kind.item(found, record);
    if (number && static_cast<std::uint32_t>(item.number) != *number) continue;
    if (!arguments.deleted && (item.isDeleted || !item.isCurrent)) continue;
    Report(item, write(record), arguments.json, context);
  }
}

}  // namespace tarvelo::cli
