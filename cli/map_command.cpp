#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>
#include <ostream>

#include "cli/commands.h"
#include "cli/context.h"
#include "core/identification.h"
#include "document/map_table.h"

namespace tarvelo::cli {
namespace {

using Json = nlohmann::ordered_json;

struct MapArguments {
  std::string file;
  bool json = false;
};

Json NumberOrNull(std::int64_t value) { return value < 0 ? Json() : Json(value); }

void PrintJson(const DumpMap& map, const Fullflash& image, std::ostream& out) {
  for (const MapRegion& region : map.regions) {
    const Json object{{"offset", region.offset},
                      {"address", image.PhoneAddress(region.offset)},
                      {"size", region.size},
                      {"kind", KeyOf(region.kind)},
                      {"number", NumberOrNull(region.number)},
                      {"source", NumberOrNull(region.source)},
                      {"sure", KeyOf(region.sure)}};
    out << object.dump() << '\n';
  }
}

void PrintMap(const MapArguments& arguments, Context& context) try {
  Fullflash image = OpenDump(arguments.file, context);
  const Identification info = Identify(image);
  const DumpMap map = MapDump(image, info, context.progress);
  if (arguments.json)
    PrintJson(map, image, context.out);
  else
    PrintTable(MapRows(map, image), context);
} catch (const std::length_error& fault) {
  throw ScanFault(arguments.file, fault.what());
}

}  // namespace

void AddMap(CLI::App& app, Context& context) {
  auto arguments = std::make_shared<MapArguments>();
  CLI::App* command = app.add_subcommand("map", "Print what each byte of a dump is");
  command->add_option("FILE", arguments->file, "Dump")->required();
  command->add_flag("--json", arguments->json, "One JSON object a region and line");
  command->callback([arguments, &context] { PrintMap(*arguments, context); });
}

}  // namespace tarvelo::cli
