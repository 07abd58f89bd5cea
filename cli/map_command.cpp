#include <ostream>

#include "cli/each_dump.h"
#include "cli/files.h"
#include "cli/output.h"
#include "cli/subcommands.h"
#include "document/explorers.h"
#include "document/joint_search.h"
#include "document/map_table.h"

namespace tarvelo::cli {
namespace {

Json NumberOrNull(std::int64_t value) { return value < 0 ? Json() : Json(value); }

void PrintJson(const DumpMap& map, const Fullflash& image, std::ostream& out) {
  for (const Claim& region : map.regions)
    out << JsonLine({{"offset", region.offset},
                     {"address", image.PhoneAddress(region.offset)},
                     {"size", region.size},
                     {"kind", region.kind->key},
                     {"number", NumberOrNull(region.number)},
                     {"source", NumberOrNull(region.source)},
                     {"sure", KeyOf(region.sure)}});
}

void MapOne(const std::string& file, const MapArguments& arguments, Context& context) {
  Dump dump = OpenDump(file, context.progress);
  const JointSearch joint(dump, Explorers(), context.progress);
  std::optional<Findings> found;  // findings of one explorer at a time
  const DumpMap map = MapDump(dump, [&](const Explorer& explorer) -> const Findings& {
    return found.emplace(Search(explorer, dump, file, context.progress));
  });
  if (arguments.json)
    PrintJson(map, dump.image, context.out);
  else
    PrintTable(MapRows(map, dump.image), context);
}

}  // namespace

void Map(const MapArguments& arguments, Context& context) {
  OnEach(arguments.files, JobsOf(arguments.jobs), arguments.json ? Printed::Json : Printed::Table, context,
         [&](const std::string& file, Context& own) { MapOne(file, arguments, own); });
}

}  // namespace tarvelo::cli
